#include "import/row_days.hpp"

#include <algorithm>
#include <set>
#include <tuple>

#include "platform/time/calendar_names.hpp"

namespace {

constexpr int days_in_week = 7;

bool is_single(const DayTerm& term) {
  return term.first == term.last;
}

/// Whether the weekday terms allow this date; all do when there are none.
bool fits_weekdays(const CellDate& date, const std::vector<DayTerm>& weekdays) {
  const int weekday = weekday_of(date);
  const int week = (date.day - 1) / days_in_week + 1;
  const int length = length_of_month(date.year.value_or(0), date.month.value_or(1));
  const bool is_last = date.day + days_in_week > length;
  return weekdays.empty() || std::ranges::any_of(weekdays, [&](const DayTerm& term) {
           const bool is_weekday = (term.weekdays >> static_cast<unsigned>(weekday) & 1U) != 0;
           return is_weekday &&
                  (term.ordinal == 0 || term.ordinal == week || (term.ordinal == -1 && is_last));
         });
}

/// Finds the days of one row.
class DayFinder {
 public:
  DayFinder(const std::vector<DayTerm>& terms, const DayRules& rules, std::string& problem)
      : rules_(rules), problem_(problem) {
    for (const DayTerm& term : terms) {
      (term.weekdays != 0 ? weekdays_ : dates_).push_back(term);
    }
  }

  std::optional<std::vector<uint32_t>> find() {
    const bool is_done = rules_.type->day_name == DayName::weekday ? find_in_week() : find_dates();
    if (!is_done) {
      return std::nullopt;
    }
    if (days_.empty()) {
      problem_ = "no day is both one of these dates and one of these weekdays";
      return std::nullopt;
    }
    return std::vector<uint32_t>(days_.begin(), days_.end());
  }

 private:
  bool fail(std::string problem) {
    problem_ = std::move(problem);
    return false;
  }

  bool find_in_week() {
    for (const DayTerm& term : weekdays_) {
      if (term.ordinal != 0) {
        return fail("a weekly schedule is the same every week; it has no 1st or last weekday");
      }
      for (uint32_t day = 0; day < days_in_week && dates_.empty(); ++day) {
        if ((term.weekdays >> day & 1U) != 0) {
          days_.insert(day);
        }
      }
    }
    for (const DayTerm& term : dates_) {
      if (!term.last.year || !term.last.month) {
        return fail("a weekly schedule needs weekdays, or dates with their year");
      }
      for (const CellDate& date : {term.first, term.last}) {
        if (date.day > length_of_month(*date.year, *date.month)) {
          return fail(std::string(month_names.at(static_cast<size_t>(*date.month) - 1)) + " " +
                      std::to_string(*date.year) + " has no day " + std::to_string(date.day));
        }
      }
      if (!walk(term, [&](const CellDate& date) {
            days_.insert(static_cast<uint32_t>(weekday_of(date)));
          })) {
        return false;
      }
    }
    return true;
  }

  bool find_dates() {
    if (dates_.empty() && !add_whole_unit()) {
      return false;
    }
    const bool counts_months = rules_.type->day_name != DayName::day_of_month;
    for (DayTerm term : dates_) {
      if (counts_months && !term.last.month) {
        return fail("the day has no month");
      }
      if (rules_.type->day_name == DayName::date && !term.last.year) {
        return fail("the date has no year");
      }
      const bool is_plain = weekdays_.empty() && (is_single(term) || !term.first.month);
      if (!(is_plain ? add_slots(term) : add_calendar_days(term))) {
        return false;
      }
    }
    return true;
  }

  /// Weekdays alone mean those of the unit that holds today.
  bool add_whole_unit() {
    const CellDate& today = rules_.today;
    const bool is_every_day = weekdays_.size() == 1 && weekdays_.front().weekdays == all_weekdays &&
                              weekdays_.front().ordinal == 0;
    switch (rules_.type->day_name) {
      case DayName::day_of_month:
        dates_.push_back(
            {.first = {today.year, today.month, 1}, .last = {today.year, today.month, 31}});
        if (is_every_day) {
          weekdays_.clear();
          dates_.back() = {.first = {{}, {}, 1}, .last = {{}, {}, 31}};
        } else {
          dates_.back().last.day = length_of_month(today.year.value_or(0), today.month.value_or(1));
        }
        return true;
      case DayName::day_of_year:
        dates_.push_back({.first = {today.year, 1, 1}, .last = {today.year, 12, 31}});
        if (is_every_day) {  // with 29 February, which this year may not have
          constexpr int leap_year = 2024;
          dates_.back().first.year = dates_.back().last.year = leap_year;
        }
        return true;
      default:
        return fail("an endless schedule needs dates; write the first and the last one too");
    }
  }

  /// Days as they are counted in the unit, whether a month has them or not.
  bool add_slots(const DayTerm& term) {
    if (term.first.day > term.last.day) {
      return fail("the range of days ends before it begins");
    }
    for (CellDate date = term.first; date.day <= term.last.day; ++date.day) {
      if (!add(date)) {
        return false;
      }
    }
    return true;
  }

  bool add_calendar_days(DayTerm term) {
    constexpr int leap_year = 2024;  // so that a range has its 29 February
    const bool has_year = term.first.year.has_value() || term.last.year.has_value();
    const std::optional<int> year = weekdays_.empty() ? leap_year : rules_.today.year;
    for (CellDate* date : {&term.first, &term.last}) {
      date->year = date->year ? date->year : year;
      date->month = date->month ? date->month : rules_.today.month;
    }
    if (!has_year &&
        std::tie(*term.last.month, term.last.day) < std::tie(*term.first.month, term.first.day)) {
      ++*term.last.year;
    }
    bool are_added = true;
    return walk(term,
                [&](const CellDate& date) {
                  are_added = are_added && (!fits_weekdays(date, weekdays_) || add(date));
                }) &&
           are_added;
  }

  template <typename Visit>
  bool walk(const DayTerm& term, Visit visit) {
    CellDate date = term.first;
    const auto is_after_last = [&] {
      return std::tie(*date.year, *date.month, date.day) >
             std::tie(*term.last.year, *term.last.month, term.last.day);
    };
    if (is_after_last()) {
      return fail("the range of dates ends before it begins");
    }
    if (*term.last.year - *date.year > schedule_years) {
      return fail("the range of dates is longer than any schedule");
    }
    for (; !is_after_last(); date = day_after(date)) {
      visit(date);
    }
    return true;
  }

  bool add(const CellDate& date) {
    int day = date.day - 1;
    if (rules_.type->day_name != DayName::day_of_month) {
      day += (date.month.value_or(1) - 1) * days_per_month;
    }
    if (rules_.type->day_name == DayName::date) {
      const int year = date.year.value_or(0) - first_schedule_year;
      if (year < 0 || year >= schedule_years) {
        return fail("an endless schedule has the years 2020 to 2034");
      }
      day += year * days_per_year;
    }
    days_.insert(static_cast<uint32_t>(day));
    return true;
  }

  const DayRules& rules_;
  std::string& problem_;
  std::vector<DayTerm> weekdays_;
  std::vector<DayTerm> dates_;
  std::set<uint32_t> days_;
};

}  // namespace

std::optional<std::vector<uint32_t>> days_of_terms(const std::vector<DayTerm>& terms,
                                                   const DayRules& rules, std::string& problem) {
  problem.clear();
  if (rules.type->day_name == DayName::only_day) {
    return std::vector<uint32_t>{0};
  }
  if (terms.empty()) {
    problem = "the row has no day; write the day, or 'daily'";
    return std::nullopt;
  }
  return DayFinder(terms, rules, problem).find();
}

std::optional<uint32_t> day_of_unit_after(uint32_t day, uint32_t count, const DayRules& rules,
                                          bool& is_next_unit) {
  const auto days = static_cast<uint32_t>(rules.type->unit_length / seconds_per_day);
  is_next_unit = false;
  for (; count > 0; --count) {
    ++day;
    // A month of the calendar may end before its 31st day. The next real day follows then. Units
    // of a month and less do not reach the end of the second month.
    const int year = first_schedule_year + static_cast<int>(day / days_per_year);
    while (static_cast<int>(day % days_per_month) >=
           length_of_month(year, static_cast<int>(day / days_per_month % 12) + 1)) {
      ++day;
    }
    if (day >= days && rules.type->day_name == DayName::date) {
      return std::nullopt;
    }
    is_next_unit = is_next_unit || day >= days;
    day %= days;
  }
  return day;
}
