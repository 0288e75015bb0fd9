#include "grab/guide.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <string>

#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/calendar.hpp"
#include "writers/append.hpp"
#include "writers/xml_escape.hpp"

namespace {

std::string head_of(const std::vector<GuideChannel>& channels) {
  std::string out =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE tv SYSTEM \"xmltv.dtd\">\n\n"
      "<tv generator-info-name=\"tv_grab_nv8x\">\n";
  for (const GuideChannel& channel : channels) {
    append(out, "  <channel id=\"");
    append_xml_escaped(out, channel.id);
    append(out, "\">\n    <display-name");
    if (!channel.language.empty()) {
      append(out, " lang=\"");
      append_xml_escaped(out, clean_text(channel.language));
      append(out, "\"");
    }
    append(out, ">");
    append_xml_escaped(out, clean_text(channel.name));
    append(out, "</display-name>\n");
    if (!channel.icon.empty()) {
      append(out, "    <icon src=\"");
      append_xml_escaped(out, clean_text(channel.icon));
      append(out, "\"/>\n");
    }
    append(out, "  </channel>\n");
  }
  return out;
}

constexpr const char* foot = "</tv>\n";

/// A file that is gone as soon as it is closed.
FileDescriptor open_scratch_file() {
  const char* folder = std::getenv("TMPDIR");
  return FileDescriptor(
      ::open(folder != nullptr ? folder : "/tmp", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
}

[[noreturn]] void fail_channel(const GuideChannel& channel, const std::string& reason) {
  std::fprintf(stderr, "tv_grab_nv8x: %s: %s\n", channel.id.c_str(), reason.c_str());
  _exit(EXIT_FAILURE);
}

/// The channel that this process works on, for what fails below.
const GuideChannel* channel_at_work = nullptr;

void report_for_channel(const char* message) {
  std::fprintf(stderr, "tv_grab_nv8x: %s: %s\n", channel_at_work->id.c_str(), message);
}

/// The life of a channel's process: writes its programmes to the file, behind their number.
[[noreturn]] void work_on_channel(const GuideChannel& channel, const GuideSpan& span, time_t now,
                                  int fd) {
  channel_at_work = &channel;
  set_failure_reporter(report_for_channel);
  setenv("TZ", channel.zone.c_str(), 1);
  tzset();
  if (!settle_local_zone()) {
    fail_channel(channel, std::string("the zone cannot be read: ") + std::strerror(errno));
  }
  if (chdir(channel.folder.c_str()) != 0) {
    fail_channel(channel, "'" + channel.folder + "': " + std::strerror(errno));
  }
  std::string error;
  const auto programmes = programmes_of_channel(channel, span, now, error);
  if (!programmes) {
    fail_channel(channel, error);
  }
  const uint64_t count = programmes->size();
  std::array<char, sizeof(count)> head{};
  std::memcpy(head.data(), &count, sizeof(count));
  std::string out(head.data(), head.size());
  const std::string language = clean_text(channel.language);
  constexpr size_t large = 1024UL * 1024;
  for (const Programme& programme : *programmes) {
    append_programme(out, programme, channel.id, language);
    if (out.size() > large) {
      if (!write_fully(fd, out)) {
        fail_channel(channel, std::strerror(errno));
      }
      out.clear();
    }
  }
  if (!write_fully(fd, out)) {
    fail_channel(channel, std::strerror(errno));
  }
  _exit(EXIT_SUCCESS);
}

/// A channel that is worked on.
struct Job {
  const GuideChannel* channel;
  FileDescriptor file;
  pid_t process;
};

std::optional<Job> start_job(const GuideChannel& channel, const GuideRun& run, time_t now) {
  Job job{&channel, open_scratch_file(), -1};
  if (!job.file.is_open()) {
    return std::nullopt;
  }
  job.process = fork();
  if (job.process == 0) {
    work_on_channel(channel, run.span, now, job.file.get());
  }
  return job.process > 0 ? std::optional(std::move(job)) : std::nullopt;
}

/// Waits for the channel's process; whether it did its work.
bool end_job(const Job& job) {
  int status = 0;
  while (waitpid(job.process, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFSIGNALED(status)) {
    std::fprintf(stderr, "tv_grab_nv8x: %s: ended by a signal: %s\n", job.channel->id.c_str(),
                 strsignal(WTERMSIG(status)));
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

/// Copies what the process wrote; the number of its programmes. Nothing when that fails.
std::optional<uint64_t> copy_programmes(int from, int to) {
  uint64_t count = 0;
  std::array<char, sizeof(count)> head{};
  if (lseek(from, 0, SEEK_SET) != 0 || read_fully(from, head.data(), head.size()) != head.size()) {
    return std::nullopt;
  }
  std::memcpy(&count, head.data(), sizeof(count));
  std::string buffer(64UL * 1024, '\0');
  for (;;) {
    const auto length = read_some(from, buffer.data(), buffer.size());
    if (!length || !write_fully(to, std::string_view(buffer).substr(0, *length))) {
      return std::nullopt;
    }
    if (*length == 0) {
      return count;
    }
  }
}

}  // namespace

bool write_channels(int fd, const std::vector<GuideChannel>& channels) {
  return write_fully(fd, head_of(channels) + foot);
}

std::optional<GuideResult> write_guide(int fd, const std::vector<GuideChannel>& channels,
                                       const GuideRun& run, time_t now) {
  if (!write_fully(fd, head_of(channels))) {
    return std::nullopt;
  }
  GuideResult result;
  std::deque<Job> jobs;
  size_t next = 0;
  while (next < channels.size() || !jobs.empty()) {
    while (next < channels.size() && jobs.size() < static_cast<size_t>(run.jobs)) {
      std::optional<Job> job = start_job(channels[next], run, now);
      if (!job && jobs.empty()) {
        return std::nullopt;
      }
      if (!job) {
        break;  // the machine has no room for more at a time
      }
      jobs.push_back(*std::move(job));
      ++next;
    }
    const Job job = std::move(jobs.front());
    jobs.pop_front();
    if (!end_job(job)) {
      ++result.failed;
      continue;
    }
    const std::optional<uint64_t> count = copy_programmes(job.file.get(), fd);
    if (!count) {
      return std::nullopt;
    }
    result.programmes += *count;
    if (!run.quiet) {
      std::fprintf(stderr, "%s: %llu programmes\n", job.channel->id.c_str(),
                   static_cast<unsigned long long>(*count));
    }
  }
  return write_fully(fd, foot) ? std::optional(result) : std::nullopt;
}
