#include "check/explain.hpp"

#include <charconv>
#include <ctime>
#include <string_view>
#include <utility>
#include <vector>

#include "check/story.hpp"
#include "checks/finding.hpp"
#include "checks/schedule_source.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/system/activity.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/parse_time.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "schedule/watchdog.hpp"

namespace {

std::optional<time_t> time_of_moment(const std::string& moment, const std::string& type,
                                     time_t report_time, std::string& error) {
  if (moment.starts_with('@')) {
    time_t t = 0;
    const char* end = moment.data() + moment.size();
    const auto result = std::from_chars(moment.data() + 1, end, t);
    if (result.ec == std::errc() && result.ptr == end) {
      return t;
    }
  } else {
    std::tm broken_down{};
    long microseconds = 0;
    if (schedule_parse_time(moment, broken_down, microseconds)) {
      // The schedule's own unit must not be known before its gaps are filled.
      const time_t t =
          UnitClock(type, unit_of(type, report_time).start)
              .time_of(broken_down_to_schedule_seconds(find_schedule_type(type), broken_down));
      if (t != -1) {
        return t;
      }
      error = "the clocks skip that time in the unit of the report time";
      return std::nullopt;
    }
  }
  error = "invalid time " + quoted(moment);
  return std::nullopt;
}

/// Reads the schedule from the content and passes each part on to the story.
void read_schedule(Schedule& schedule, Story& story, const std::string& file,
                   std::string_view content) {
  const Activity activity("reading", file.c_str());
  ScheduleFile parts(content);
  ScheduleBuilder builder(schedule);
  for (SchedulePart part; parts.next(part);) {
    story.add_part(part, builder.add_part(part));
  }
  builder.finish();
}

}  // namespace

std::optional<std::string> explain_moment(const std::string& file, const std::string& moment,
                                          const CheckOptions& options, std::string& error) {
  Finding failure{};
  const std::optional<ScheduleSource> source = read_schedule_source(file, failure);
  if (!source) {
    error = failure.text;
    return std::nullopt;
  }
  const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
  Schedule schedule;
  Story story(file, schedule);
  read_schedule(schedule, story, file, source->content);
  if (schedule.unit_length == 0) {
    error = "a schedule of this type has no times";
    return std::nullopt;
  }
  const auto t = time_of_moment(moment, schedule.type, options.report_time, error);
  if (!t) {
    return std::nullopt;
  }
  schedule.observer = &story;
  complete_schedule(schedule);
  place_schedule(schedule, *t, source->path);
  schedule.observer = nullptr;
  arm_watchdog();
  std::string out = text_of_moment(schedule, story, *t, file);
  cancel_watchdog();
  return out;
}
