#include "station/channel_jobs.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <atomic>
#include <chrono>
#include <new>
#include <string>
#include <thread>
#include <vector>

namespace {

/// Channels' processes at work. They share it with the process that starts them.
struct AtWork {
  std::atomic<int> now = 0;
  std::atomic<int> most = 0;
};

/// Works until there have been that many at once, and a little longer.
void work_beside_others(AtWork& at_work, int others) {
  using namespace std::chrono_literals;
  const int now = ++at_work.now;
  for (int most = at_work.most; now > most;) {
    at_work.most.compare_exchange_weak(most, now);
  }
  const auto too_late = std::chrono::steady_clock::now() + 20s;
  while (at_work.most < others && std::chrono::steady_clock::now() < too_late) {
    std::this_thread::sleep_for(1ms);
  }
  std::this_thread::sleep_for(20ms);
  --at_work.now;
}

TEST(ChannelJobs, AreAsManyAtOnceAsAllowedAndNoMore) {
  std::vector<StationChannel> channels(5);
  ChannelRun run{"test", {}, 1, 0};
  std::string ids;
  for (StationChannel& channel : channels) {
    channel.id = std::to_string(run.channels.size());
    channel.zone = "UTC";
    channel.folder = ".";
    run.channels.push_back(&channel);
    ids += channel.id;
  }
  constexpr int no_file = -1;
  void* const shared =
      mmap(nullptr, sizeof(AtWork), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, no_file, 0);
  ASSERT_NE(shared, MAP_FAILED);
  for (run.jobs = 1; run.jobs <= 3; ++run.jobs) {
    auto& at_work = *new (shared) AtWork;
    std::string taken;
    const std::string error = run_channels(
        run, [&](const ChannelWork&, int) { work_beside_others(at_work, run.jobs); },
        [&](const ChannelJob& job) {
          taken += job.end == ChannelEnd::done ? job.channel->id : "failed";
          return std::string();
        });
    EXPECT_EQ(error, "");
    EXPECT_EQ(taken, ids);
    EXPECT_EQ(at_work.most, run.jobs);
  }
  munmap(shared, sizeof(AtWork));
}

}  // namespace
