#include "checks/span_advice.hpp"

#include <ctime>

#include "checks/line_fix.hpp"
#include "checks/position_text.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/civil_date.hpp"
#include "platform/time/parse_time.hpp"
#include "platform/time/written_time.hpp"
#include "schedule/schedule_time.hpp"

namespace {

constexpr uint64_t half_a_day = seconds_per_day / 2;
/// No advice makes a longer programme: it would hardly be what was meant.
constexpr uint64_t longest_advised = 16 * 3600;

/// The largest part of a day's name that the type counts and that is not written.
enum class Lacking { nothing, year, month, day };

Lacking lacking_part(std::string_view text, const ScheduleType& type) {
  const std::string lower = lower_case(strip_blanks(text));
  TimeText rest = lower;
  const WrittenDate date =
      read_clock(rest) ? WrittenDate() : take_date(rest).value_or(WrittenDate());
  const bool counts_months =
      type.day_name == DayName::day_of_year || type.day_name == DayName::date;
  if (type.day_name == DayName::weekday) {
    return date.weekday || date.year ? Lacking::nothing : Lacking::day;
  }
  if (counts_months || type.day_name == DayName::day_of_month) {
    if (!date.day) {
      return Lacking::day;
    }
    if (counts_months && !date.month) {
      return Lacking::month;
    }
    return date.year || type.day_name != DayName::date ? Lacking::nothing : Lacking::year;
  }
  return Lacking::nothing;
}

std::string_view text_of(Lacking lacking) {
  switch (lacking) {
    case Lacking::year:
      return "an end without a year is in 2020";
    case Lacking::month:
      return "an end without a month is in January";
    case Lacking::day:
      return "an end without a day is on the first day of the unit";
    case Lacking::nothing:
      break;
  }
  return "to end after midnight";
}

/// The clock at the end of the text, where it could be one of the morning or of the afternoon.
bool has_unmarked_clock(std::string_view text) {
  const size_t blank = text.find_last_of(" \t,");
  const std::string_view clock = blank == std::string_view::npos ? text : text.substr(blank + 1);
  const size_t colon = clock.find(':');
  return clock.find_first_not_of("0123456789:") == std::string_view::npos && clock.front() != '0' &&
         (colon == 1 || (colon == 2 && clock < "13"));
}

/// Whether the end was probably meant in the afternoon: "6:00 pm" to "6:30", "11:30" to "1:00".
bool is_meant_in_afternoon(const WrittenSection& section) {
  const std::string start = lower_case(section.text_of(ScheduleKey::start));
  const uint64_t start_clock = section.start % seconds_per_day;
  const uint64_t end_clock = section.end % seconds_per_day;
  const bool is_start_of_half_day = start.ends_with('p') || start.ends_with("pm") ||
                                    start.ends_with("p.m.") || has_unmarked_clock(start);
  return is_start_of_half_day && has_unmarked_clock(section.text_of(ScheduleKey::end)) &&
         end_clock < half_a_day && end_clock + half_a_day > start_clock;
}

/// The end on the day of the start, or at the same second of the next day.
uint64_t next_end(uint64_t start, uint64_t end, const ScheduleType& type) {
  const uint64_t same_day = start - start % seconds_per_day + end % seconds_per_day;
  return same_day > start ? same_day : a_day_later(same_day, type);
}

/// The end with the parts of the start that it lacks.
uint64_t completed_end(uint64_t start, uint64_t end, Lacking lacking, const ScheduleType& type) {
  if (lacking != Lacking::year && lacking != Lacking::month) {
    return next_end(start, end, type);
  }
  const uint64_t unit = lacking == Lacking::year ? seconds_per_year : seconds_per_month;
  const uint64_t found = start - start % unit + end % unit;
  return found > start ? found : found + unit;
}

/// An end as it was probably meant.
struct MeantEnd {
  uint64_t position;
  std::string reason;
  bool may_be_long = false;
};

/// The end of a section that ends before it starts, or when it starts.
MeantEnd meant_end(const WrittenSection& section, const ScheduleType& type) {
  const uint64_t start = section.start;
  const uint64_t end = section.end;
  const bool is_midnight = end % seconds_per_day == 0;
  if (start == end) {
    return {is_midnight ? a_day_later(start, type) : start, "to end at midnight", true};
  }
  const bool is_on_same_day = start / seconds_per_day == end / seconds_per_day;
  const Lacking lacking =
      is_on_same_day ? Lacking::nothing : lacking_part(section.text_of(ScheduleKey::end), type);
  MeantEnd meant{completed_end(start, end, lacking, type), std::string(text_of(lacking)),
                 is_midnight || lacking == Lacking::year || lacking == Lacking::month};
  if (lacking == Lacking::nothing && is_midnight) {
    meant.reason = "to end at midnight";
  } else if (lacking == Lacking::nothing && !is_on_same_day) {
    meant.reason = "to end within a day";
  }
  if (meant.position - start >= half_a_day && is_meant_in_afternoon(section)) {
    meant.position = start - start % seconds_per_day + end % seconds_per_day + half_a_day;
    meant.reason = "if the end is meant as pm";
  }
  return meant;
}

/// Whether the position is on one of the days that a month lacks, such as 31 April. Only an endless
/// schedule says which years have a 29 February.
bool is_after_month(uint64_t position, const ScheduleType& type) {
  if (type.day_name != DayName::day_of_year && type.day_name != DayName::date) {
    return false;
  }
  const uint64_t month = position / seconds_per_month % month_lengths.size();
  const auto day = static_cast<int>(position / seconds_per_day % days_per_month) + 1;
  const uint64_t year = first_schedule_year + position / seconds_per_year;
  const bool is_short = type.day_name == DayName::date && month == 1 && year % 4 != 0;
  return day > month_lengths.at(month) - (is_short ? 1 : 0);
}

}  // namespace

std::optional<uint64_t> position_of(std::string_view text, const ScheduleType& type) {
  std::tm broken_down{};
  long microseconds = 0;
  if (!schedule_parse_time(text, broken_down, microseconds)) {
    return std::nullopt;
  }
  return broken_down_to_schedule_seconds(&type, broken_down);
}

uint64_t a_day_later(uint64_t position, const ScheduleType& type) {
  uint64_t later = position + seconds_per_day;
  while (is_after_month(later, type)) {
    later += seconds_per_day;
  }
  return later;
}

uint64_t a_day_earlier(uint64_t position, const ScheduleType& type) {
  uint64_t earlier = position - seconds_per_day;
  while (is_after_month(earlier, type)) {
    earlier -= seconds_per_day;
  }
  return earlier;
}

std::string text_of_end(uint64_t position, const ScheduleType& type) {
  const bool is_midnight = position > 0 && position % seconds_per_day == 0;
  return is_midnight ? written_end(a_day_earlier(position, type) + seconds_per_day, type)
                     : written_position(position, type);
}

SpanAdvice advise_on_end(const WrittenSchedule& written, const WrittenSection& section,
                         uint64_t end, const ScheduleType& type) {
  if (end <= type.unit_length) {
    const std::string text = text_of_end(end, type);
    return {"write " + quoted(text),
            {line_with(written, *section.value_of(ScheduleKey::end), text)}};
  }
  const bool is_block = section.value_of(ScheduleKey::item) == nullptr;
  const std::string unit_end = text_of_end(type.unit_length, type);
  const std::string begin = written_position(0, type);
  const std::string rest = text_of_end(end - type.unit_length, type);
  return {std::string("write two ") + (is_block ? "blocks" : "items") + ", from " +
              quoted(written_position(section.start, type)) + " to " + quoted(unit_end) +
              " and from " + quoted(begin) + " to " + quoted(rest),
          two_sections(written, section, is_block, unit_end, begin, rest)};
}

SpanAdvice advise_on_span(const WrittenSchedule& written, const WrittenSection& section,
                          const ScheduleType& type) {
  if (type.unit_length == 0) {
    return {};
  }
  const MeantEnd meant = meant_end(section, type);
  if (meant.position == section.start) {
    return {};
  }
  // Not the difference, which counts the days that short months lack.
  const uint64_t length =
      (meant.position + seconds_per_day - section.start % seconds_per_day) % seconds_per_day;
  if (length > longest_advised && !meant.may_be_long) {
    return {meant.reason.starts_with("an end") ? "; " + meant.reason : ""};
  }
  SpanAdvice advice = advise_on_end(written, section, meant.position, type);
  const std::string reason =
      meant.position > type.unit_length ? "to run past the end of the unit" : meant.reason;
  advice.text = "; " + reason + (reason.starts_with("an end") ? "; " : ", ") + advice.text;
  return advice;
}
