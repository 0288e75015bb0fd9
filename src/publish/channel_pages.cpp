#include "publish/channel_pages.hpp"

#include <array>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "metadata/place_schedule.hpp"
#include "platform/system/messages.hpp"
#include "platform/system/output.hpp"
#include "publish/station_index.hpp"
#include "schedule/run_options.hpp"
#include "schedule/watchdog.hpp"
#include "station/channel_programmes.hpp"
#include "station/channel_report.hpp"
#include "station/channel_schedule.hpp"
#include "station/guards.hpp"
#include "station/now_and_next.hpp"
#include "station/well_formed.hpp"
#include "station/xmltv_guide.hpp"
#include "writers/formats.hpp"

namespace {

struct PageFormat {
  std::string_view name;
  const char* page_end;  ///< of the page's name, behind the channel's id
  const char* label;     ///< of a link to it
  void (*print)(Schedule& schedule, time_t window_start, time_t window_end);  ///< null: the guide
};

constexpr std::array<PageFormat, 6> formats = {{
    {"html", ".html", "Programme guide", print_to_html},
    {"xml", ".xml", "XML", print_to_xml},
    {"json", ".json", "JSON", print_to_json},
    {"rovi", "-rovi.csv", "Rovi listing", print_to_rovi},
    {"gracenote", "-gracenote.csv", "Gracenote listing", print_to_gracenote},
    {xmltv_format, ".xmltv", "XMLTV guide for media centres", nullptr},
}};

const PageFormat& format_of(std::string_view name) {
  size_t i = 0;
  while (formats.at(i).name != name) {
    ++i;
  }
  return formats.at(i);
}

uint64_t microseconds_since(std::chrono::steady_clock::time_point begin) {
  const auto time = std::chrono::steady_clock::now() - begin;
  return static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(time).count());
}

/// Makes the pages of one channel, step by step.
class PageMaker {
 public:
  PageMaker(const ChannelWork& work, int file, const PagesAsked& asked)
      : work_(work), channel_(work.channel), file_(file), asked_(asked) {}

  void load() {
    std::string error;
    const auto path = schedule_path_of(channel_, error);
    if (!path) {
      fail_channel(error);
    }
    path_ = *path;
    before_ = fingerprint_of_file(path_);
    if (!read_channel_schedule(*schedule_, path_, error)) {
      fail_channel(error);
    }
  }

  /// The guards that count nothing. False when they end the work.
  bool pass_first_guards() {
    return pass(complaint_about_zone(channel_)) &&
           pass(complaint_of_checker(path_, channel_.check, channel_.formats, work_.now));
  }

  /// Makes the programmes of the guide, and places the schedule in the unit of the present.
  void place() {
    arm_watchdog();
    for (const std::string& format : channel_.formats) {
      if (format == xmltv_format) {
        const ScheduleItems prepared_items = schedule_->schedule;
        programmes_ = programmes_of_schedule(*schedule_, path_, times_of_span({}, work_.now),
                                             channel_.previous);
        schedule_->schedule = prepared_items;
        arm_watchdog();
      }
    }
    place_schedule(*schedule_, work_.now, path_);
  }

  /// The guards that count items. False when they end the work.
  bool pass_counts() {
    arm_watchdog();
    const uint64_t items = count_announced(*schedule_);
    cancel_watchdog();
    report_.items = items;
    return pass(complaint_about_items(items, channel_.min_items)) && pass(share_complaint(items));
  }

  void make_all() {
    for (const std::string& format : channel_.formats) {
      make_page(format_of(format));
    }
    make_now();
    pass(complaint_about_change(path_, before_));
  }

  void write_report() { write_channel_report(file_, report_); }

 private:
  /// Keeps what a guard found. False when the work must end.
  bool pass(const std::string& complaint) {
    if (!complaint.empty()) {
      report_.refusals.push_back(complaint);
    }
    return complaint.empty() || asked_.force;
  }

  /// A month that ends may take most of an endless schedule with it. So a smaller count is also
  /// compared with what the files now say of the time of the last publication.
  std::string share_complaint(uint64_t items) const {
    if (!asked_.last) {
      return {};
    }
    std::string complaint = complaint_about_share(items, asked_.last->items, channel_.min_percent,
                                                  "announced items", "last published");
    if (!complaint.empty()) {
      const auto then = count_announced_at(path_, asked_.last->time);
      cancel_watchdog();
      if (then &&
          complaint_about_share(*then, asked_.last->items, channel_.min_percent, "", "").empty()) {
        return {};
      }
    }
    return complaint;
  }

  void make_page(const PageFormat& format) {
    const auto begin = std::chrono::steady_clock::now();
    ChannelPart part = begin_channel_part(file_, std::string(format.name));
    arm_watchdog();
    if (format.print != nullptr) {
      part.count = report_.items.value_or(0);
      format.print(*schedule_, schedule_->unit_start, schedule_->unit_end);
      finish_output();
    } else {
      part.count = programmes_.size();
      write_programmes(programmes_, channel_, file_);
    }
    end_channel_part(file_, part);
    // The text of a guide is well-formed whatever it says.
    part.fault = format.print != nullptr
                     ? complaint_about_document(part.name, file_, part.offset, part.bytes)
                     : std::string();
    cancel_watchdog();
    part.microseconds = microseconds_since(begin);
    report_.parts.push_back(std::move(part));
  }

  void make_now() {
    arm_watchdog();
    ChannelPart part = begin_channel_part(file_, now_part);
    write_channel_file(file_,
                       now_html(now_and_next(*schedule_, path_, work_.now), channel_, work_.now));
    end_channel_part(file_, part);
    cancel_watchdog();
    report_.parts.push_back(std::move(part));
  }

  const ChannelWork& work_;
  const StationChannel& channel_;
  int file_;
  const PagesAsked& asked_;
  std::string path_;
  std::optional<uint64_t> before_;  ///< fingerprint of the schedule file
  std::unique_ptr<Schedule> schedule_ = std::make_unique<Schedule>();
  std::vector<Programme> programmes_;
  ChannelReport report_;
};

}  // namespace

std::string page_name(const std::string& channel, const std::string& format) {
  return channel + format_of(format).page_end;
}

std::string page_label(std::string_view format) {
  return format_of(format).label;
}

void make_pages(const ChannelWork& work, int file, const PagesAsked& asked) {
  run_options.report_time = static_cast<uint64_t>(work.now);
  run_options.station_id = work.channel.station_id;
  const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
  begin_channel_file(file);
  send_output_to(file);
  PageMaker maker(work, file, asked);
  maker.load();
  if (maker.pass_first_guards()) {
    maker.place();
    if (maker.pass_counts()) {
      maker.make_all();
    }
  }
  maker.write_report();
}
