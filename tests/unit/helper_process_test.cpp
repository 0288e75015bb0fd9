#include "platform/media/helper_process.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

constexpr size_t memory = 64UL * 1024 * 1024;
constexpr auto a_while = std::chrono::milliseconds(300);

/// Does as the question says, which begins with a letter.
std::string work(int fd, const std::string& question) {
  const size_t size = question.size() > 1 ? std::strtoul(question.c_str() + 1, nullptr, 10) : 0;
  switch (question.empty() ? 'e' : question.front()) {
    case 'x': {  // a text of that size
      std::string text(size, 'x');
      return text;
    }
    case 'm': {  // takes that much memory
      const std::string large(size, 'm');
      return large.substr(size - 1);
    }
    case 'p':  // which process it is
      return std::to_string(getpid());
    case 'f': {  // what the file begins with
      std::array<char, 4> bytes{};
      return {bytes.data(), read_fully_at(fd, bytes.data(), bytes.size(), 0).value_or(0)};
    }
    case 's':
      for (std::atomic<int> turns = 0;;) {
        ++turns;
      }
    case 't':
      throw std::length_error("no");
    case 'a':
      std::abort();
    case 'e':
      std::_Exit(EXIT_SUCCESS);
    default:
      return question;
  }
}

class Helper : public testing::Test {
 protected:
  std::optional<std::string> ask(const std::string& question) {
    return helper_.ask(zero_.get(), question, a_while);
  }

  FileDescriptor zero_{open("/dev/zero", O_RDONLY | O_CLOEXEC)};
  HelperProcess helper_{work, memory};
};

TEST_F(Helper, AnswersByteForByte) {
  std::string question = "question";
  question += '\0';
  question += std::string(500000, '\xff');
  EXPECT_EQ(ask(question), question);
  EXPECT_EQ(ask("x0"), "");
  EXPECT_EQ(ask("f"), std::string(4, '\0'));
}

TEST_F(Helper, IsOneProcessForAllQuestions) {
  const std::optional<std::string> process = ask("p");
  ASSERT_TRUE(process);
  EXPECT_NE(process, std::to_string(getpid()));
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(ask("p"), process);
  }
}

TEST_F(Helper, GivesNothingOfATextThatIsTooLong) {
  EXPECT_TRUE(ask("x1048576"));
  EXPECT_FALSE(ask("x1048577"));
}

TEST_F(Helper, IsReplacedAfterAQuestionThatWasItsEnd) {
  for (const char* question : {"t", "a", "e", "s", ""}) {
    EXPECT_FALSE(ask(question)) << question;
    EXPECT_EQ(ask("x1"), "x") << question;
    EXPECT_FALSE(ask(question)) << question;
  }
}

TEST_F(Helper, IsReplacedWhenItWasEndedFromOutside) {
  const std::optional<std::string> process = ask("p");
  ASSERT_TRUE(process);
  ASSERT_EQ(kill(std::stoi(*process), SIGKILL), 0);
  const std::optional<std::string> other = ask("p");
  ASSERT_TRUE(other);
  EXPECT_NE(other, process);
}

#ifndef NV8X_ADDRESS_SANITIZER
TEST_F(Helper, GrantsTheSameMemoryWhateverCameBefore) {
  EXPECT_EQ(ask("m" + std::to_string(memory / 2)), "m");
  EXPECT_FALSE(ask("m" + std::to_string(2 * memory)));
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(ask("m" + std::to_string(memory / 2 + static_cast<size_t>(i) * 1000000)), "m");
  }
}

/// Leaves this process, and those that it forks, that much more address space.
void leave_memory(size_t size) {
  size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlim_t most = pages * static_cast<size_t>(sysconf(_SC_PAGESIZE)) + size;
  const rlimit limit{most, most};
  ASSERT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
}

TEST_F(Helper, EndsTheRunWhereTheMachineLacksTheMemoryThatItGrants) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // in a process without memory of other tests
  const std::string question = "m" + std::to_string(memory / 2);
  EXPECT_EXIT(
      {
        leave_memory(memory / 4);
        ask(question);
        std::exit(EXIT_SUCCESS);
      },
      testing::ExitedWithCode(EXIT_FAILURE), "^Error: Out of memory\n$");
}

TEST_F(Helper, GivesNothingWhereTheFileTakesMoreThanAnyMachineGrants) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const std::string question = "m" + std::to_string(2 * memory);
  EXPECT_EXIT(
      {
        leave_memory(4 * memory);
        std::exit(ask(question) ? EXIT_FAILURE : EXIT_SUCCESS);
      },
      testing::ExitedWithCode(EXIT_SUCCESS), "^$");
}
#endif

TEST(HelperProcess, LeavesNoProcessBehindAndDoesNotNeedTheParentsIdeaOfSignals) {
  const auto before = std::signal(SIGCHLD, SIG_IGN);
  {
    const FileDescriptor zero(open("/dev/zero", O_RDONLY | O_CLOEXEC));
    HelperProcess helper(work, memory);
    EXPECT_EQ(helper.ask(zero.get(), "x1", a_while), "x");
    EXPECT_FALSE(helper.ask(zero.get(), "s", a_while));
    EXPECT_EQ(helper.ask(zero.get(), "x1", a_while), "x");
  }
  std::signal(SIGCHLD, before);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

}  // namespace
