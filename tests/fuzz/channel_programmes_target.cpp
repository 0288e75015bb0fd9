// The programmes of a channel over the ends of units: a schedule, a play log, a sidecar and a
// subschedule. The first line has the zone, the days of the guide, the first of them, and whether
// what is on air when it begins is shown.

#include <libxml/parser.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.hpp"
#include "fuzz/one_process.hpp"
#include "fuzz/whole_run_input.hpp"
#include "platform/system/clock.hpp"
#include "platform/system/messages.hpp"
#include "station/channel_programmes.hpp"
#include "station/channel_schedule.hpp"

namespace {

int number_of(const WholeRunInput& input, size_t index, int least, int most, int otherwise) {
  int number = otherwise;
  if (index < input.arguments.size()) {
    const std::string& text = input.arguments[index];
    std::from_chars(text.data(), text.data() + text.size(), number);
  }
  return std::clamp(number, least, most);
}

void require_order(const std::vector<Programme>& programmes) {
  const Programme* last = nullptr;
  for (const Programme& programme : programmes) {
    require(programme.stop == -1 || programme.start < programme.stop, "no programme is reversed");
    require(last == nullptr || (last->stop != -1 && last->stop <= programme.start),
            "no programme overlaps the one before it");
    last = &programme;
  }
}

void require_well_formed(const std::vector<Programme>& programmes) {
  std::string document = "<tv>";
  for (const Programme& programme : programmes) {
    append_programme(document, programme, "a.example", "en");
  }
  document += "</tv>";
  constexpr int quiet = XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NONET | XML_PARSE_HUGE;
  xmlDocPtr parsed =
      xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr, "UTF-8", quiet);
  require(parsed != nullptr, "a guide is XML, whatever the texts are");
  xmlFreeDoc(parsed);
}

}  // namespace

void run_target(std::string_view input) {
  constexpr int most_days = 40;
  const WholeRunInput parts = split_whole_run_input(input);
  write_whole_run_files(parts);
  set_whole_run_zone(parts.zone);
  const GuideSpan span{.days = number_of(parts, 0, 0, most_days, 2),
                       .offset = number_of(parts, 1, -most_days, most_days, 0)};
  const bool with_previous = number_of(parts, 2, 0, 1, 0) == 1;
  forget_media_files();
  try {
    const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
    const auto schedule = std::make_unique<Schedule>();
    std::string error;
    if (!read_channel_schedule(*schedule, "channel.schedule", error)) {
      require(!error.empty(), "a channel that fails says why");
      return;
    }
    const auto programmes = programmes_of_schedule(
        *schedule, "channel.schedule", times_of_span(span, current_time()), with_previous);
    require_order(programmes);
    require_well_formed(programmes);
  } catch (const AssertionFailed&) {
  } catch (const RunEnded&) {
    // Either ends the channel's process, which costs this channel alone.
  }
}
