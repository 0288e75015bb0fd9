#include "checks/schedule_check.hpp"

#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

#include "checks/checks.hpp"
#include "checks/schedule_source.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/known_zone.hpp"
#include "schedule/watchdog.hpp"

namespace {

void check_content(ScheduleSource source, const CheckOptions& options, FileFindings& found) {
  WrittenSchedule written{.content = std::move(source.content)};
  read_and_check_lines(written, options, found);
  check_sections(written, found);
  check_dates(written, found);
  check_missing_parts(written, options.report_time, found);
  check_noon(written, found);
  check_month_first(written, found);
  if (written.schedule.unit_length > 0) {
    check_clock_changes(written, options.report_time, found);
  }
  if (options.formats.has_listing()) {
    check_listed_ends(written, !options.media, found);
  }
  check_passes(written, options.report_time, found);
  if (options.media && check_media(written, source.id, options.formats, found)) {
    check_subschedules(written, found);
  }
}

}  // namespace

bool check_schedule_file(const std::string& file, const CheckOptions& options,
                         FileFindings& found) {
  Finding failure{};
  std::optional<ScheduleSource> source = read_schedule_source(file, failure);
  if (!source) {
    found = {file, {std::move(failure)}};
    return false;
  }
  check_schedule_source(*std::move(source), options, found);
  found.file = file;
  return true;
}

void check_schedule_source(ScheduleSource source, const CheckOptions& options,
                           FileFindings& found) {
  found = {.file = source.path};
  // The passes print nothing: the findings say the same, with lines.
  const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
  arm_watchdog();  // not earlier: standard input may take its time
  check_bytes(source.content, options.formats, found);
  if (!is_hopeless(source.content)) {
    check_content(std::move(source), options, found);
  }
  cancel_watchdog();
  sort_findings(found);
}

void check_zone(FileFindings& found) {
  const char* set = std::getenv("TZ");
  const std::string_view zone = set != nullptr ? set : "";
  if (!zone.empty() && zone != ":" && !is_known_zone(zone)) {
    found.add(FindingKind::unknown_zone, {},
              "the machine knows no zone " + quoted(zone) + ": times would be those of UTC");
  }
}
