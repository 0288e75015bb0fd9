#include "platform/syntax/schedule_file.hpp"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/syntax/text.hpp"

namespace {

constexpr std::array<SectionKey, 7> item_keys = {{
    {ScheduleKey::item, "item", true, ValueKind::text},
    {ScheduleKey::start, "start", true, ValueKind::time},
    {ScheduleKey::end, "end", true, ValueKind::time},
    {ScheduleKey::label, "label", false, ValueKind::text},
    {ScheduleKey::block, "block", false, ValueKind::text},
    {ScheduleKey::event_id, "event id", false, ValueKind::text},
    {ScheduleKey::item_duration, "item duration", false, ValueKind::number},
}};

constexpr std::array<SectionKey, 4> block_keys = {{
    {ScheduleKey::block, "block", true, ValueKind::text},
    {ScheduleKey::start, "start", true, ValueKind::time},
    {ScheduleKey::end, "end", true, ValueKind::time},
    {ScheduleKey::announce, "announce", false, ValueKind::text},
}};

void set_name_and_value(SchedulePart& part, std::string_view name, std::string_view value) {
  part.name = name;
  part.value = value;
  part.value_column = part.column + (value.data() - part.text.data());
}

/// A line of an item's or a block's section.
void read_flat_section_line(SchedulePart& part) {
  if (closes_section(part.text)) {
    part.kind = PartKind::section_end;
  } else if (part.text.empty() || part.text.front() == '#') {
    part.kind = PartKind::comment;  // no key begins with "#"
  } else if (const auto pair = divide_name_equ_value_pair(part.text)) {
    part.kind = PartKind::entry;
    set_name_and_value(part, pair->name, pair->value);
    part.key = find_section_key(part.section, pair->name);
  } else {
    part.kind = PartKind::unusable_line;
  }
}

}  // namespace

SectionKind section_kind_of_name(std::string_view name) {
  if (name.empty()) {
    return SectionKind::item;
  }
  if (name == block_section_name) {
    return SectionKind::block;
  }
  return name.starts_with(defaults_section_prefix) ? SectionKind::defaults : SectionKind::unknown;
}

std::span<const SectionKey> section_keys(SectionKind kind) {
  if (kind == SectionKind::item) {
    return item_keys;
  }
  return kind == SectionKind::block ? block_keys : std::span<const SectionKey>();
}

const SectionKey* find_section_key(SectionKind kind, std::string_view name) {
  if (name.empty()) {
    return nullptr;
  }
  for (const SectionKey& key : section_keys(kind)) {
    if (key.name.front() == name.front() && key.name == name) {
      return &key;
    }
  }
  return nullptr;
}

bool ScheduleFile::next(SchedulePart& part) {
  std::string_view piece;
  const int64_t last_line = lines_.line();
  if (!lines_.read(piece)) {
    part = {.kind = PartKind::cut_off,
            .section = section_,
            .section_line = section_line_,
            .line = lines_.line()};
    leave_section();
    return part.section != SectionKind::none;
  }
  chomp(piece);
  begin_part(part, piece);
  part.is_rest = part.line == last_line;
  switch (section_) {
    case SectionKind::none:
      read_top_level_line(part);
      break;
    case SectionKind::item:
    case SectionKind::block:
      read_flat_section_line(part);
      break;
    case SectionKind::defaults:
    case SectionKind::unknown:
      read_nested_section_line(part);
      break;
  }
  if (part.kind == PartKind::section_end) {
    leave_section();
  }
  return true;
}

/// The members are set one by one. Assigning a new part would take much of the time for a line.
void ScheduleFile::begin_part(SchedulePart& part, std::string_view piece) const {
  part.section = section_;
  part.section_line = section_line_;
  part.line = lines_.line();
  part.text = skip_blanks(piece);
  part.column = part.text.data() - piece.data() + 1;
  part.name = {};
  part.value = {};
  part.clarifier = {};
  part.value_column = 0;
  part.key = nullptr;
}

void ScheduleFile::read_top_level_line(SchedulePart& part) {
  const std::string_view text = part.text;
  if (text.empty() || text.front() == '#') {
    part.kind = PartKind::comment;
  } else if (text.front() == '*') {
    part.kind = PartKind::type;
    part.name = text.substr(1);
  } else if (opens_section(text)) {
    part.kind = PartKind::section_begin;
    // The name ends before the spaces in front of the brace. A tab there is part of the name.
    part.name = text.substr(0, text.substr(0, text.size() - 1).find_last_not_of(' ') + 1);
    section_ = part.section = section_kind_of_name(part.name);
    section_line_ = part.section_line = part.line;
    depth_ = 1;
  } else {
    part.kind = PartKind::name_value;
    if (const auto pair = divide_name_equ_value_pair_compat_maybe_loose(text, text.front())) {
      set_name_and_value(part, pair->name, pair->value);
    }
  }
}

void ScheduleFile::read_nested_section_line(SchedulePart& part) {
  const std::string_view text = part.text;
  if (closes_section(text)) {
    --depth_;
    part.kind = depth_ == 0 ? PartKind::section_end : PartKind::nested_end;
  } else if (opens_section(text)) {
    ++depth_;
    part.kind = PartKind::nested_begin;
  } else if (text.empty() || text.front() == '#') {
    part.kind = PartKind::comment;
  } else {
    part.kind = PartKind::unusable_line;
    const auto entry = section_ == SectionKind::defaults
                           ? schedule_defaults_name_equ_value_and_clarifier(text)
                           : std::nullopt;
    if (entry) {
      part.kind = PartKind::entry;
      set_name_and_value(part, entry->name, entry->value);
      part.clarifier = entry->clarifier;
    }
  }
}

void ScheduleFile::leave_section() {
  section_ = SectionKind::none;
  section_line_ = 0;
}

bool opens_section(std::string_view text) {
  return text.ends_with('{') && text.find('=') == std::string_view::npos;
}

bool closes_section(std::string_view text) {
  return text.starts_with('}');
}
