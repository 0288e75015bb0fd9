// Single functions, measured by Google Benchmark: micro SCHEDULE [options of Google Benchmark]

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/media/media_type_database.hpp"
#include "platform/time/calendar.hpp"
#include "platform/time/parse_time.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "writers/xml_escape.hpp"

namespace {

constexpr time_t report_time = 1772733600;    // 5 March 2026, 18:00 in London
constexpr time_t day_of_change = 1774742400;  // 29 March 2026, 00:00; summer time begins at 01:00
constexpr uint64_t day_seconds = 24 * 60 * 60;

Schedule& endless_schedule() {
  static Schedule schedule = [] {
    Schedule made;
    made.type = "endless";
    compute_unit_times(made, report_time);
    return made;
  }();
  return schedule;
}

/// The seconds of a walk over a schedule: ascending, through `days` days from `first`.
void convert_ascending(benchmark::State& state, uint64_t first, uint64_t days) {
  const Schedule& schedule = endless_schedule();
  uint64_t offset = 0;
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(schedule_seconds_to_time(schedule, first + offset));
    offset = (offset + 25) % (days * day_seconds);
  }
}

void seconds_to_time_over_march(benchmark::State& state) {
  const uint64_t first = time_to_schedule_seconds(endless_schedule(), 1772323200);
  convert_ascending(state, first, 28);
}
BENCHMARK(seconds_to_time_over_march);

void seconds_to_time_on_day_of_change(benchmark::State& state) {
  const uint64_t first = time_to_schedule_seconds(endless_schedule(), day_of_change);
  convert_ascending(state, first, 1);
}
BENCHMARK(seconds_to_time_on_day_of_change);

void parse_time(benchmark::State& state, std::string_view text) {
  while (state.KeepRunning()) {
    std::tm broken_down{};
    long microseconds = 0;
    benchmark::DoNotOptimize(schedule_parse_time(text, broken_down, microseconds));
    benchmark::DoNotOptimize(broken_down);
  }
}
BENCHMARK_CAPTURE(parse_time, clock, "18:30:25");
BENCHMARK_CAPTURE(parse_time, weekday, "Mon 18:30:25");
BENCHMARK_CAPTURE(parse_time, date, "2026-03-05 18:30:25");
BENCHMARK_CAPTURE(parse_time, month_name, "Mar 05 18:30:25");
BENCHMARK_CAPTURE(parse_time, fraction, "Thursday, 5th March 2026 6:30:25.5 pm");

void escape(benchmark::State& state, const char* text) {
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(xml_escape(text));
  }
}
BENCHMARK_CAPTURE(escape, plain_path, "media/series/harbour-lights-0123.mp4");
BENCHMARK_CAPTURE(escape, marked_path, "media/series/harbour's-lights-&-more-0123.mp4");

void start_of_day(benchmark::State& state) {
  time_t t = day_of_change - 40 * static_cast<time_t>(day_seconds);
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(calendar_start_of_day(t));
    t = t < day_of_change + 40 * static_cast<time_t>(day_seconds)
            ? t + 25
            : day_of_change - 40 * static_cast<time_t>(day_seconds);
  }
}
BENCHMARK(start_of_day);

/// Asks a database for the type of a file's first 4 KiB, which are `content` and zeros.
void media_type(benchmark::State& state, std::string (*database)(std::string_view),
                std::string_view content) {
  std::string head(content);
  head.resize(size_t{4} * 1024);
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(database(head));
  }
}
constexpr std::string_view mp4_head(
    "\0\0\0\x18"
    "ftypmp42\0\0\0\0mp42isom",
    24);
constexpr std::string_view wav_head("RIFF\x24\0\0\1WAVEfmt \x10\0\0\0\1\0\2\0", 24);
constexpr std::string_view mxf_head("\x06\x0e\x2b\x34\x02\5\1\1\x0d\1\2\1\1\2\4\0", 16);
BENCHMARK_CAPTURE(media_type, small_mp4, known_media_type, mp4_head);
BENCHMARK_CAPTURE(media_type, large_mp4, libmagic_type, mp4_head);
BENCHMARK_CAPTURE(media_type, small_wav, known_media_type, wav_head);
BENCHMARK_CAPTURE(media_type, large_wav, libmagic_type, wav_head);
BENCHMARK_CAPTURE(media_type, small_mxf, known_media_type, mxf_head);
BENCHMARK_CAPTURE(media_type, large_mxf, libmagic_type, mxf_head);
BENCHMARK_CAPTURE(media_type, small_unknown, known_media_type, "\xc1\xc2");
BENCHMARK_CAPTURE(media_type, large_unknown, libmagic_type, "\xc1\xc2");

void read_schedule(benchmark::State& state, const std::string& path) {
  Schedule schedule;
  while (state.KeepRunning()) {
    if (!read_schedule_file(schedule, path.c_str())) {
      state.SkipWithError("cannot read the schedule");
      return;
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(schedule.schedule.size()));
}

}  // namespace

int main(int argc, char** argv) {
  settle_local_zone();
  benchmark::Initialize(&argc, argv);
  if (argc != 2) {
    std::fputs("usage: micro SCHEDULE [options of Google Benchmark]\n", stderr);
    return EXIT_FAILURE;
  }
  const std::string schedule = argv[1];
  benchmark::RegisterBenchmark(
      "read_schedule", [schedule](benchmark::State& state) { read_schedule(state, schedule); });
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}
