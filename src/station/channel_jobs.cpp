#include "station/channel_jobs.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <utility>

namespace {

using ChannelJobs = std::deque<ChannelJob>;

/// A stopped process must not block the run. Once it continues, its watchdog can end it.
void let_go_on(pid_t process) {
  constexpr timespec between_attempts = {.tv_sec = 0, .tv_nsec = 100'000'000};
  nanosleep(&between_attempts, nullptr);
  kill(process, SIGCONT);
}

/// Waits for the process and sets `end`. False, with errno set, when waiting fails.
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
      job.signal = WTERMSIG(status);
      job.end = ChannelEnd::failed;
    } else {
      job.end = static_cast<ChannelEnd>(WEXITSTATUS(status));
    }
  }
  return true;
}

void read_messages(ChannelJob& job, const char* program) {
  if (lseek(job.messages.get(), 0, SEEK_SET) == 0) {
    job.said = read_content(job.messages.get())
                   .value_or(std::string(program) + ": " + job.channel->id +
                             ": what it said cannot be read: " + std::strerror(errno) + "\n");
  }
  if (job.signal != 0) {
    job.said += std::string(program) + ": " + job.channel->id +
                ": ended by a signal: " + strsignal(job.signal) + "\n";
  }
}

class ChannelRunner {
 public:
  ChannelRunner(const ChannelRun& run, const ChannelTask& task, const TakeJob& take)
      : run_(run), task_(task), take_(take), room_(static_cast<size_t>(run.jobs)) {}

  std::string run_all() {
    while (next_ < run_.channels.size() || !jobs_.empty()) {
      start_jobs();
      if (jobs_.empty() || !finish_front_job()) {
        return std::strerror(errno);
      }
      read_messages(jobs_.front(), run_.program);
      if (std::string error = take_(jobs_.front()); !error.empty()) {
        return error;
      }
      jobs_.pop_front();
    }
    return {};
  }

 private:
  /// Starts as many jobs as the limit and the machine allow.
  void start_jobs() {
    while (next_ < run_.channels.size() && jobs_.size() < room_) {
      std::optional<ChannelJob> job = start_job(*run_.channels[next_], Attempt::first);
      if (!job) {
        return;
      }
      jobs_.push_back(*std::move(job));
      ++next_;
    }
  }

  /// The process ends when this one ends. It closes its copies of the other jobs' descriptors.
  /// Nothing, with errno set, when the machine has no room for it.
  std::optional<ChannelJob> start_job(const StationChannel& channel, Attempt attempt) {
    ChannelJob job{&channel,
                   open_scratch_file(),
                   FileDescriptor(memfd_create("messages", MFD_CLOEXEC)),
                   -1,
                   {},
                   0,
                   {}};
    if (!job.file.is_open() || !job.messages.is_open()) {
      return std::nullopt;
    }
    const pid_t parent = getpid();
    job.process = fork();
    if (job.process == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      if (getppid() != parent || dup2(job.messages.get(), STDERR_FILENO) == -1) {
        _exit(EXIT_FAILURE);
      }
      jobs_.clear();  // this closes only this process's copies of the descriptors
      work_on_channel({run_.program, channel, run_.now, attempt}, task_, job.file.get());
    }
    return job.process > 0 ? std::optional(std::move(job)) : std::nullopt;
  }

  /// False, with errno set, when the run cannot go on.
  bool finish_front_job() {
    return await_end(jobs_.front()) &&
           (jobs_.front().end != ChannelEnd::lacking || repeat_front_job_alone());
  }

  /// It runs alone, so no other job uses what was short. False, with errno set, when it cannot be
  /// started.
  bool repeat_front_job_alone() {
    room_ = std::max<size_t>(1, room_ / 2);
    if (!std::ranges::all_of(jobs_, await_end)) {
      return false;
    }
    const StationChannel& channel = *jobs_.front().channel;
    jobs_.pop_front();
    std::optional<ChannelJob> job = start_job(channel, Attempt::last);
    if (!job) {
      return false;
    }
    jobs_.push_front(*std::move(job));
    return await_end(jobs_.front());
  }

  const ChannelRun& run_;
  const ChannelTask& task_;
  const TakeJob& take_;
  size_t room_;  ///< maximum number of jobs at the same time
  size_t next_ = 0;
  ChannelJobs jobs_;
};

}  // namespace

FileDescriptor open_scratch_file() {
  const char* folder = std::getenv("TMPDIR");
  return FileDescriptor(
      ::open(folder != nullptr ? folder : "/tmp", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
}

std::string run_channels(const ChannelRun& run, const ChannelTask& task, const TakeJob& take) {
  return ChannelRunner(run, task, take).run_all();
}
