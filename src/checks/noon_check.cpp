#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <set>
#include <string>

#include "checks/checks.hpp"
#include "checks/line_fix.hpp"
#include "checks/position_text.hpp"
#include "checks/time_parts.hpp"

namespace {

constexpr uint64_t noon = seconds_per_day / 2;

/// "12 hours and 25 minutes".
std::string hours_and_minutes(uint64_t seconds) {
  const uint64_t minutes = seconds / 60 % 60;
  std::string text = std::to_string(seconds / 3600) + " hours";
  if (minutes > 0) {
    text += " and " + std::to_string(minutes) + (minutes == 1 ? " minute" : " minutes");
  }
  return text;
}

/// Whether the time is written as "12:00 am", or "12:10 a" and the like.
bool is_written_12_am(std::string_view text) {
  const auto parts = text.find("12") != std::string_view::npos ? parts_of_time(text) : std::nullopt;
  return parts && parts->clock.hour == 0 && parts->clock_text.starts_with("12");
}

/// "12:00 am" with a "p" in place of the "a".
std::string with_pm(std::string_view text) {
  std::string pm(text);
  const size_t letter = pm.find_last_of("aA");
  pm[letter] = pm[letter] == 'A' ? 'P' : 'p';
  return pm;
}

/// What the time is, and what was probably meant.
std::string question_about(std::string_view text, uint64_t length) {
  const ClockTime clock = parts_of_time(text).value_or(TimeParts()).clock;
  const bool is_midnight = clock.minute == 0 && clock.second == 0;
  std::array<char, 32> minutes{};
  std::snprintf(minutes.data(), minutes.size(), ":%02d", clock.minute);
  const std::string is = is_midnight ? "midnight" : std::string("00") + minutes.data();
  const std::string meant = is_midnight ? "noon" : std::string("12") + minutes.data();
  return quoted(text) + " is " + is + ", and the programme lasts " + hours_and_minutes(length) +
         "; for " + meant + " write " + quoted(with_pm(text));
}

bool is_written_pm(std::string_view text) {
  const auto parts = parts_of_time(text);
  return parts && parts->clock_text.find('p') != std::string::npos;
}

/// The ends of the items that do not end before they start.
std::set<uint64_t> ends_of(const WrittenSections& items) {
  std::set<uint64_t> ends;
  for (const WrittenSection& item : items.all) {
    if (as_signed(item.start) < as_signed(item.end)) {
      ends.insert(item.end);
    }
  }
  return ends;
}

/// Whether the item ends in the afternoon of its first day, or later. From noon on, it would last
/// at most half a day.
bool lasts_from_noon(const WrittenSection& item, const WrittenSections& items) {
  if (item.is_broken || as_signed(item.end) <= as_signed(item.start + noon) ||
      item.end - item.start > seconds_per_day) {
    return false;
  }
  const auto next = items.by_start.upper_bound(item.start);
  const bool has_others_inside = next != items.by_start.end() && next->first < item.end;
  return is_written_12_am(item.text_of(ScheduleKey::start)) &&
         (has_others_inside || is_written_pm(item.text_of(ScheduleKey::end)));
}

}  // namespace

void check_noon(WrittenSchedule& written, FileFindings& found) {
  const uint64_t unit_length = written.schedule.unit_length;
  std::optional<std::set<uint64_t>> ends;
  for (const auto& [start, number] : written.items.by_start) {
    WrittenSection& item = written.items.all[number];
    if (!lasts_from_noon(item, written.items)) {
      continue;
    }
    if (!ends) {
      ends = ends_of(written.items);
    }
    const uint64_t midnight = start == 0 ? unit_length : start;
    if (ends->contains(midnight) || ends->contains(midnight - 1)) {
      continue;  // the programme before it ends at midnight, or at 23:59:59
    }
    const WrittenValue& value = *item.value_of(ScheduleKey::start);
    item.is_noon_meant = true;
    found.add(FindingKind::noon, value.place, question_about(value.text, item.end - item.start), {},
              {line_with(written, value, with_pm(value.text))});
  }
}
