#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "checks/line_checks.hpp"
#include "checks/line_fix.hpp"
#include "checks/position_text.hpp"
#include "checks/span_advice.hpp"
#include "checks/time_advice.hpp"
#include "checks/time_guess.hpp"
#include "platform/syntax/text.hpp"

namespace {

const ScheduleType& type_of(const LineChecks& checks) {
  const ScheduleType* known = find_schedule_type(checks.written.schedule.type);
  return known != nullptr ? *known : *find_schedule_type(default_schedule_type);
}

Place place_of_advice(const WrittenValue& value, const TimeAdvice& advice) {
  return {value.place.line, value.place.column + static_cast<int64_t>(advice.offset)};
}

bool is_end(const WrittenValue& value) {
  return value.key->key == ScheduleKey::end;
}

/// How to write a clock of the next day, such as "25:30". Empty if that is not clear.
SpanAdvice advise_on_next_day(const LineChecks& checks, const WrittenSection& section,
                              const WrittenValue& value, uint64_t position) {
  const ScheduleType& type = type_of(checks);
  if (is_end(value) && section.start < type.unit_length) {
    return advise_on_end(checks.written, section, position, type);
  }
  const auto is_of_next_day = [](const TimeAdvice& advice) { return advice.position.has_value(); };
  if (is_end(value) &&
      std::ranges::none_of(advise_on_time(section.text_of(ScheduleKey::start), type),
                           is_of_next_day)) {
    return {};
  }
  const std::string text = written_position(position % type.unit_length, type);
  return {"write " + quoted(text), {line_with(checks.written, value, text)}};
}

std::vector<LineFix> fix_for(const LineChecks& checks, const WrittenSection& section,
                             const WrittenValue& value, const TimeAdvice& advice) {
  if (advice.time.empty()) {
    return {};
  }
  const bool has_two = !advice.end_time.empty();
  LineFix fix =
      line_with(checks.written, value, has_two && is_end(value) ? advice.end_time : advice.time);
  if (has_two && !is_end(value) && section.value_of(ScheduleKey::end) == nullptr) {
    fix.text += "\n  end = " + advice.end_time;
  }
  if (advice.kind == FindingKind::comment_behind_value) {
    fix.text.insert(0, "  " + std::string(value.text.substr(advice.offset)) + "\n");
  }
  return {std::move(fix)};
}

bool is_hour_of_day(std::string_view number) {
  return is_hour(number) && number != "0" && number != "00" &&
         (number.size() == 1 || number <= "24");
}

/// The clock with the day that the other time of the section gives.
std::string with_day_of_other(const BareNumber& number, const std::string& clock,
                              const ScheduleType& type) {
  const std::optional<uint64_t> other =
      is_bare_number(number.other) ? std::nullopt : position_of(number.other, type);
  if (!other || type.day_name == DayName::only_day) {
    return clock;
  }
  const uint64_t same_day =
      *other - *other % seconds_per_day + position_of(clock, type).value_or(0) % seconds_per_day;
  if (is_end(number.value)) {
    const uint64_t end = same_day > *other ? same_day : a_day_later(same_day, type);
    return end <= type.unit_length ? text_of_end(end, type) : clock;
  }
  if (same_day < *other) {
    return written_position(same_day, type);
  }
  return same_day >= seconds_per_day ? written_position(a_day_earlier(same_day, type), type)
                                     : clock;
}

/// Whether the numbers of the file are parts of a day. "0.30" alone could be a clock too.
bool has_parts_of_day(const LineChecks& checks) {
  return std::ranges::any_of(checks.bare_numbers, [](const BareNumber& number) {
    return is_part_of_day(number.value.text) && !is_dotted_clock(number.value.text);
  });
}

/// Whether the number is an hour, and as seconds would not fit to the clock of the other time.
bool is_meant_as_hour(const BareNumber& number, const ScheduleType& type) {
  if (number.other.empty() || is_bare_number(number.other) || !is_hour_of_day(number.value.text)) {
    return false;
  }
  const uint64_t other = position_of(number.other, type).value_or(0);
  const auto hour = static_cast<uint64_t>(number_at_front(number.value.text));
  return is_end(number.value) ? hour <= other : hour * 3600 < other;
}

/// The clock that the number was probably meant as. Empty for seconds.
std::string meant_clock(const LineChecks& checks, const BareNumber& number, bool has_clocks,
                        bool has_parts) {
  const std::string_view text = number.value.text;
  if (has_parts && is_part_of_day(text)) {
    return clock_of_part(text);
  }
  const bool is_clock = has_clocks ? looks_like_clock(text) : is_dotted_clock(text);
  if (is_clock || is_meant_as_hour(number, type_of(checks))) {
    return clock_of(text);
  }
  return {};
}

}  // namespace

void check_time(LineChecks& checks, const WrittenSection& section, const WrittenValue& value) {
  const ScheduleType& type = type_of(checks);
  if (is_bare_number(value.text)) {
    const WrittenValue* other =
        section.value_of(is_end(value) ? ScheduleKey::start : ScheduleKey::end);
    checks.bare_numbers.push_back({value, other != nullptr ? other->text : std::string_view()});
    if (std::strtoull(std::string(value.text).c_str(), nullptr, 10) > type.unit_length) {
      checks.found.add(FindingKind::out_of_range, value.place,
                       quoted(value.text) + " is out of range: the schedule has " +
                           std::to_string(type.unit_length) + " seconds");
    }
    return;
  }
  checks.has_clocks = true;
  if (value.text.starts_with('=')) {
    return;  // the sign has its finding
  }
  for (const TimeAdvice& advice : advise_on_time(value.text, type)) {
    const Place place = place_of_advice(value, advice);
    if (advice.position) {
      const SpanAdvice span = advise_on_next_day(checks, section, value, *advice.position);
      const std::string next_day = span.text.empty() ? "" : "; " + span.text;
      checks.found.add(advice.kind, place, advice.text + next_day, {}, span.fix);
    } else {
      checks.found.add(advice.kind, place, advice.text, {},
                       fix_for(checks, section, value, advice));
    }
  }
}

/// What a clock alone lacks in a schedule of that type, if the other time of the section has none
/// either: "the weekday and ". Empty if it lacks nothing.
std::string missing_day(const BareNumber& number, const ScheduleType& type) {
  if (type.day_name == DayName::only_day ||
      !(number.other.empty() || is_bare_number(number.other))) {
    return "";
  }
  const bool is_weekly = type.day_name == DayName::weekday;
  return is_weekly ? "the weekday and "
                   : (type.day_name == DayName::day_of_month ? "the day and " : "the date and ");
}

/// A plain number means schedule seconds, "12.48" as well as "3605.20". It was probably meant as a
/// clock if the file writes clocks elsewhere, or if every plain number could be a clock; "1800"
/// only in the first case, and "22" if the other time of its section is a clock.
void finish_time_check(LineChecks& checks) {
  const bool has_parts = has_parts_of_day(checks);
  const bool are_seconds =
      !checks.has_clocks && std::ranges::any_of(checks.bare_numbers, [&](const BareNumber& number) {
        return number.value.text != "0" && meant_clock(checks, number, false, has_parts).empty();
      });
  if (are_seconds) {
    return;
  }
  const ScheduleType& type = type_of(checks);
  for (const BareNumber& number : checks.bare_numbers) {
    const std::string clock = meant_clock(checks, number, checks.has_clocks, has_parts);
    if (clock.empty()) {
      continue;
    }
    const WrittenValue& value = number.value;
    const std::string time = with_day_of_other(number, clock, type);
    const std::string day = missing_day(number, type);
    std::vector<LineFix> fix;
    if (day.empty()) {
      fix.push_back(line_with(checks.written, value, time));
    }
    const bool is_hour_alone = is_hour_of_day(value.text);
    checks.written.doubtful_times.insert(value.place.line);
    checks.found.add(FindingKind::bare_number, value.place,
                     quoted(value.text) + " is read as " +
                         (is_hour_alone ? std::string(value.text) + " seconds" : "seconds") +
                         " from the beginning of the unit; write " + day + quoted(time),
                     {}, std::move(fix));
  }
}
