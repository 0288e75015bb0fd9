#include "platform/standalone/isolated_call.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace {

constexpr IsolationLimits limits = {64UL * 1024 * 1024, 1, 1024UL * 1024};

TEST(IsolatedCall, GivesTheTextByteForByte) {
  std::string text = "a";
  text += '\0';
  text += std::string(500000, '\xff');
  EXPECT_EQ(call_isolated(limits, [&] { return text; }), text);
  EXPECT_EQ(call_isolated(limits, [] { return std::string(); }), "");
}

TEST(IsolatedCall, ChangesNothingHere) {
  int changed = 0;
  call_isolated(limits, [&] { return std::to_string(++changed); });
  EXPECT_EQ(changed, 0);
}

TEST(IsolatedCall, GivesNothingOfATextThatIsTooLong) {
  const auto call = [](size_t size) {
    return call_isolated(limits, [size] { return std::string(size, 'x'); });
  };
  EXPECT_TRUE(call(limits.result_size));
  EXPECT_FALSE(call(limits.result_size + 1));
}

TEST(IsolatedCall, GivesNothingWhenTheCallThrowsOrCrashes) {
  EXPECT_FALSE(call_isolated(limits, []() -> std::string { throw std::length_error("no"); }));
  EXPECT_FALSE(call_isolated(limits, []() -> std::string { std::abort(); }));
  EXPECT_FALSE(call_isolated(limits, []() -> std::string { std::_Exit(EXIT_SUCCESS); }));
}

TEST(IsolatedCall, EndsACallThatTakesTooLong) {
  EXPECT_FALSE(call_isolated(limits, []() -> std::string {
    std::atomic<int> turns = 0;
    for (;;) {
      ++turns;
    }
  }));
}

#ifndef __SANITIZE_ADDRESS__
TEST(IsolatedCall, RefusesMoreMemoryThanGranted) {
  const auto call = [](size_t size) {
    return call_isolated(limits, [size] {
      const std::string large(size, 'x');
      return large.substr(0, 1);
    });
  };
  EXPECT_EQ(call(limits.memory / 2), "x");
  EXPECT_FALSE(call(limits.memory + 1));
}
#endif

TEST(IsolatedCall, LeavesNoProcessBehindAndDoesNotNeedTheParentsIdeaOfSignals) {
  const auto before = std::signal(SIGCHLD, SIG_IGN);
  EXPECT_EQ(call_isolated(limits, [] { return std::string("x"); }), "x");
  std::signal(SIGCHLD, before);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

}  // namespace
