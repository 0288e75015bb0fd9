#include "schedule/schedule_reader.hpp"

#include <fcntl.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/syntax/text.hpp"
#include "platform/system/activity.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/parse_time.hpp"
#include "schedule/default_slot.hpp"
#include "schedule/schedule_time.hpp"

namespace {

constexpr long half_a_second = 500000;  // microseconds

double number_of(std::string_view text) {
  return std::strtod(std::string(text).c_str(), nullptr);
}

}  // namespace

ScheduleBuilder::ScheduleBuilder(Schedule& schedule) : schedule_(schedule) {
  schedule.schedule.clear();
  schedule.type.clear();
  for (std::string& item : schedule.defaults) {
    item.clear();
  }
}

PartEffect ScheduleBuilder::add_part(const SchedulePart& part) {
  PartEffect effect;
  switch (part.kind) {
    case PartKind::type:
      if (const ScheduleType* type = find_schedule_type(part.name);
          type != nullptr && type->unit_length > 0) {
        effect.is_used = take_type(*type);
      }
      break;
    case PartKind::name_value:
      effect.is_used = part.name == global_default_name;
      if (effect.is_used) {
        schedule_.global_default = part.value;
      }
      break;
    case PartKind::section_begin:
      begin_section(part, effect);
      break;
    case PartKind::entry:
      add_entry(part, effect);
      break;
    case PartKind::section_end:
    case PartKind::cut_off:
      if (part.section == SectionKind::item) {
        store_item(effect);
      } else if (part.section == SectionKind::block) {
        store_block(effect);
      }
      break;
    case PartKind::comment:
    case PartKind::unusable_line:
    case PartKind::nested_begin:
    case PartKind::nested_end:
      break;
  }
  return effect;
}

void ScheduleBuilder::finish() {
  if (schedule_.type.empty()) {
    schedule_.type = default_schedule_type;
  }
  for (std::string& item : schedule_.defaults) {
    if (item.empty()) {
      item = schedule_.global_default;
    }
  }
  schedule_.unit_length = find_schedule_type(schedule_.type)->unit_length;
}

/// False when the file has said its type before.
bool ScheduleBuilder::take_type(const ScheduleType& type) {
  if (type_ != nullptr) {
    return false;
  }
  type_ = &type;
  schedule_.type = type.text;
  return true;
}

void ScheduleBuilder::begin_section(const SchedulePart& part, PartEffect& effect) {
  if (part.section == SectionKind::item) {
    item_ = {};
  } else if (part.section == SectionKind::block) {
    block_ = {};
  } else if (part.section == SectionKind::defaults) {
    const ScheduleType* type = find_schedule_type_of_section(part.name);
    effect.is_used = type != nullptr && take_type(*type);
  } else {
    print_diagnostic("WARNING: Unknown section '%.*s' in schedule file\n",
                     static_cast<int>(part.name.size()), part.name.data());
  }
}

void ScheduleBuilder::add_entry(const SchedulePart& part, PartEffect& effect) {
  if (part.section == SectionKind::defaults) {
    set_default(part, effect);
  } else if (part.key != nullptr && part.section == SectionKind::item) {
    set_item_value(part.key->key, part.value);
  } else if (part.key != nullptr) {
    set_block_value(part.key->key, part.value);
  }
}

void ScheduleBuilder::set_item_value(ScheduleKey key, std::string_view value) {
  switch (key) {
    case ScheduleKey::item:
      item_.item = value;
      break;
    case ScheduleKey::start:
      item_.start = read_time(value);
      break;
    case ScheduleKey::end:
      item_.end = read_time(value);
      break;
    case ScheduleKey::label:
      item_.label = value;
      break;
    case ScheduleKey::block:
      item_.block = value;
      break;
    case ScheduleKey::event_id:
      item_.event_id = value;
      break;
    case ScheduleKey::item_duration:
      item_.duration = number_of(value);
      break;
    case ScheduleKey::announce:
      break;
  }
}

void ScheduleBuilder::set_block_value(ScheduleKey key, std::string_view value) {
  if (key == ScheduleKey::block) {
    block_.block = value;
  } else if (key == ScheduleKey::announce) {
    block_.announce = value;
  } else if (const uint64_t time = read_time(value); time != no_time) {
    // A time that is not valid removes an item's time, but not a block's.
    (key == ScheduleKey::start ? block_.start : block_.end) = time;
  }
}

void ScheduleBuilder::set_default(const SchedulePart& part, PartEffect& effect) {
  // The schedule's type decides the form of the keys, even in a defaults section of another type.
  const std::optional<int> slot =
      part.clarifier.empty() ? default_slot_of_key(schedule_.type, part.name) : std::nullopt;
  if (slot) {
    schedule_.defaults[static_cast<size_t>(*slot)] = part.value;
    effect.is_used = true;
    effect.default_slot = *slot;
  }
}

void ScheduleBuilder::store_item(PartEffect& effect) {
  effect.start = item_.start;
  effect.end = item_.end;
  effect.is_used = !item_.item.empty() && as_signed(item_.start) >= 0 && as_signed(item_.end) >= 0;
  if (effect.is_used) {
    auto& items = schedule_.schedule;
    // Files are mostly in airing order, so a new item usually belongs after the last one.
    items.insert_or_assign(items.end(), effect.start, std::move(item_));
  }
}

void ScheduleBuilder::store_block(PartEffect& effect) {
  effect.start = block_.start;
  effect.end = block_.end;
  effect.is_used =
      as_signed(block_.start) >= 0 && as_signed(block_.end) >= 0 && !block_.block.empty();
  if (effect.is_used) {
    schedule_.blocks.insert_or_assign(effect.start, std::move(block_));
  }
}

/// Schedule seconds of a written time, rounded to the nearest second. no_time when the text is not
/// a valid time or the type has no unit.
uint64_t ScheduleBuilder::read_time(std::string_view text) {
  auto& [last_text, is_valid, broken_down, microseconds] = last_time_;
  if (text != last_text) {
    last_text = text;
    microseconds = 0;
    is_valid = schedule_parse_time(text, broken_down, microseconds);
  }
  if (!is_valid) {
    return no_time;
  }
  // For a type without unit, rounding up turns no_time into 0. The playout system does the same.
  return broken_down_to_schedule_seconds(type_, broken_down) +
         (microseconds >= half_a_second ? 1 : 0);
}

bool read_schedule_file(Schedule& schedule, const char* path, Links links) {
  FileDescriptor opened = open_regular_file(AT_FDCWD, path, links);
  if (!opened.is_open()) {
    return false;
  }
  const Activity activity("reading", path);
  ScheduleFile file(std::move(opened));
  ScheduleBuilder builder(schedule);
  SchedulePart part;
  while (file.next(part)) {
    builder.add_part(part);
  }
  if (const int error = file.error(); error != 0) {
    print_warning(Warning::cut_short, "WARNING: Schedule file %s, cannot be read further, %s\n",
                  path, std::strerror(error));
  }
  builder.finish();
  return true;
}
