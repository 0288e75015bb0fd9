// A whole run: a schedule, a play log, a sidecar, a subschedule and a command line, through every
// pass into the writer.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <string>
#include <utility>

#include "driver/options.hpp"
#include "driver/run_steps.hpp"
#include "fuzz/document_checks.hpp"
#include "fuzz/fuzz_target.hpp"
#include "fuzz/one_process.hpp"
#include "fuzz/whole_run_input.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/media/mime_type.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

/// The assertions that a schedule or a report time can bring about.
constexpr std::array<std::string_view, 4> expected_assertions = {
    "sit != schedule.schedule.begin()", "csit.start < csit.end", "tm != NULL",
    "sit != schedule.schedule.end()"};

bool take_options(WholeRunInput& input) {
  run_options = RunOptions();
  set_whole_run_zone(input.zone);
  std::string program = "nv8x_schedule_to_xml";
  std::vector<char*> words{program.data()};
  for (std::string& argument : input.arguments) {
    words.push_back(argument.data());
  }
  if (!parse_options(static_cast<int>(words.size()), words.data())) {
    return false;
  }
  run_options.schedule_path = "channel.schedule";
  run_options.cgi = false;
  return true;
}

/// An interval is a type that no unit of the calendar belongs to.
bool has_type(const char* path) {
  Schedule schedule;
  read_schedule_file(schedule, path);
  const ScheduleType* type = find_schedule_type(schedule.type);
  return type != nullptr && type->unit_days > 0;
}

/// A file that is taken for a schedule and does not say of which type aborts the program.
bool all_have_types(const WholeRunInput& input) {
  const std::array<std::pair<const char*, std::string_view>, 3> files = {
      {{"play.log", input.play_log},
       {"clip.mp4.metadata", input.sidecar},
       {"inner.schedule", input.subschedule}}};
  for (const auto& [path, content] : files) {
    if (!sniff_schedule(content).empty() && !has_type(path)) {
      return false;
    }
  }
  for (const ScheduleType& type : schedule_types()) {
    if (!type.mime_type.empty() && input.sidecar.find(type.mime_type) != std::string_view::npos) {
      return false;
    }
  }
  return has_type("channel.schedule");
}

void run() {
  Schedule schedule;
  read_schedule(schedule);
  complete_schedule(schedule);
  place_schedule(schedule, static_cast<time_t>(run_options.report_time), run_options.schedule_path);
  print_document(schedule, report_window(schedule));
  check_document(printed, schedule);
}

bool is_expected(std::string_view assertion) {
  return std::ranges::any_of(expected_assertions, [&](std::string_view expected) {
    return assertion.find(expected) != std::string_view::npos;
  });
}

}  // namespace

void run_target(std::string_view input) {
  WholeRunInput parts = split_whole_run_input(input);
  write_whole_run_files(parts);
  if (!take_options(parts) || !all_have_types(parts)) {
    return;
  }
  printed.clear();
  forget_media_files();
  try {
    run();
  } catch (const AssertionFailed& failed) {
    require(is_expected(failed.text), "only the assertions that are told of can fail");
  } catch (const RunEnded&) {
    require(printed.empty(), "no error follows the beginning of a document");
  }
}
