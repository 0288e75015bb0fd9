#include "import/check_made_schedule.hpp"

#include <utility>

#include "check/schedule_check.hpp"

namespace {

Place place_in_table(const Place& place, const ScheduleText& made) {
  const auto line = static_cast<size_t>(place.line) - 1;
  return line < made.places.size() ? made.places[line] : Place{};
}

}  // namespace

std::vector<Finding> check_made_schedule(const ScheduleText& made, bool media, time_t report_time) {
  CheckOptions options;
  options.media = media;
  options.report_time = report_time;
  FileFindings found;
  check_schedule_source({made.text, {}, {}}, options, found);
  for (Finding& finding : found.findings) {
    finding.place = place_in_table(finding.place, made);
    for (Note& note : finding.notes) {
      note.place = place_in_table(note.place, made);
    }
  }
  return std::move(found.findings);
}
