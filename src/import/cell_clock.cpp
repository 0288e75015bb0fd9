#include "import/cell_clock.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "checks/finding.hpp"
#include "import/folded_word.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/written_time.hpp"

namespace {

constexpr long half_second = 500000;  // microseconds

bool are_all_digits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, is_digit);
}

int seconds_of(const ClockTime& clock) {
  return clock.hour * 3600 + clock.minute * 60 + clock.second +
         (clock.microseconds >= half_second ? 1 : 0);
}

/// "1800" or "930".
std::optional<int> clock_of_figures(std::string_view text) {
  if (!are_all_digits(text) || text.size() < 3) {
    return std::nullopt;
  }
  const std::string hour(text.substr(0, text.size() - 2));
  const auto clock = read_clock(hour + ":" + std::string(text.substr(text.size() - 2)));
  return clock ? std::optional(seconds_of(*clock)) : std::nullopt;
}

std::optional<int> clock_of_fraction(double days) {
  const double seconds = std::round(days * seconds_per_day);
  return seconds >= 0 && seconds <= seconds_per_day ? std::optional(static_cast<int>(seconds))
                                                    : std::nullopt;
}

std::optional<int> clock_of_number(std::string_view text, double number, const NumberForm& form,
                                   std::string& problem) {
  if (const std::optional<int> clock = clock_of_figures(text)) {
    return clock;
  }
  const bool is_whole = are_all_digits(text);
  if (is_whole && (number == 0 || (number == 1 && form.are_raw))) {
    return clock_of_fraction(number);
  }
  if (is_whole) {
    problem = text.size() <= 2
                  ? quoted_cell(text) + " could be an hour or a number of seconds; write " +
                        quoted(std::string(text) + ":00") + " if it is the hour"
                  : "";
    return std::nullopt;
  }
  if (number < 1 && text.front() == '0' && text[1] != '0') {
    const bool could_be_clock = form.has_point_clocks && !form.are_raw && text[1] == '.' &&
                                read_clock("0:" + std::string(text.substr(2)));
    if (could_be_clock) {
      problem = quoted_cell(text) + " could be a clock or a fraction of a day; write " +
                quoted("00:" + std::string(text.substr(2))) + " if it is the clock";
      return std::nullopt;
    }
    return clock_of_fraction(number);
  }
  if (form.are_raw) {
    problem =
        quoted_cell(text) + " is a number and not a time of the spreadsheet; write it with a colon";
    return std::nullopt;
  }
  return std::nullopt;
}

/// "18.30" as "18:30", also before "pm".
std::string with_colon(std::string_view text) {
  std::string clock(text);
  const size_t point = clock.find('.');
  const bool is_clock = (point == 1 || point == 2) && are_all_digits(text.substr(0, point)) &&
                        clock.size() >= point + 3 && are_all_digits(text.substr(point + 1, 2)) &&
                        (clock.size() == point + 3 || !is_digit(clock[point + 3]));
  if (is_clock) {
    clock[point] = ':';
  }
  return clock;
}

/// "18h00", "18h", "18 Uhr", "18:00 Uhr" as "18:00".
std::string without_hour_words(std::string text) {
  for (const std::string_view word : {"uhr", "hrs", "h", "u"}) {
    const size_t at = text.find(word);
    if (at == std::string::npos || at == 0) {
      continue;
    }
    const std::string_view all = text;
    const std::string head(strip_blanks(all.substr(0, at)));
    const std::string tail(strip_blanks(all.substr(at + word.size())));
    if (tail.empty()) {
      return are_all_digits(head) ? head + ":00" : head;
    }
    if (are_all_digits(head) && is_digit(tail.front())) {
      return std::string(head).append(":").append(tail);
    }
  }
  return text;
}

struct DurationUnit {
  double seconds;
  std::string_view words;
};

constexpr std::array<DurationUnit, 4> duration_units = {{
    {86400, "d,day,days,tag,tage,jour,jours,dia,dias"},
    {3600, "h,hr,hrs,hour,hours,std,stunde,stunden,heure,heures,hora,horas"},
    {60, "m,min,mins,minute,minutes,minuten,minuto,minutos,'"},
    {1, "s,sec,secs,second,seconds,sek,sekunde,sekunden,seconde,secondes,seg,segundo,segundos,''"},
}};

/// Removes a number from the front of the text.
std::optional<double> take_decimal(std::string_view& rest) {
  const size_t length = std::min(rest.find_first_not_of("0123456789."), rest.size());
  const std::optional<double> number = read_cell_number(rest.substr(0, length));
  rest.remove_prefix(length);
  return number;
}

/// "90 min", "1h30", "1 h 30 min 15 s".
std::optional<double> duration_in_words(std::string_view rest) {
  double seconds = 0;
  double smaller = 0;  // the unit of a number without one: minutes behind hours
  do {
    const std::optional<double> number = take_decimal(rest);
    if (!number) {
      return std::nullopt;
    }
    rest = skip_blanks(rest);
    const std::string_view word = rest.substr(0, rest.find_first_of(" 0123456789."));
    double unit = word.empty() ? smaller : 0;
    for (const DurationUnit& known : duration_units) {
      unit = is_listed_word(word, known.words) ? known.seconds : unit;
    }
    if (unit == 0) {
      return std::nullopt;
    }
    rest = skip_blanks(rest.substr(word.size()));
    smaller = unit == 86400 ? 3600 : unit / 60;
    seconds += *number * unit;
  } while (!rest.empty());
  return seconds;
}

/// "1:30" or "1:30:15.5".
std::optional<double> duration_in_figures(std::string_view text) {
  const size_t colon = text.find(':');
  const std::string_view hours = text.substr(0, colon);
  constexpr size_t longest = 4;
  if (colon == std::string_view::npos || !are_all_digits(hours) || hours.size() > longest) {
    return std::nullopt;
  }
  const auto rest = read_clock("0" + std::string(text.substr(colon)));
  if (!rest || text.find_first_not_of("0123456789:.") != std::string_view::npos) {
    return std::nullopt;
  }
  return number_at_front(hours) * 3600.0 + rest->minute * 60 + rest->second +
         static_cast<double>(rest->microseconds) / 1e6;
}

}  // namespace

std::optional<double> read_cell_number(std::string_view text) {
  std::string number(text);
  std::ranges::replace(number, ',', '.');
  const bool has_form = !number.empty() && is_digit(number.front()) && is_digit(number.back()) &&
                        number.find_first_not_of("0123456789.") == std::string::npos &&
                        std::ranges::count(number, '.') <= 1;
  return has_form ? std::optional(std::strtod(number.c_str(), nullptr)) : std::nullopt;
}

bool is_point_clock(std::string_view text) {
  text = strip_blanks(text);
  return !text.starts_with("0.") && with_colon(text) != text && read_clock(with_colon(text)) &&
         are_all_digits(text.substr(text.find('.') + 1));
}

std::optional<int> read_cell_clock(std::string_view text, const NumberForm& form,
                                   std::string& problem) {
  problem.clear();
  const std::string folded = folded_letters(strip_blanks(text));
  if (const auto clock = read_clock(folded)) {
    return seconds_of(*clock);
  }
  const bool is_fraction = folded.starts_with("0.") || folded.starts_with("0,");
  const std::optional<double> number = read_cell_number(folded);
  const bool is_clock_with_point = !is_fraction && !form.are_raw && with_colon(folded) != folded;
  if (number && !is_clock_with_point) {
    return clock_of_number(folded, *number, form, problem);
  }
  const auto clock = read_clock(without_hour_words(with_colon(folded)));
  return clock ? std::optional(seconds_of(*clock)) : std::nullopt;
}

std::optional<double> read_cell_duration(std::string_view text, int unit, const NumberForm& form,
                                         std::string& problem) {
  problem.clear();
  std::string folded = folded_letters(strip_blanks(text));
  if (const std::optional<double> number = read_cell_number(folded)) {
    const bool is_part_of_day = *number < 1 || (form.are_raw && !are_all_digits(folded));
    if (unit == 0 && !is_part_of_day) {
      problem = quoted_cell(text) + " has no unit; write " + quoted(folded + " min") + " or " +
                quoted(folded + " s");
      return std::nullopt;
    }
    return *number * (unit != 0 ? unit : int{seconds_per_day});
  }
  if (const std::optional<double> seconds = duration_in_figures(folded)) {
    return seconds;
  }
  if (folded.starts_with("pt")) {
    folded.erase(0, 2);
  }
  return duration_in_words(folded);
}
