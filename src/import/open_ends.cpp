#include "import/open_ends.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <string>
#include <utility>

#include "platform/syntax/text.hpp"

namespace {

/// Where a section ends. An end in the next unit counts from that unit's beginning.
struct SectionEnd {
  uint64_t at = 0;
  bool is_next_unit = false;
};

/// The position `seconds` after the beginning of that day, over the days of the calendar. Midnight
/// is hour 24 of the day before.
std::optional<SectionEnd> end_after(uint32_t day, uint64_t seconds, const DayRules& rules) {
  uint64_t count = seconds / seconds_per_day;
  uint64_t second = seconds % seconds_per_day;
  if (second == 0 && count > 0) {
    --count;
    second = seconds_per_day;
  }
  SectionEnd end;
  const auto last_day =
      day_of_unit_after(day, static_cast<uint32_t>(count), rules, end.is_next_unit);
  if (!last_day) {
    return std::nullopt;
  }
  end.at = uint64_t{*last_day} * seconds_per_day + second;
  return end;
}

std::optional<SectionEnd> end_of_row(const RowTimes& times, uint32_t day, const DayRules& rules) {
  const uint64_t start = uint64_t{day} * seconds_per_day + times.start;
  if (times.end_at) {
    return SectionEnd{*times.end_at, *times.end_at < start};
  }
  if (times.length) {
    return end_after(day, uint64_t{times.start} + *times.length, rules);
  }
  const auto clock = static_cast<uint64_t>(times.end_clock.value_or(0));
  return end_after(day, clock < times.start ? clock + seconds_per_day : clock, rules);
}

void add_section(int64_t row, uint64_t start, const SectionEnd& end, const ScheduleType& type,
                 std::vector<MadeSection>& sections) {
  if (!end.is_next_unit) {
    sections.push_back({row, start, end.at});
    return;
  }
  sections.push_back({row, start, type.unit_length});
  if (end.at > 0) {
    sections.push_back({row, 0, end.at});
  }
}

std::set<uint64_t> starts_of(const std::vector<MadeSection>& open,
                             const std::vector<MadeSection>& items) {
  std::set<uint64_t> starts;
  for (const auto* sections : {&open, &items}) {
    for (const MadeSection& section : *sections) {
      starts.insert(section.start);
    }
  }
  return starts;
}

}  // namespace

bool place_section(const TableRules& rules, int64_t row, const RowTimes& times, uint32_t day,
                   std::vector<MadeSection>& sections, std::vector<Finding>& findings) {
  const uint64_t start = uint64_t{day} * seconds_per_day + times.start;
  const std::optional<SectionEnd> end = end_of_row(times, day, rules.days);
  const TableColumn column = times.length ? TableColumn::duration : TableColumn::end;
  const auto add = [&](FindingKind kind, std::string text) {
    findings.push_back({kind, rules.place(row, column), std::move(text), {}});
    return false;
  };
  const ScheduleType& type = *rules.days.type;
  if (!end || (end->is_next_unit && type.day_name == DayName::date)) {
    return add(FindingKind::outside_unit, "the end lies outside the years 2020 to 2034");
  }
  if (!end->is_next_unit && end->at == start) {
    return add(FindingKind::no_length,
               "the row ends at the same time as it starts; for a whole day, write the end with "
               "its day");
  }
  if (start >= type.unit_length || end->at > type.unit_length) {
    return add(FindingKind::outside_unit,
               "the row lies outside a " + std::string(type.text) + " schedule");
  }
  if (times.end_at && end->is_next_unit && type.unit_length - start + end->at > seconds_per_day) {
    return add(FindingKind::reversed, "the row ends before it starts");
  }
  add_section(row, start, *end, type, sections);
  return true;
}

void close_open_ends(std::vector<MadeSection>& open, const TableRules& rules,
                     std::vector<MadeSection>& items, std::vector<Finding>& findings) {
  if (open.empty()) {
    return;
  }
  const ScheduleType& type = *rules.days.type;
  const std::set<uint64_t> starts = starts_of(open, items);
  int64_t refused_row = 0;
  for (const MadeSection& item : open) {
    const auto day = static_cast<uint32_t>(item.start / seconds_per_day);
    const auto latest = end_after(day, item.start % seconds_per_day + seconds_per_day, rules.days);
    auto next = starts.upper_bound(item.start);
    const bool is_next_unit = next == starts.end();
    next = is_next_unit ? starts.begin() : next;
    SectionEnd end{*next, is_next_unit};
    const bool is_soon =
        latest &&
        (end.is_next_unit == latest->is_next_unit ? end.at <= latest->at : latest->is_next_unit);
    if (!is_soon || (is_next_unit && type.day_name == DayName::date)) {
      if (item.row != refused_row) {
        findings.push_back({FindingKind::no_end,
                            rules.place(item.row, TableColumn::end),
                            "the row has no end, and nothing starts in the day after it",
                            {}});
      }
      refused_row = item.row;
      continue;
    }
    const auto midnight = end_after(day, seconds_per_day * 2, rules.days);
    const uint64_t end_of_day = (uint64_t{day} + 1) * seconds_per_day;
    const bool is_at_midnight =
        midnight && *next == midnight->at - seconds_per_day && !is_next_unit;
    end.at = is_at_midnight ? end_of_day : end.at;
    add_section(item.row, item.start, end, type, items);
  }
  open.clear();
}

std::string item_duration_text(const TableRules& rules, int64_t row) {
  const std::string_view text = strip_blanks(rules.cell(row, TableColumn::item_duration));
  const int unit = rules.header.item_duration_unit;
  const auto number = read_cell_number(text);
  const bool is_part_of_day = rules.numbers.are_raw && number && *number < 1 && *number > 0;
  if (number && unit <= 1 && !is_part_of_day && text.find(',') == std::string_view::npos) {
    return std::string(text);
  }
  std::string problem;
  const int bare_unit = unit != 0 || is_part_of_day ? unit : 1;
  const auto seconds = read_cell_duration(text, bare_unit, rules.numbers, problem);
  if (!seconds) {
    return {};
  }
  std::array<char, 64> out{};
  const auto end = std::to_chars(out.data(), out.data() + out.size(), *seconds);
  return {out.data(), end.ptr};
}
