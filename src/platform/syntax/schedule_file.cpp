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

/// Sets name and value if the line could be split.
void set_name_and_value(SchedulePart& part, const std::optional<NameValue>& pair) {
  if (pair) {
    part.name = pair->name;
    part.value = pair->value;
    part.value_column = part.column + (part.value.data() - part.text.data());
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
  const bool is_line = lines_.read(piece);
  begin_part(part);
  if (!is_line) {
    part.kind = PartKind::cut_off;
    leave_section();
    return part.section != SectionKind::none;
  }
  chomp(piece);
  const std::string_view text = skip_blanks(piece);
  part.text = text;
  part.column = text.data() - piece.data() + 1;
  part.is_rest = part.line == last_line;
  switch (section_) {
    case SectionKind::none:
      read_top_level_line(part, text);
      break;
    case SectionKind::item:
    case SectionKind::block:
      read_flat_section_line(part, text);
      break;
    case SectionKind::defaults:
    case SectionKind::unknown:
      read_nested_section_line(part, text);
      break;
  }
  return true;
}

/// The members are set one by one. Assigning a new part would take much of the time for a line.
void ScheduleFile::begin_part(SchedulePart& part) const {
  part.section = section_;
  part.section_line = section_line_;
  part.line = lines_.line();
  part.column = 0;
  part.is_rest = false;
  part.text = {};
  part.name = {};
  part.value = {};
  part.clarifier = {};
  part.value_column = 0;
  part.key = nullptr;
}

void ScheduleFile::read_top_level_line(SchedulePart& part, std::string_view text) {
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
    set_name_and_value(part, divide_name_equ_value_pair_compat_maybe_loose(text, text.front()));
  }
}

void ScheduleFile::read_flat_section_line(SchedulePart& part, std::string_view text) {
  if (closes_section(text)) {
    part.kind = PartKind::section_end;
    leave_section();
    return;
  }
  if (text.empty() || text.front() == '#') {
    part.kind = PartKind::comment;  // no key begins with "#"
    return;
  }
  set_name_and_value(part, divide_name_equ_value_pair(text));
  part.kind = part.value.empty() ? PartKind::unusable_line : PartKind::entry;
  part.key = find_section_key(section_, part.name);
}

void ScheduleFile::read_nested_section_line(SchedulePart& part, std::string_view text) {
  if (closes_section(text)) {
    --depth_;
    part.kind = PartKind::nested_end;
    if (depth_ == 0) {
      part.kind = PartKind::section_end;
      leave_section();
    }
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
      set_name_and_value(part, NameValue{entry->name, entry->value});
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
