#include "grab/guide.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

#include "grab/channel_jobs.hpp"
#include "grab/programme.hpp"
#include "platform/system/file.hpp"
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

/// Runs the jobs of the channels and copies their programmes in the channels' order.
class GuideWriter {
 public:
  GuideWriter(int fd, const std::vector<GuideChannel>& channels, const GuideRun& run, time_t now)
      : fd_(fd), channels_(channels), run_(run), now_(now), room_(static_cast<size_t>(run.jobs)) {}

  /// Returns the error if the whole guide fails, otherwise an empty text.
  std::string write_all_programmes() {
    while (next_ < channels_.size() || !jobs_.empty()) {
      start_jobs();
      if (jobs_.empty()) {
        return std::strerror(errno);
      }
      if (std::string error = take_front_job(); !error.empty()) {
        return error;
      }
      jobs_.pop_front();
    }
    return {};
  }

  const GuideResult& result() const { return result_; }

 private:
  ChannelWork work_on(const GuideChannel& channel, Attempt attempt) const {
    return {channel, run_.span, now_, attempt};
  }

  /// Starts as many jobs as the limit and the machine allow.
  void start_jobs() {
    while (next_ < channels_.size() && jobs_.size() < room_) {
      std::optional<ChannelJob> job = start_job(work_on(channels_[next_], Attempt::first), jobs_);
      if (!job) {
        return;
      }
      jobs_.push_back(*std::move(job));
      ++next_;
    }
  }

  std::string take_front_job() {
    if (!await_end(jobs_.front())) {
      return std::strerror(errno);
    }
    if (jobs_.front().end == ChannelEnd::lacking && !repeat_front_job_alone()) {
      return std::strerror(errno);
    }
    const ChannelJob& job = jobs_.front();
    switch (*job.end) {
      case ChannelEnd::done:
        return take_programmes(job);
      case ChannelEnd::lacking:
        return "the machine is short of something that '" + job.channel->id + "' takes";
      default:
        ++result_.failed;
        return {};
    }
  }

  /// It runs alone, so no other job uses what was short. False, with errno set, when it cannot be
  /// started.
  bool repeat_front_job_alone() {
    room_ = std::max<size_t>(1, room_ / 2);
    if (!std::ranges::all_of(jobs_, await_end)) {
      return false;
    }
    const GuideChannel& channel = *jobs_.front().channel;
    jobs_.pop_front();
    std::optional<ChannelJob> job = start_job(work_on(channel, Attempt::last), jobs_);
    if (!job) {
      return false;
    }
    jobs_.push_front(*std::move(job));
    return await_end(jobs_.front());
  }

  std::string take_programmes(const ChannelJob& job) {
    const std::optional<uint64_t> count = copy_programmes(job.file.get(), fd_);
    if (!count) {
      return std::strerror(errno);
    }
    result_.programmes += *count;
    if (!run_.quiet) {
      std::fprintf(stderr, "%s: %llu programmes\n", job.channel->id.c_str(),
                   static_cast<unsigned long long>(*count));
    }
    return {};
  }

  int fd_;
  const std::vector<GuideChannel>& channels_;
  const GuideRun& run_;
  time_t now_;
  size_t room_;  ///< maximum number of jobs at the same time
  size_t next_ = 0;
  ChannelJobs jobs_;
  GuideResult result_;
};

}  // namespace

bool write_channels(int fd, const std::vector<GuideChannel>& channels) {
  return write_fully(fd, head_of(channels) + foot);
}

std::optional<GuideResult> write_guide(int fd, const std::vector<GuideChannel>& channels,
                                       const GuideRun& run, time_t now, std::string& error) {
  if (!write_fully(fd, head_of(channels))) {
    error = std::strerror(errno);
    return std::nullopt;
  }
  GuideWriter writer(fd, channels, run, now);
  error = writer.write_all_programmes();
  if (error.empty() && !write_fully(fd, foot)) {
    error = std::strerror(errno);
  }
  return error.empty() ? std::optional(writer.result()) : std::nullopt;
}
