#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <tuple>

#include "checks/checks.hpp"
#include "checks/position_text.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/written_time.hpp"

namespace {

constexpr int last_month = 12;

/// A date with slashes and without the year at its front: 5/3/2026 or 5/3.
std::optional<WrittenDate> slash_date(std::string_view text) {
  if (text.find('/') == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string lower = lower_case(strip_blanks(text));
  TimeText rest = lower;
  const auto date = take_date(rest);
  const bool is_year_first = lower.find('/') > 2 && !(date && date->weekday);
  return date && date->month && date->day && !is_year_first ? date : std::nullopt;
}

bool is_ambiguous(const WrittenDate& date) {
  return *date.month <= last_month && *date.day <= last_month && *date.month != *date.day;
}

/// What the dates of a file say about their order.
struct DateHabit {
  const WrittenValue* first_ambiguous = nullptr;
  WrittenDate first_date = {};
  bool is_month_first = false;    ///< a date shows it
  bool rises_month_first = true;  ///< so read, the starts follow each other
  bool rises_day_first = true;
  std::optional<WrittenDate> last = {};
};

void take_order(DateHabit& habit, const WrittenDate& date) {
  if (habit.last) {
    const auto month_first = [](const WrittenDate& d) { return std::tie(d.year, d.month, d.day); };
    const auto day_first = [](const WrittenDate& d) { return std::tie(d.year, d.day, d.month); };
    habit.rises_month_first =
        habit.rises_month_first && month_first(*habit.last) <= month_first(date);
    habit.rises_day_first = habit.rises_day_first && day_first(*habit.last) <= day_first(date);
  }
  habit.last = date;
}

void take_value(DateHabit& habit, const WrittenValue& value) {
  const auto date = slash_date(value.text);
  if (!date) {
    return;
  }
  habit.is_month_first =
      habit.is_month_first || (*date->month <= last_month && *date->day > last_month);
  if (is_ambiguous(*date) && habit.first_ambiguous == nullptr) {
    habit.first_ambiguous = &value;
    habit.first_date = *date;
  }
  if (value.key->key == ScheduleKey::start) {
    take_order(habit, *date);
  }
}

/// A programme over midnight shows the order: the two dates are neighbours.
void take_span(DateHabit& habit, const WrittenSection& section) {
  const auto start = slash_date(section.text_of(ScheduleKey::start));
  const auto end = slash_date(section.text_of(ScheduleKey::end));
  if (start && end && is_ambiguous(*start) && is_ambiguous(*end) && section.start < section.end &&
      section.end - section.start < seconds_per_day && start->day != end->day) {
    habit.is_month_first = true;
  }
}

std::string named(int month, int day) {
  return std::string(month_names.at(static_cast<size_t>(month) - 1)) + " " + std::to_string(day);
}

/// The date that has the numbers of this one in the other order, as a schedule writes it.
std::string other_date(const WrittenDate& date) {
  if (!date.year) {
    return named(*date.day, *date.month);
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", *date.year, *date.day, *date.month);
  return text.data();
}

}  // namespace

void check_month_first(const WrittenSchedule& written, FileFindings& found) {
  const DayName day_name = find_schedule_type(written.schedule.type)->day_name;
  if (day_name != DayName::day_of_year && day_name != DayName::date) {
    return;
  }
  DateHabit habit;
  for (const WrittenSections* sections : {&written.items, &written.blocks}) {
    for (const WrittenSection& section : sections->all) {
      for (const WrittenValue& value : section.values) {
        if (value.key->value_kind == ValueKind::time) {
          take_value(habit, value);
        }
      }
      take_span(habit, section);
    }
  }
  const bool is_month_first =
      habit.is_month_first || (habit.rises_month_first && !habit.rises_day_first);
  if (habit.first_ambiguous != nullptr && !is_month_first) {
    const WrittenDate& date = habit.first_date;
    found.add(FindingKind::month_first, habit.first_ambiguous->place,
              quoted(habit.first_ambiguous->text) + " is read as " + named(*date.month, *date.day) +
                  "; for " + named(*date.day, *date.month) + " write " + quoted(other_date(date)));
  }
}
