#include "publish/publish_run.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "platform/syntax/text.hpp"
#include "publish/channel_pages.hpp"
#include "publish/station_guide.hpp"
#include "publish/station_index.hpp"
#include "station/channel_jobs.hpp"
#include "station/channel_report.hpp"
#include "station/xmltv_guide.hpp"

namespace {

bool has_format(const StationChannel& channel, std::string_view format) {
  return std::ranges::find(channel.formats, format) != channel.formats.end();
}

/// A web folder, with the guide of its channels. There is no guide if none of them has the format.
struct Site {
  Site(const std::string& path, bool is_dry_run) : folder(path, is_dry_run), index(folder) {}

  WebFolder folder;
  StationIndex index;
  std::unique_ptr<StationGuide> guide;
  std::string guide_error;
};

/// The folder without links, so that one folder is opened once whatever its names are.
std::string real_path(const std::string& path) {
  std::error_code error;
  const std::string real = std::filesystem::canonical(path, error).string();
  return error ? path : real;
}

/// The reason in what a process said last, without the program's name and the channel's id.
std::string last_reason(const ChannelJob& job) {
  std::string_view said = job.said;
  chomp(said);
  said.remove_prefix(said.rfind('\n') + 1);
  const std::string front = std::string(publisher) + ": " + job.channel->id + ": ";
  said.remove_prefix(said.starts_with(front) ? front.size() : 0);
  return std::string(said);
}

class PublishRun {
 public:
  PublishRun(const PublishCommand& command, const std::vector<StationChannel>& all,
             const std::vector<const StationChannel*>& asked, time_t now)
      : command_(command),
        all_(all),
        asked_(asked),
        asked_set_(asked.begin(), asked.end()),
        now_(now),
        progress_(asked.size()) {
    for (const StationChannel& channel : all) {
      std::string& path = real_paths_[channel.web_folder];
      path = path.empty() ? real_path(channel.web_folder) : path;
    }
  }

  std::vector<PageRow> publish_all(std::string& error) {
    open_sites();
    ChannelRun run{publisher, {}, command_.jobs, now_};
    for (const StationChannel* channel : asked_) {
      const std::string& complaint = site_of(*channel).folder.error();
      if (complaint.empty()) {
        run.channels.push_back(channel);
      } else {
        print_line(channel->id + ": failed: " + complaint);
        take_all(*channel, Outcome::failed, complaint, std::nullopt);
      }
    }
    error = run_channels(
        run, [&](const ChannelWork& work, int file) { make_pages(work, file, asked_of(work)); },
        [&](const ChannelJob& job) { return take(job); });
    if (error.empty()) {
      finish_sites(error);
    }
    progress_.finish();
    return std::move(rows_);
  }

 private:
  /// A process works in its channel's folder, where a relative path means another folder.
  const std::string& real_path_of(const StationChannel& channel) const {
    return real_paths_.at(channel.web_folder);
  }

  void open_sites() {
    // In one order, so that two runs do not wait for each other.
    std::map<std::string, std::vector<const StationChannel*>> channels;  // by web folder
    for (const StationChannel* channel : asked_) {
      channels[real_path_of(*channel)].push_back(channel);
    }
    for (const auto& [path, channels_of_site] : channels) {
      Site& site =
          *sites_.emplace(path, std::make_unique<Site>(path, command_.dry_run)).first->second;
      if (!site.folder.error().empty()) {
        continue;
      }
      if (site.folder.had_damaged_state()) {
        print_line("'" + path + "/" + state_file + "' is damaged; it is made anew");
      }
      prepare_site(site, channels_of_site);
    }
  }

  void prepare_site(Site& site, const std::vector<const StationChannel*>& channels) {
    std::set<std::string> pages = {station_guide_page, station_index_page, state_file};
    bool has_guide = false;
    for (const StationChannel* channel : channels) {
      for (const std::string& format : channel->formats) {
        pages.insert(page_name(channel->id, format));
      }
      has_guide = has_guide || has_format(*channel, xmltv_format);
    }
    if (!command_.dry_run) {
      site.folder.remove_old_drafts(pages);
    }
    if (has_guide) {
      site.guide = std::make_unique<StationGuide>(site.folder, now_);
    }
  }

  Site& site_of(const StationChannel& channel) { return *sites_.at(real_path_of(channel)); }

  PagesAsked asked_of(const ChannelWork& work) {
    const PublishState& state = site_of(work.channel).folder.state();
    const auto last = state.counts.find(work.channel.id);
    return {command_.force,
            last != state.counts.end() ? std::optional(last->second) : std::nullopt};
  }

  void print_line(const std::string& text) {
    progress_.print(std::string(publisher) + ": " + text + "\n");
  }

  void add_rows(std::vector<PageRow> rows) {
    progress_.count(rows);
    std::ranges::move(rows, std::back_inserter(rows_));
  }

  /// None of the channel's pages is published.
  void take_all(const StationChannel& channel, Outcome outcome, const std::string& reason,
                std::optional<uint64_t> items) {
    site_of(channel).index.set_now(channel, {});
    std::vector<PageRow> rows;
    for (const std::string& format : channel.formats) {
      rows.push_back({channel.id, format, outcome, reason, items, 0});
    }
    add_rows(std::move(rows));
  }

  /// Takes what a channel's process made. Only what is wrong with the whole run is returned.
  std::string take(const ChannelJob& job) {
    const StationChannel& channel = *job.channel;
    add_others_before(&channel);
    if (!job.said.empty()) {
      progress_.print(job.said);
    }
    const auto report =
        job.end == ChannelEnd::done ? read_channel_report(job.file.get()) : std::nullopt;
    if (!report) {
      const bool is_told = job.end != ChannelEnd::done && !job.said.empty();
      const std::string reason = is_told ? last_reason(job) : "its process left no whole report";
      if (!is_told) {
        print_line(channel.id + ": failed: " + reason);
      }
      keep_programmes(channel);
      take_all(channel, Outcome::failed, reason, std::nullopt);
    } else if (!report->refusals.empty() && !command_.force) {
      print_line(channel.id + ": refused: " + report->refusals.front());
      keep_programmes(channel);
      take_all(channel, Outcome::refused, report->refusals.front(), report->items);
    } else {
      for (const std::string& refusal : report->refusals) {
        print_line(channel.id + ": --force goes past this: " + refusal);
      }
      take_pages(channel, job.file.get(), *report);
    }
    return {};
  }

  void take_pages(const StationChannel& channel, int file, const ChannelReport& report) {
    std::vector<PageRow> rows;
    for (const ChannelPart& part : report.parts) {
      if (part.name == now_part) {
        site_of(channel).index.set_now(channel, text_of_part(file, part).value_or(""));
      } else {
        rows.push_back(take_page(channel, file, part));
      }
    }
    if (report.items &&
        !std::ranges::all_of(rows, [](const PageRow& row) { return is_bad(row.outcome); })) {
      site_of(channel).folder.state().counts[channel.id] = {*report.items, now_};
    }
    add_rows(std::move(rows));
  }

  PageRow take_page(const StationChannel& channel, int file, const ChannelPart& part) {
    constexpr double million = 1e6;
    const std::string page = page_name(channel.id, part.name);
    PageRow row{channel.id, part.name,  Outcome::refused,
                part.fault, part.count, static_cast<double>(part.microseconds) / million};
    if (part.fault.empty()) {
      const auto begin = std::chrono::steady_clock::now();
      const bool is_guide = part.name == xmltv_format;
      const auto write = [&](int to) {
        return (!is_guide || write_fully(to, guide_head({&channel}))) &&
               copy_part(file, part, to) && (!is_guide || write_fully(to, guide_foot));
      };
      row.outcome = site_of(channel).folder.publish(page, write, row.reason);
      row.seconds +=
          std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
      if (is_guide) {
        add_programmes(channel, file, part);
      }
    }
    print_if_bad(page, row);
    return row;
  }

  void print_if_bad(const std::string& page, const PageRow& row) {
    if (is_bad(row.outcome)) {
      print_line(page + (row.outcome == Outcome::refused ? ": refused: " : ": failed: ") +
                 row.reason);
    }
  }

  // The station's guides.

  void add_programmes(const StationChannel& channel, int file, const ChannelPart& part) {
    Site& site = site_of(channel);
    if (!site.guide->add_new(channel, file, part)) {
      site.guide_error = std::strerror(errno);
    }
  }

  void keep_programmes(const StationChannel& channel) {
    Site& site = site_of(channel);
    if (has_format(channel, xmltv_format) && !site.guide->add_old(channel, true)) {
      site.guide_error = std::strerror(errno);
    }
  }

  /// Adds the channels that stand before this one in the configuration and that the run is not
  /// about. All of the rest for a null pointer.
  void add_others_before(const StationChannel* channel) {
    for (; next_ < all_.size() && &all_[next_] != channel; ++next_) {
      const StationChannel& other = all_[next_];
      const auto site = sites_.find(real_path_of(other));
      if (!asked_set_.contains(&other) && site != sites_.end() && site->second->guide &&
          has_format(other, xmltv_format) && !site->second->guide->add_old(other, false)) {
        site->second->guide_error = std::strerror(errno);
      }
    }
    ++next_;
  }

  /// Publishes the guides and writes the states.
  void finish_sites(std::string& error) {
    add_others_before(nullptr);
    std::map<std::string, std::vector<const StationChannel*>> channels;  // by web folder
    for (const StationChannel& channel : all_) {
      channels[real_path_of(channel)].push_back(&channel);
    }
    for (const auto& [path, site] : sites_) {
      if (!site->folder.error().empty()) {
        continue;
      }
      if (site->guide) {
        publish_guide(*site);
      }
      publish_index(channels.at(path), *site);
      std::string reason;
      if (!site->folder.finish(reason)) {
        error = "'";
        error.append(path).append("/").append(state_file);
        error.append("', the counts for the next run: ").append(reason);
      }
    }
  }

  void publish_guide(Site& site) {
    if (const uint64_t unreadable = site.guide->unreadable(); unreadable > 0) {
      print_line(std::string(station_guide_page) +
                 ": programmes of the old guide that are not well-formed XML, left out: " +
                 std::to_string(unreadable));
    }
    rows_.push_back(site.guide->publish(site.guide_error));
    print_if_bad(station_guide_page, rows_.back());
  }

  void publish_index(const std::vector<const StationChannel*>& channels, Site& site) {
    rows_.push_back(site.index.publish(channels));
    print_if_bad(station_index_page, rows_.back());
  }

  const PublishCommand& command_;
  const std::vector<StationChannel>& all_;
  const std::vector<const StationChannel*>& asked_;
  const std::set<const StationChannel*> asked_set_;
  time_t now_;
  Progress progress_;
  std::map<std::string, std::string> real_paths_;       ///< of web folders as configured
  std::map<std::string, std::unique_ptr<Site>> sites_;  ///< by path without links
  size_t next_ = 0;                                     ///< in `all_`: not yet in a guide
  std::vector<PageRow> rows_;
};

}  // namespace

std::vector<PageRow> publish_channels(const PublishCommand& command,
                                      const std::vector<StationChannel>& all,
                                      const std::vector<const StationChannel*>& asked, time_t now,
                                      std::string& error) {
  return PublishRun(command, all, asked, now).publish_all(error);
}
