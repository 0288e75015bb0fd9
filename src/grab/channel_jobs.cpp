#include "grab/channel_jobs.hpp"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>

namespace {

/// A file without a name. It is deleted when it is closed.
FileDescriptor open_scratch_file() {
  const char* folder = std::getenv("TMPDIR");
  return FileDescriptor(
      ::open(folder != nullptr ? folder : "/tmp", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
}

/// A stopped process must not block the guide. Once it continues, its watchdog can end it.
void let_go_on(pid_t process) {
  constexpr timespec between_attempts = {.tv_sec = 0, .tv_nsec = 100'000'000};
  nanosleep(&between_attempts, nullptr);
  kill(process, SIGCONT);
}

}  // namespace

std::optional<ChannelJob> start_job(const ChannelWork& work, ChannelJobs& others) {
  ChannelJob job{&work.channel, open_scratch_file(), -1, {}};
  if (!job.file.is_open()) {
    return std::nullopt;
  }
  const pid_t parent = getpid();
  job.process = fork();
  if (job.process == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
      _exit(EXIT_FAILURE);
    }
    others.clear();  // this closes only this process's copies of the descriptors
    work_on_channel(work, job.file);
  }
  return job.process > 0 ? std::optional(std::move(job)) : std::nullopt;
}

bool await_end(ChannelJob& job) {
  while (!job.end) {
    int status = 0;
    const pid_t process = waitpid(job.process, &status, WUNTRACED);
    if (process != job.process) {
      if (errno != EINTR) {
        return false;
      }
    } else if (WIFSTOPPED(status)) {
      let_go_on(process);
    } else if (WIFSIGNALED(status)) {
      std::fprintf(stderr, "tv_grab_nv8x: %s: ended by a signal: %s\n", job.channel->id.c_str(),
                   strsignal(WTERMSIG(status)));
      job.end = ChannelEnd::failed;
    } else {
      job.end = static_cast<ChannelEnd>(WEXITSTATUS(status));
    }
  }
  return true;
}

std::optional<uint64_t> copy_programmes(int from, int to) {
  ProgrammesHead head{};
  std::array<char, sizeof(head)> bytes{};
  if (lseek(from, 0, SEEK_SET) != 0) {
    return std::nullopt;
  }
  errno = EIO;  // in case the file is too short
  if (read_fully(from, bytes.data(), bytes.size()) != bytes.size()) {
    return std::nullopt;
  }
  std::memcpy(&head, bytes.data(), sizeof(head));
  std::string buffer(64UL * 1024, '\0');
  for (uint64_t left = head.bytes;;) {
    errno = EIO;
    const auto length = read_some(from, buffer.data(), buffer.size());
    if (!length || *length > left || (*length == 0 && left > 0)) {
      return std::nullopt;
    }
    if (*length == 0) {
      return head.programmes;
    }
    if (!write_fully(to, std::string_view(buffer).substr(0, *length))) {
      return std::nullopt;
    }
    left -= *length;
  }
}
