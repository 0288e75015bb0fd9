#include "import/check_made_schedule.hpp"

#include <sys/stat.h>

#include <charconv>
#include <string_view>
#include <utility>

#include "checks/schedule_check.hpp"

namespace {

Place place_in_table(const Place& place, const ScheduleText& made) {
  const auto line = static_cast<size_t>(place.line) - 1;
  return line < made.places.size() ? made.places[line] : Place{};
}

/// A text that names a line of the made schedule names the row instead.
void name_row_for_line(std::string& text, const ScheduleText& made) {
  constexpr std::string_view words = " at line ";
  const size_t at = text.rfind(words);
  if (at == std::string::npos) {
    return;
  }
  Place line;
  const char* const end = text.data() + text.size();
  const auto number = std::from_chars(text.data() + at + words.size(), end, line.line);
  if (number.ec == std::errc() && number.ptr == end) {
    text.replace(at, std::string::npos,
                 " of row " + std::to_string(place_in_table(line, made).line));
  }
}

}  // namespace

std::vector<Finding> check_made_schedule(const ScheduleText& made, const std::string& output,
                                         bool media, time_t report_time) {
  CheckOptions options;
  options.media = media;
  options.report_time = report_time;
  FileFindings found;
  struct stat old = {};
  const bool is_there = !output.empty() && stat(output.c_str(), &old) == 0;
  const FileId id = is_there ? FileId{old.st_dev, old.st_ino} : FileId{};
  check_schedule_source({made.text, id, {}}, options, found);
  for (Finding& finding : found.findings) {
    finding.place = place_in_table(finding.place, made);
    name_row_for_line(finding.text, made);
    finding.fix.clear();  // it has lines of the schedule, not of the table
    for (Note& note : finding.notes) {
      note.place = place_in_table(note.place, made);
    }
  }
  return std::move(found.findings);
}
