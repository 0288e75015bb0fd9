#include "platform/standalone/isolated_call.hpp"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>

#include "platform/file.hpp"

namespace {

// The address sanitizer claims terabytes that it does not use.
#ifdef __SANITIZE_ADDRESS__
constexpr bool is_sanitized = true;
#else
constexpr bool is_sanitized = false;
#endif

/// Bytes of address space that this process has, or 0 when the system does not say.
size_t claimed_memory() {
  const FileDescriptor file = open_regular_file(AT_FDCWD, "/proc/self/statm");
  std::array<char, 64> text{};
  if (!file.is_open() || read_fully(file.get(), text.data(), text.size() - 1) == 0) {
    return 0;
  }
  return std::strtoul(text.data(), nullptr, 10) * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

bool limit_memory(size_t more) {
  if (is_sanitized) {
    return true;
  }
  const size_t claimed = claimed_memory();
  rlimit limit{};
  if (claimed == 0 || getrlimit(RLIMIT_AS, &limit) != 0) {
    return false;
  }
  limit.rlim_cur = std::min<rlim_t>(claimed + more, limit.rlim_max);
  return setrlimit(RLIMIT_AS, &limit) == 0;
}

bool limit_time(long seconds) {
  std::signal(SIGPROF, SIG_DFL);
  sigset_t timer_signal;
  sigemptyset(&timer_signal);
  sigaddset(&timer_signal, SIGPROF);
  sigprocmask(SIG_UNBLOCK, &timer_signal, nullptr);
  itimerval timer{};
  timer.it_value.tv_sec = seconds;
  return setitimer(ITIMER_PROF, &timer, nullptr) == 0;
}

bool write_fully(int fd, const char* bytes, size_t size) {
  while (size > 0) {
    const ssize_t count = ::write(fd, bytes, size);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      return false;
    }
    bytes += count;
    size -= static_cast<size_t>(count);
  }
  return true;
}

/// The length goes first, so that a text cut short is known for one.
bool write_result(int fd, const std::string& text) {
  const size_t size = text.size();
  std::array<char, sizeof(size)> head{};
  std::memcpy(head.data(), &size, sizeof(size));
  return write_fully(fd, head.data(), head.size()) && write_fully(fd, text.data(), text.size());
}

std::optional<std::string> read_result(int fd, size_t most) {
  size_t size = 0;
  std::array<char, sizeof(size)> head{};
  if (read_fully(fd, head.data(), head.size()) != head.size()) {
    return std::nullopt;
  }
  std::memcpy(&size, head.data(), sizeof(size));
  if (size > most) {
    return std::nullopt;
  }
  std::string text(size, '\0');
  if (read_fully(fd, text.data(), size) != size) {
    return std::nullopt;
  }
  return text;
}

/// The child's whole life. It dies quietly: what it has to say of its death helps nobody.
[[noreturn]] void work_and_end(int fd, const IsolationLimits& limits,
                               const std::function<std::string()>& work) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const rlimit no_core{};
  setrlimit(RLIMIT_CORE, &no_core);
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(nowhere, STDERR_FILENO);
  std::set_new_handler(nullptr);  // the run's own would speak of it
  bool is_done = false;
  if (limit_memory(limits.memory) && limit_time(limits.cpu_seconds)) {
    try {
      const std::string text = work();
      is_done = text.size() <= limits.result_size && write_result(fd, text);
    } catch (const std::exception&) {
      is_done = false;  // most likely out of memory, as it may be here
    }
  }
  _exit(is_done ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

std::optional<std::string> call_isolated(const IsolationLimits& limits,
                                         const std::function<std::string()>& work) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    return std::nullopt;
  }
  FileDescriptor from_child(ends[0]);
  FileDescriptor to_parent(ends[1]);
  const pid_t child = fork();
  if (child == 0) {
    from_child.reset();
    work_and_end(to_parent.get(), limits, work);
  }
  to_parent.reset();
  if (child < 0) {
    return std::nullopt;
  }
  std::optional<std::string> text = read_result(from_child.get(), limits.result_size);
  from_child.reset();
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  return text;
}
