#include "schedule/schedule_reader.hpp"

#include <fcntl.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/syntax/schedule_lines.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/activity.hpp"
#include "platform/system/line_reader.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/parse_time.hpp"
#include "schedule/default_slot.hpp"
#include "schedule/schedule_time.hpp"

namespace {

constexpr long half_a_second = 500000;  // microseconds

/// The file that is read, and the record it is read into.
struct ReadFile {
  Schedule& schedule;
  LineReader lines;

  /// The next line without blanks in front; false at the end of the file.
  bool read_line(std::string_view& text) {
    std::string_view piece;
    if (!lines.read(piece)) {
      return false;
    }
    text = schedule_line_text(piece);
    return true;
  }

  void tell(Deed deed, std::string_view text = {}, uint64_t start = 0, uint64_t end = 0,
            uint64_t other = 0) const {
    if (schedule.observe) {
      schedule.observe({deed, lines.line(), text, start, end, other});
    }
  }
};

/// Reads to the closing "}" of a section that does not nest and hands each name and value on.
template <typename Take>
void read_flat_section(ReadFile& file, Deed line_deed, Take take) {
  std::string_view text;
  while (file.read_line(text)) {
    if (closes_section(text)) {
      file.tell(Deed::ended_section, text);
      return;
    }
    file.tell(line_deed, text);
    if (const std::optional<NameValue> pair = divide_name_equ_value_pair(text)) {
      take(pair->name, pair->value);
    }
  }
  file.tell(Deed::cut_off_section);
}

/// Reads to the "}" that closes a section with sections inside and hands each other line on.
template <typename Take>
void read_nested_section(ReadFile& file, Take take) {
  int depth = 1;
  std::string_view text;
  while (file.read_line(text)) {
    if (closes_section(text)) {
      --depth;
      file.tell(depth > 0 ? Deed::ended_nested : Deed::ended_section, text);
      if (depth == 0) {
        return;
      }
    } else if (opens_section(text)) {
      ++depth;
      file.tell(Deed::began_nested, text);
    } else if (!text.empty()) {
      take(text);
    }
  }
  file.tell(Deed::cut_off_section);
}

/// Schedule seconds of a time as written, rounded to the nearest second; no_time when the text is
/// no time or the type has no unit.
uint64_t read_time(const Schedule& schedule, std::string_view text) {
  std::tm broken_down{};
  long microseconds = 0;
  if (!schedule_parse_time(text, broken_down, microseconds)) {
    return no_time;
  }
  // Rounding applies to a missing unit's no_time as well, which then becomes 0: playout does so.
  return broken_down_to_schedule_seconds(find_schedule_type(schedule.type), broken_down) +
         (microseconds >= half_a_second ? 1 : 0);
}

void read_type_line(ReadFile& file, std::string_view text) {
  const ScheduleType* type = find_schedule_type(text);
  if (!file.schedule.type.empty() || type == nullptr || type->unit_length == 0) {
    file.tell(Deed::passed_type, text);
    return;
  }
  file.schedule.type = type->text;
  file.tell(Deed::took_type, text);
}

void read_defaults_section(ReadFile& file, std::string_view name) {
  Schedule& schedule = file.schedule;
  const ScheduleType* type = find_schedule_type_of_section(name);
  if (schedule.type.empty() && type != nullptr) {
    schedule.type = type->text;
  }
  read_nested_section(file, [&](std::string_view text) {
    const std::optional<DefaultsEntry> entry = schedule_defaults_name_equ_value_and_clarifier(text);
    // The schedule's type gives the form of the keys, even in a section of another type.
    const std::optional<int> slot = entry && entry->clarifier.empty()
                                        ? default_slot_of_key(schedule.type, entry->name)
                                        : std::nullopt;
    if (!slot) {
      file.tell(Deed::passed_default, text);
      return;
    }
    schedule.defaults[static_cast<size_t>(*slot)] = entry->value;
    file.tell(Deed::took_default, text, static_cast<uint64_t>(*slot));
  });
}

void read_block_section(ReadFile& file) {
  Schedule& schedule = file.schedule;
  ScheduleBlock block;
  const auto set_time = [&](uint64_t& time, std::string_view value) {
    const uint64_t schedule_seconds = read_time(schedule, value);
    if (schedule_seconds != no_time) {
      time = schedule_seconds;
    }
  };
  const auto take = [&](std::string_view name, std::string_view value) {
    if (name == "start") {
      set_time(block.start, value);
    } else if (name == "end") {
      set_time(block.end, value);
    } else if (name == "block") {
      block.block = value;
    } else if (name == "announce") {
      block.announce = value;
    }
  };
  read_flat_section(file, Deed::read_block_line, take);
  const bool is_whole =
      as_signed(block.start) >= 0 && as_signed(block.end) >= 0 && !block.block.empty();
  file.tell(is_whole ? Deed::stored_block : Deed::dropped_block, block.block, block.start,
            block.end);
  if (is_whole) {
    const uint64_t start = block.start;
    schedule.blocks.insert_or_assign(start, std::move(block));
  }
}

void read_item_section(ReadFile& file) {
  Schedule& schedule = file.schedule;
  ScheduleItem item;
  const auto take = [&](std::string_view name, std::string_view value) {
    if (name == "item") {
      item.item = value;
    } else if (name == "start") {
      item.start = read_time(schedule, value);
    } else if (name == "end") {
      item.end = read_time(schedule, value);
    } else if (name == "label") {
      item.label = value;
    } else if (name == "block") {
      item.block = value;
    } else if (name == "event id") {
      item.event_id = value;
    } else if (name == "item duration") {
      item.duration = std::strtod(std::string(value).c_str(), nullptr);
    }
  };
  read_flat_section(file, Deed::read_item_line, take);
  const bool is_whole =
      !item.item.empty() && as_signed(item.start) >= 0 && as_signed(item.end) >= 0;
  file.tell(is_whole ? Deed::stored_item : Deed::dropped_item, item.item, item.start, item.end);
  if (is_whole) {
    const uint64_t start = item.start;
    auto& items = schedule.schedule;
    // Files are mostly in airing order, so a new item mostly belongs behind the last.
    items.insert_or_assign(items.end(), start, std::move(item));
  }
}

void skip_section(ReadFile& file, std::string_view name) {
  print_diagnostic("WARNING: Unknown section '%.*s' in schedule file\n",
                   static_cast<int>(name.size()), name.data());
  read_nested_section(file, [&](std::string_view text) { file.tell(Deed::passed_line, text); });
}

void read_section(ReadFile& file, std::string_view name) {
  file.tell(Deed::began_section, name);
  if (name.empty()) {
    read_item_section(file);
  } else if (name.starts_with("defaults,")) {
    read_defaults_section(file, name);
  } else if (name == "schedule block") {
    read_block_section(file);
  } else {
    skip_section(file, name);
  }
}

void read_name_value_line(ReadFile& file, std::string_view text) {
  const std::optional<NameValue> pair =
      divide_name_equ_value_pair_compat_maybe_loose(text, text.front());
  const bool is_default = pair && pair->name == "global default";
  if (is_default) {
    file.schedule.global_default = pair->value;
  }
  file.tell(is_default ? Deed::took_global_default : Deed::passed_name, text);
}

/// Settles what the file may leave open once it is read.
void complete(Schedule& schedule) {
  if (schedule.type.empty()) {
    schedule.type = default_schedule_type;
  }
  for (std::string& item : schedule.defaults) {
    if (item.empty()) {
      item = schedule.global_default;
    }
  }
  schedule.unit_length = find_schedule_type(schedule.type)->unit_length;
}

void read_lines(Schedule& schedule, LineReader lines, const char* path) {
  const Activity activity("reading", path);
  ReadFile file{schedule, std::move(lines)};
  schedule.schedule.clear();
  schedule.type.clear();
  for (std::string& item : schedule.defaults) {
    item.clear();
  }
  std::string_view text;
  while (file.read_line(text)) {
    const ScheduleLine line = classify_schedule_line(text);
    switch (line.kind) {
      case ScheduleLineKind::comment:
        file.tell(Deed::passed_comment, text);
        break;
      case ScheduleLineKind::type:
        read_type_line(file, line.text);
        break;
      case ScheduleLineKind::section:
        read_section(file, line.text);
        break;
      case ScheduleLineKind::name_value:
        read_name_value_line(file, line.text);
        break;
    }
  }
  if (const int error = file.lines.error(); error != 0) {
    print_warning(Warning::cut_short, "WARNING: Schedule file %s, cannot be read further, %s\n",
                  path, std::strerror(error));
  }
  complete(schedule);
}

}  // namespace

bool read_schedule_file(Schedule& schedule, const char* path, Links links) {
  FileDescriptor opened = open_regular_file(AT_FDCWD, path, links);
  if (!opened.is_open()) {
    return false;
  }
  read_lines(schedule, LineReader(std::move(opened), longest_schedule_line), path);
  return true;
}

void read_schedule_content(Schedule& schedule, std::string_view content, const char* name) {
  read_lines(schedule, LineReader(content, longest_schedule_line), name);
}
