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

bool read_line(LineReader& file, std::string_view& text) {
  std::string_view piece;
  if (!file.read(piece)) {
    return false;
  }
  text = schedule_line_text(piece);
  return true;
}

/// Reads to the closing "}" of a section that does not nest and hands each name and value on.
template <typename Take>
void read_flat_section(LineReader& file, Take take) {
  std::string_view text;
  while (read_line(file, text) && !closes_section(text)) {
    if (const std::optional<NameValue> pair = divide_name_equ_value_pair(text)) {
      take(pair->name, pair->value);
    }
  }
}

/// Reads to the "}" that closes a section with sections inside and hands each other line on.
template <typename Take>
void read_nested_section(LineReader& file, Take take) {
  int depth = 1;
  std::string_view text;
  while (depth > 0 && read_line(file, text)) {
    if (closes_section(text)) {
      --depth;
    } else if (opens_section(text)) {
      ++depth;
    } else if (!text.empty()) {
      take(text);
    }
  }
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

void read_type_line(Schedule& schedule, std::string_view text) {
  const ScheduleType* type = find_schedule_type(text);
  if (schedule.type.empty() && type != nullptr && type->unit_length > 0) {
    schedule.type = type->text;
  }
}

void read_defaults_section(Schedule& schedule, LineReader& file, std::string_view name) {
  const ScheduleType* type = find_schedule_type_of_section(name);
  if (schedule.type.empty() && type != nullptr) {
    schedule.type = type->text;
  }
  read_nested_section(file, [&](std::string_view text) {
    const std::optional<DefaultsEntry> entry = schedule_defaults_name_equ_value_and_clarifier(text);
    if (!entry || !entry->clarifier.empty()) {
      return;
    }
    // The schedule's type gives the form of the keys, even in a section of another type.
    if (const std::optional<int> slot = default_slot_of_key(schedule.type, entry->name)) {
      schedule.defaults.set(static_cast<size_t>(*slot), entry->value);
    }
  });
}

void read_block_section(Schedule& schedule, LineReader& file) {
  ScheduleBlock block;
  const auto set_time = [&](uint64_t& time, std::string_view value) {
    const uint64_t schedule_seconds = read_time(schedule, value);
    if (schedule_seconds != no_time) {
      time = schedule_seconds;
    }
  };
  read_flat_section(file, [&](std::string_view name, std::string_view value) {
    if (name == "start") {
      set_time(block.start, value);
    } else if (name == "end") {
      set_time(block.end, value);
    } else if (name == "block") {
      block.block = value;
    } else if (name == "announce") {
      block.announce = value;
    }
  });
  if (as_signed(block.start) >= 0 && as_signed(block.end) >= 0 && !block.block.empty()) {
    const uint64_t start = block.start;
    schedule.blocks.insert_or_assign(start, std::move(block));
  }
}

void read_item_section(Schedule& schedule, LineReader& file) {
  ScheduleItem item;
  read_flat_section(file, [&](std::string_view name, std::string_view value) {
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
  });
  if (!item.item.empty() && as_signed(item.start) >= 0 && as_signed(item.end) >= 0) {
    const uint64_t start = item.start;
    auto& items = schedule.schedule;
    // Files are mostly in airing order, so a new item mostly belongs behind the last.
    items.insert_or_assign(items.end(), start, std::move(item));
  }
}

void skip_section(LineReader& file, std::string_view name) {
  print_diagnostic("WARNING: Unknown section '%.*s' in schedule file\n",
                   static_cast<int>(name.size()), name.data());
  read_nested_section(file, [](std::string_view) {});
}

void read_section(Schedule& schedule, LineReader& file, std::string_view name) {
  if (name.empty()) {
    read_item_section(schedule, file);
  } else if (name.starts_with("defaults,")) {
    read_defaults_section(schedule, file, name);
  } else if (name == "schedule block") {
    read_block_section(schedule, file);
  } else {
    skip_section(file, name);
  }
}

void read_name_value_line(Schedule& schedule, std::string_view text) {
  const std::optional<NameValue> pair =
      divide_name_equ_value_pair_compat_maybe_loose(text, text.front());
  if (pair && pair->name == "global default") {
    schedule.global_default = pair->value;
  }
}

/// Settles what the file may leave open once it is read.
void complete(Schedule& schedule) {
  if (schedule.type.empty()) {
    schedule.type = default_schedule_type;
  }
  schedule.defaults.rest = schedule.global_default;
  schedule.unit_length = find_schedule_type(schedule.type)->unit_length;
}

}  // namespace

bool read_schedule_file(Schedule& schedule, const char* path, Links links) {
  FileDescriptor opened = open_regular_file(AT_FDCWD, path, links);
  if (!opened.is_open()) {
    return false;
  }
  const Activity activity("reading", path);
  LineReader file(std::move(opened), longest_schedule_line);
  schedule.schedule.clear();
  schedule.type.clear();
  schedule.defaults.own.clear();
  std::string_view text;
  while (read_line(file, text)) {
    const ScheduleLine line = classify_schedule_line(text);
    switch (line.kind) {
      case ScheduleLineKind::comment:
        break;
      case ScheduleLineKind::type:
        read_type_line(schedule, line.text);
        break;
      case ScheduleLineKind::section:
        read_section(schedule, file, line.text);
        break;
      case ScheduleLineKind::name_value:
        read_name_value_line(schedule, line.text);
        break;
    }
  }
  if (file.error() != 0) {
    print_diagnostic("WARNING: Schedule file %s, cannot be read further, %s\n", path,
                     std::strerror(file.error()));
  }
  complete(schedule);
  return true;
}
