#include "properties/written_time.hpp"

#include <algorithm>
#include <array>
#include <cctype>

namespace {

constexpr std::array<const char*, 7> weekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                 "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> months = {"January",   "February", "March",    "April",
                                                "May",       "June",     "July",     "August",
                                                "September", "October",  "November", "December"};
constexpr std::array<const char*, 14> invalid_texts = {
    "25:00",      "13 pm",  "0 am",       "12:60",     "12:30:60",      "noon",     "12:00:00.",
    "2026-13-01", "Feb 32", "1899-12-31", "Som 12:00", "sun mon 12:00", "24:00:01", "99999999999"};

std::string number(int value, int width = 1) {
  std::string text = std::to_string(value);
  return std::string(static_cast<size_t>(std::max(0, width - static_cast<int>(text.size()))), '0') +
         text;
}

/// With or without a leading zero.
std::string day_number(Random& random, int value) {
  return number(value, random.chance(50) ? 2 : 1);
}

std::string weekday_word(Random& random, int weekday) {
  std::string word = weekdays.at(static_cast<size_t>(weekday));
  word.resize(random.chance(50) ? 3 : word.size());
  return word;
}

std::string month_word(Random& random, int month) {
  std::string word = months.at(static_cast<size_t>(month - 1));
  word.resize(random.chance(50) ? 3 : word.size());
  return word;
}

std::string ordinal(Random& random, int day) {
  static constexpr std::array<const char*, 5> suffixes = {"", "st", "nd", "rd", "th"};
  return number(day) + random.pick(suffixes);
}

std::string random_fraction(Random& random, WrittenTime& time) {
  static constexpr std::array<const char*, 3> below_half = {".0", ".4999999", ".25"};
  static constexpr std::array<const char*, 3> from_half = {".5", ".500000", ".999"};
  time.rounds_up = random.chance(50);
  return time.rounds_up ? random.pick(from_half) : random.pick(below_half);
}

std::string half_of_day(Random& random, int hour) {
  static constexpr std::array<const char*, 4> mornings = {"am", " AM", " a.m.", "a"};
  static constexpr std::array<const char*, 4> afternoons = {"pm", " pm", " P.M.", " p"};
  return hour < 12 ? random.pick(mornings) : random.pick(afternoons);
}

std::string random_clock(Random& random, WrittenTime& time) {
  if (random.chance(8)) {
    time.hour = 24;
    return random.chance(50) ? "24:00" : "24:00:00";
  }
  time.hour = static_cast<int>(random.below(24));
  const bool has_half = random.chance(30);
  const int shown = has_half ? (time.hour + 11) % 12 + 1 : time.hour;
  std::string text = day_number(random, shown);
  if (!has_half || random.chance(70)) {
    time.minute = random.chance(40) ? 0 : static_cast<int>(random.below(60));
    text += ":" + number(time.minute, 2);
    if (random.chance(60)) {
      time.second = random.chance(30) ? 59 : static_cast<int>(random.below(60));
      text += ":" + number(time.second, 2);
      text += random.chance(30) ? random_fraction(random, time) : "";
    }
  }
  return text + (has_half ? half_of_day(random, time.hour) : "");
}

/// Gregorian weekday; days past the month's end carry into the next month.
int weekday_of(int year, int month, int day) {
  int64_t days = day - 1;
  for (int y = 1900; y < year; ++y) {
    days += (y % 4 == 0 && y % 100 != 0) || y % 400 == 0 ? 366 : 365;
  }
  const bool is_leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  constexpr std::array<int, 12> lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int m = 1; m < month; ++m) {
    days += lengths.at(static_cast<size_t>(m - 1)) + (m == 2 && is_leap ? 1 : 0);
  }
  return static_cast<int>((days + 1) % 7);  // 1 January 1900 was a Monday
}

std::string full_date(Random& random, WrittenTime& time) {
  time.year = static_cast<int>(random.between(random.chance(10) ? 1900 : 2020, 2035));
  time.month = static_cast<int>(random.between(1, 12));
  time.day = static_cast<int>(random.between(1, 31));
  time.weekday = weekday_of(time.year, time.month, time.day);
  const std::string year = number(time.year);
  const std::string month = day_number(random, time.month);
  const std::string day = day_number(random, time.day);
  switch (random.below(6)) {
    case 0:
      return year + "-" + month + "-" + day;
    case 1:
      return year + "/" + month + "/" + day;
    case 2:
      return month + "/" + day + "/" + year;
    case 3:
      return "y" + year + "m" + month + "d" + day;
    case 4:
      return month_word(random, time.month) + " " + ordinal(random, time.day) + ", " + year;
    default:
      return ordinal(random, time.day) + " " + month_word(random, time.month) + " " + year;
  }
}

std::string month_and_day(Random& random, WrittenTime& time) {
  time.month = static_cast<int>(random.between(1, 12));
  time.day = static_cast<int>(random.between(1, 31));
  const std::string month = day_number(random, time.month);
  const std::string day = day_number(random, time.day);
  switch (random.below(5)) {
    case 0:
      return month + "-" + day;
    case 1:
      return month + "/" + day;
    case 2:
      return "m" + month + (random.chance(50) ? "d" : " d ") + day;
    case 3:
      return month_word(random, time.month) + " " + ordinal(random, time.day);
    default:
      return ordinal(random, time.day) + " " + month_word(random, time.month);
  }
}

/// A day by its number; the bare one needs a clock behind it.
std::string day_alone(Random& random, WrittenTime& time, bool has_clock) {
  static constexpr std::array<const char*, 5> words = {"day ", "day", "dom ", "dom", "d"};
  time.day = static_cast<int>(random.between(1, 31));
  return (has_clock && random.chance(40) ? "" : random.pick(words)) + day_number(random, time.day);
}

/// A weekday that stands before a date counts, whatever the date's own.
std::string with_weekday(Random& random, WrittenTime& time, const std::string& date) {
  if (!random.chance(10)) {
    return date;
  }
  time.weekday = static_cast<int>(random.below(7));
  return weekday_word(random, time.weekday) + (random.chance(50) ? " " : ", ") + date;
}

/// The forms of date that carry what the type needs, or any.
std::string random_date(Random& random, WrittenTime& time, std::string_view type, bool has_clock) {
  const uint64_t any = random.chance(15) ? random.below(4) : 4;
  if (any == 0 || (any == 4 && type == "endless")) {
    return with_weekday(random, time, full_date(random, time));
  }
  if (any == 1 || (any == 4 && type == "yearly")) {
    return with_weekday(random, time, month_and_day(random, time));
  }
  if (any == 2 || (any == 4 && type == "monthly")) {
    return with_weekday(random, time, day_alone(random, time, has_clock));
  }
  time.weekday = static_cast<int>(random.below(7));
  return weekday_word(random, time.weekday);
}

/// Bare schedule seconds, which every type gives back as they are.
WrittenTime bare_seconds(Random& random) {
  WrittenTime time;
  const auto x = static_cast<int>(random.chance(50) ? random.below(90000) : random.below(99999999));
  const bool ends_day = x > 0 && x % 86400 == 0;
  const int days = x / 86400 - (ends_day ? 1 : 0);
  const int second = x - days * 86400;
  time.year = 2020 + days / 372;
  time.month = days / 31 % 12 + 1;
  time.day = days % 31 + 1;
  time.weekday = days % 7;
  time.hour = second / 3600;
  time.minute = second / 60 % 60;
  time.second = second % 60;
  time.text = number(x) + (random.chance(30) ? random_fraction(random, time) : "");
  return time;
}

std::string random_case(Random& random, std::string text) {
  if (random.chance(30)) {
    for (char& c : text) {
      c = static_cast<char>(random.chance(50) ? std::toupper(c) : std::tolower(c));
    }
  }
  return text;
}

std::string separator(Random& random, const std::string& date) {
  static constexpr std::array<const char*, 4> separators = {" ", "  ", ", ", "\t"};
  const bool is_iso = date.find('-') == 4;
  return is_iso && random.chance(50) ? "T" : random.pick(separators);
}

}  // namespace

WrittenTime random_written_time(Random& random, std::string_view type) {
  WrittenTime time;
  if (random.chance(4)) {
    time.is_valid = false;
    time.text = random.pick(invalid_texts);
    return time;
  }
  if (random.chance(10)) {
    return bare_seconds(random);
  }
  const bool has_clock = random.chance(90);
  const bool has_date = !has_clock || type != "daily" || random.chance(10);
  const std::string clock = has_clock ? random_clock(random, time) : "";
  const std::string date = has_date ? random_date(random, time, type, has_clock) : "";
  time.text =
      random_case(random, date + (has_date && has_clock ? separator(random, date) : "") + clock);
  return time;
}

uint64_t position_of(const WrittenTime& time, std::string_view type) {
  const int64_t rounding = time.is_valid && time.rounds_up ? 1 : 0;
  const int64_t clock = time.hour * 3600 + time.minute * 60 + time.second;
  const int64_t in_month = (time.day - 1) * 86400 + clock;
  const int64_t in_year = (time.month - 1) * 2678400 + in_month;
  int64_t position = -1;
  if (!time.is_valid) {
    position = -1;
  } else if (type == "daily") {
    position = clock;
  } else if (type == "weekly") {
    position = time.weekday * 86400 + clock;
  } else if (type == "monthly") {
    position = in_month;
  } else if (type == "yearly") {
    position = in_year;
  } else if (type == "endless") {
    position = std::max(time.year - 2020, 0) * int64_t{32140800} + in_year;
  }
  return static_cast<uint64_t>(position + rounding);
}
