// The checker of schedule files, media left alone.

#include <algorithm>
#include <string>

#include "checks/schedule_check.hpp"
#include "fuzz/fuzz_target.hpp"
#include "fuzz/scratch_folder.hpp"

namespace {

constexpr time_t report_time = 1772733600;  // 2026-03-05 18:00:00 UTC

void require_place(const Place& place, int64_t lines) {
  require(place.line >= 1 && place.line <= std::max<int64_t>(lines, 1), "a place is in the file");
  require(place.column >= 1, "columns count from 1");
}

}  // namespace

void run_target(std::string_view input) {
  static const ScratchFolder folder;
  folder.write("channel.schedule", input);
  FileFindings found;
  require(check_schedule_file(folder.path() + "/channel.schedule",
                              {.media = false, .report_time = report_time}, found),
          "a file that is there is read");
  const auto lines = std::ranges::count(input, '\n') + 1;
  Place last;
  for (const Finding& finding : found.findings) {
    require_place(finding.place, lines);
    require(last.line <= finding.place.line, "findings stand in the order of the file");
    last = finding.place;
    for (const Note& note : finding.notes) {
      require_place(note.place, lines);
    }
  }
  const std::string text = text_of(found, found.findings.size());
  require(
      std::ranges::all_of(text, [](char c) { return c == '\n' || (c & 0x80) != 0 || c >= ' '; }),
      "a terminal can show it");
}
