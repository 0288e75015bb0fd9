#include "check/schedule_check.hpp"

#include <optional>
#include <utility>

#include "check/line_check.hpp"
#include "check/media_check.hpp"
#include "check/pass_check.hpp"
#include "check/schedule_source.hpp"
#include "check/source_text.hpp"
#include "check/subschedule_check.hpp"
#include "check/written_schedule.hpp"
#include "platform/system/messages.hpp"
#include "schedule/watchdog.hpp"

bool check_schedule_file(const std::string& file, const CheckOptions& options,
                         FileFindings& found) {
  found = {file, {}};
  Finding failure{};
  std::optional<ScheduleSource> source = read_schedule_source(file, failure);
  if (!source) {
    found.findings.push_back(std::move(failure));
    return false;
  }
  // The passes print nothing: the findings say the same, with lines.
  const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
  arm_watchdog();  // not earlier: standard input may take its time
  WrittenSchedule written(std::move(source->content));
  check_bytes(written.source, found.findings);
  if (!is_hopeless(written.source)) {
    read_and_check_lines(written, file, options.media, found.findings);
    check_passes(written, options.report_time, found.findings);
    if (options.media && check_media(written, source->id, found.findings)) {
      check_subschedules(written, found.findings);
    }
  }
  cancel_watchdog();
  sort_findings(found);
  return true;
}
