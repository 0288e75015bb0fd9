#include "grab/guide.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "metadata/place_schedule.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "schedule/watchdog.hpp"
#include "station/channel_jobs.hpp"
#include "station/channel_report.hpp"
#include "station/channel_schedule.hpp"
#include "station/guards.hpp"
#include "station/xmltv_guide.hpp"

namespace {

constexpr const char* program = "tv_grab_nv8x";

std::vector<const StationChannel*> pointers_to(const std::vector<StationChannel>& channels) {
  std::vector<const StationChannel*> pointers;
  pointers.reserve(channels.size());
  for (const StationChannel& channel : channels) {
    pointers.push_back(&channel);
  }
  return pointers;
}

/// What the guards say of the programmes of a channel. As many programmes as there must be items
/// need no counting.
std::string complaint_about_number(const std::vector<Programme>& programmes,
                                   const StationChannel& channel, const std::string& path,
                                   time_t now) {
  if (programmes.size() >= channel.min_items) {
    return {};
  }
  const auto items = count_announced_at(path, now);
  cancel_watchdog();
  return complaint_about_items(items.value_or(0), channel.min_items);
}

/// The life of a channel's process: its programmes, and what the guards say of them.
void make_programmes(const ChannelWork& work, int file, const GuideSpan& span,
                     const OldGuide& old_guide) {
  const StationChannel& channel = work.channel;
  if (const std::string complaint = complaint_about_zone(channel); !complaint.empty()) {
    fail_channel(complaint);  // the times would be wrong
  }
  std::string error;
  const std::optional<std::string> path = schedule_path_of(channel, error);
  if (!path) {
    fail_channel(error);
  }
  const auto before = fingerprint_of_file(*path);
  const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
  const auto schedule = std::make_unique<Schedule>();
  if (!read_channel_schedule(*schedule, *path, error)) {
    fail_channel(error);
  }
  const GuideTimes times = times_of_span(span, work.now);
  const std::vector<Programme> programmes =
      programmes_of_schedule(*schedule, *path, times, channel.previous);
  ChannelReport report;
  for (const std::string& complaint :
       {complaint_of_checker(*path, channel.check, {"xmltv"}, work.now),
        complaint_about_number(programmes, channel, *path, work.now),
        complaint_about_programmes(programmes, old_guide, channel, times, work.now),
        complaint_about_change(*path, before)}) {
    if (!complaint.empty()) {
      report.refusals.push_back(complaint);
    }
  }
  begin_channel_file(file);
  ChannelPart part = begin_channel_part(file, "programmes");
  part.count = programmes.size();
  write_programmes(programmes, channel, file);
  end_channel_part(file, part);
  report.parts.push_back(part);
  write_channel_report(file, report);
}

/// Copies the programmes of the channels in their order.
class GuideWriter {
 public:
  GuideWriter(int fd, const GuideRun& run, const OldGuide& old_guide, time_t now)
      : fd_(fd), run_(run), old_guide_(old_guide), now_(now) {}

  /// Returns the error if the whole guide fails, otherwise an empty text.
  std::string take(const ChannelJob& job) {
    std::fwrite(job.said.data(), 1, job.said.size(), stderr);
    if (job.end == ChannelEnd::lacking) {
      return "the machine is short of something that '" + job.channel->id + "' takes";
    }
    if (job.end != ChannelEnd::done) {
      return take_old_programmes(*job.channel);
    }
    const std::optional<ChannelReport> report = read_channel_report(job.file.get());
    if (!report || report->parts.size() != 1) {
      return std::strerror(report ? EIO : errno);
    }
    if (report->refusals.empty()) {
      return take_programmes(job, report->parts.front());
    }
    print_refusal(*job.channel, report->refusals.front());
    return old_guide_.is_there() ? take_old_programmes(*job.channel)
                                 : take_poor_programmes(job, report->parts.front());
  }

  const GuideResult& result() const { return result_; }

 private:
  static void print_refusal(const StationChannel& channel, const std::string& reason) {
    std::fprintf(stderr, "%s: %s: %s\n", program, channel.id.c_str(), reason.c_str());
  }

  std::string take_programmes(const ChannelJob& job, const ChannelPart& part) {
    if (!copy_part(job.file.get(), part, fd_)) {
      return std::strerror(errno);
    }
    tell_number(*job.channel, part.count, "programmes");
    return {};
  }

  /// There is no guide that could be kept.
  std::string take_poor_programmes(const ChannelJob& job, const ChannelPart& part) {
    ++result_.lacking;
    return take_programmes(job, part);
  }

  std::string take_old_programmes(const StationChannel& channel) {
    ++result_.lacking;
    const auto old = old_guide_.copy_ahead(channel.id, now_, fd_);
    if (!old) {
      return std::strerror(errno);
    }
    if (old->unreadable > 0) {
      std::fprintf(stderr,
                   "%s: %s: programmes of the old guide that are not well-formed XML, left out: "
                   "%llu\n",
                   program, channel.id.c_str(), static_cast<unsigned long long>(old->unreadable));
    }
    if (old_guide_.is_there()) {
      tell_number(channel, old->copied, "programmes of the old guide");
    }
    return {};
  }

  void tell_number(const StationChannel& channel, uint64_t count, const char* what) {
    result_.programmes += count;
    if (!run_.quiet) {
      std::fprintf(stderr, "%s: %llu %s\n", channel.id.c_str(),
                   static_cast<unsigned long long>(count), what);
    }
  }

  int fd_;
  const GuideRun& run_;
  const OldGuide& old_guide_;
  time_t now_;
  GuideResult result_;
};

}  // namespace

bool write_channels(int fd, const std::vector<StationChannel>& channels) {
  return write_fully(fd, guide_head(pointers_to(channels)) + guide_foot);
}

std::optional<GuideResult> write_guide(int fd, const std::vector<StationChannel>& channels,
                                       const GuideRun& run, const OldGuide& old_guide, time_t now,
                                       std::string& error) {
  const ChannelRun channel_run{program, pointers_to(channels), run.jobs, now};
  if (!write_fully(fd, guide_head(channel_run.channels))) {
    error = std::strerror(errno);
    return std::nullopt;
  }
  GuideWriter writer(fd, run, old_guide, now);
  error = run_channels(
      channel_run,
      [&](const ChannelWork& work, int file) { make_programmes(work, file, run.span, old_guide); },
      [&](const ChannelJob& job) { return writer.take(job); });
  if (error.empty() && !write_fully(fd, guide_foot)) {
    error = std::strerror(errno);
  }
  return error.empty() ? std::optional(writer.result()) : std::nullopt;
}
