// The forms in which people write days.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "import/row_days.hpp"

namespace {

struct DayForm {
  const char* text;
  std::vector<uint32_t> days;
};

/// The days of the text, in March 2026, whose 1st is a Sunday.
std::vector<uint32_t> days_of(const char* text, const char* type, std::string& problem,
                              std::optional<DateOrder> order = std::nullopt) {
  const auto terms = read_day_terms(text, order, problem);
  if (!terms) {
    return {};
  }
  const DayRules rules{find_schedule_type(type), {2026, 3, 5}};
  return days_of_terms(*terms, rules, problem).value_or(std::vector<uint32_t>());
}

void expect_days(const char* type, const std::vector<DayForm>& forms) {
  for (const DayForm& form : forms) {
    std::string problem;
    EXPECT_EQ(days_of(form.text, type, problem), form.days) << type << ": " << form.text;
    EXPECT_EQ(problem, "") << type << ": " << form.text;
  }
}

TEST(RowDays, OfTheWeek) {
  expect_days("weekly", {
                            {"Mon", {1}},
                            {"monday", {1}},
                            {"Mon-Fri", {1, 2, 3, 4, 5}},
                            {"Mon – Fri", {1, 2, 3, 4, 5}},
                            {"Mon to Fri", {1, 2, 3, 4, 5}},
                            {"Mo.-Fr.", {1, 2, 3, 4, 5}},
                            {"Fri-Mon", {0, 1, 5, 6}},
                            {"Mon, Wed, Sat", {1, 3, 6}},
                            {"Mon/Wed/Sat", {1, 3, 6}},
                            {"Mon and Wed", {1, 3}},
                            {"Mon-Wed, Sat", {1, 2, 3, 6}},
                            {"daily", {0, 1, 2, 3, 4, 5, 6}},
                            {"every day", {0, 1, 2, 3, 4, 5, 6}},
                            {"Täglich", {0, 1, 2, 3, 4, 5, 6}},
                            {"weekdays", {1, 2, 3, 4, 5}},
                            {"weekends", {0, 6}},
                            {"Week-end", {0, 6}},
                            {"Mittwoch", {3}},
                            {"mardi et jeudi", {2, 4}},
                            {"lunes a viernes", {1, 2, 3, 4, 5}},
                            {"miércoles y sábado", {3, 6}},
                            {"2026-03-05", {4}},
                            {"Thu 2026-03-05", {4}},
                            {"2026-03-05 - 2026-03-07", {4, 5, 6}},
                            {"am Montag", {1}},
                            {"le mardi", {2}},
                            {"1900-01-01", {1}},
                            {"9999-12-31", {5}},
                            {"36526", {6}},
                            {"73415", {5}},
                        });
}

TEST(RowDays, OfTheMonth) {
  expect_days("monthly",
              {
                  {"5", {4}},
                  {"5th", {4}},
                  {"day 5", {4}},
                  {"dom5", {4}},
                  {"1-3", {0, 1, 2}},
                  {"Mar 5 - 7", {4, 5, 6}},
                  {"2026-03-05 - 7", {4, 5, 6}},
                  {"1, 15, 31", {0, 14, 30}},
                  {"1st and 15th", {0, 14}},
                  {"1st Tue", {2}},
                  {"first Tue", {2}},
                  {"dritter Dienstag", {16}},
                  {"1st and 3rd Tue", {2, 16}},
                  {"1. Dienstag", {2}},
                  {"last Fri", {26}},
                  {"last Tue", {30}},
                  {"5th Sun", {28}},
                  {"1st Sat", {6}},
                  {"1st, 2nd and 3rd Tue", {2, 9, 16}},
                  {"3, 1st and 3rd Tue", {2}},
                  {"31", {30}},
                  {"daily", {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15,
                             16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30}},
                  {"weekends", {0, 6, 7, 13, 14, 20, 21, 27, 28}},
                  {"2026-04-07", {6}},
              });
}

TEST(RowDays, OfTheYear) {
  constexpr uint32_t month = 31;
  expect_days("yearly", {
                            {"Mar 5", {2 * month + 4}},
                            {"5 March", {2 * month + 4}},
                            {"5. März 2026", {2 * month + 4}},
                            {"5 de marzo de 2026", {2 * month + 4}},
                            {"March 5, 2026", {2 * month + 4}},
                            {"5-Mar-26", {2 * month + 4}},
                            {"m3d5", {2 * month + 4}},
                            {"2026-03-05", {2 * month + 4}},
                            {"5.3.", {2 * month + 4}},
                            {"5.3.2026", {2 * month + 4}},
                            {"46086", {2 * month + 4}},
                            {"13/3", {2 * month + 12}},
                            {"5/5/2026", {4 * month + 4}},
                            {"28 Feb - 1 Mar", {month + 27, month + 28, 2 * month}},
                            {"30 Dec - 2 Jan", {0, 1, 11 * month + 29, 11 * month + 30}},
                            {"5 to 7 March", {2 * month + 4, 2 * month + 5, 2 * month + 6}},
                            {"March 5 to 7", {2 * month + 4, 2 * month + 5, 2 * month + 6}},
                            {"Feb 30", {month + 29}},
                            {"March 5,2026", {2 * month + 4}},
                            {"20260305", {2 * month + 4}},
                            {"5.3", {2 * month + 4}},
                            {"1 March", {2 * month}},
                            {"31 March", {2 * month + 30}},
                            {"31.12.2026", {11 * month + 30}},
                            {"5-7 March", {2 * month + 4, 2 * month + 5, 2 * month + 6}},
                            {"46023", {0}},
                            {"46112", {2 * month + 30}},
                            {"46113", {3 * month}},
                            {"46387", {11 * month + 30}},
                            {"46388", {0}},
                        });
}

TEST(RowDays, OfAnEndlessSchedule) {
  constexpr uint32_t march = 6 * 372 + 2 * 31;
  expect_days("endless", {
                             {"2026-03-05", {march + 4}},
                             {"y2026m3d5", {march + 4}},
                             {"2026-03-02 - 2026-03-08, weekends", {march + 6, march + 7}},
                             {"2026-03-31 to 2026-04-01", {march + 30, march + 31}},
                             {"2026-03-05 - 6", {march + 4, march + 5}},
                         });
}

TEST(RowDays, OrderOfDates) {
  std::string problem;
  EXPECT_EQ(days_of("03/05/2026", "monthly", problem), std::vector<uint32_t>());
  EXPECT_EQ(problem,
            "'03/05/2026' could be May 3 2026 or March 5 2026; say which with --dates DMY or "
            "--dates MDY");
  EXPECT_EQ(days_of("03/05/2026", "monthly", problem, DateOrder::day_month_year),
            std::vector<uint32_t>{2});
  EXPECT_EQ(days_of("03/05/2026", "monthly", problem, DateOrder::month_day_year),
            std::vector<uint32_t>{4});
  EXPECT_EQ(days_of("26-03-05", "monthly", problem, DateOrder::year_month_day),
            std::vector<uint32_t>{4});
}

TEST(RowDays, SaysWhatIsWrong) {
  struct Mistake {
    const char* type;
    const char* text;
    const char* problem;
  };
  const std::vector<Mistake> mistakes = {
      {"weekly", "", "the row has no day; write the day, or 'daily'"},
      {"weekly", "Mon-", "'mon-' is no range of days"},
      {"weekly", "Mondey", "'mondey' is not understood; did you mean 'monday'?"},
      {"weekly", "1st Tue",
       "a weekly schedule is the same every week; it has no 1st or last weekday"},
      {"weekly", "5.3.", "a weekly schedule needs weekdays, or dates with their year"},
      {"weekly", "2026-03-07 - 2026-03-05", "the range of dates ends before it begins"},
      {"weekly", "1899-12-31", "'1899-12-31' is not understood"},
      {"weekly", "36525", "'36525' is not understood"},
      {"weekly", "73416", "'73416' is not understood"},
      {"weekly", "5 Mar 2026 - 7 Mar",
       "a weekly schedule needs weekdays, or dates with their year"},
      {"monthly", "Mon - 1st Fri", "'mon - 1st fri' is no range of days"},
      {"monthly", "6th Sun", "no day is both one of these dates and one of these weekdays"},
      {"monthly", "0", "'0' is not understood"},
      {"monthly", "32", "'32' is not understood"},
      {"monthly", "32nd", "'32nd' is not understood"},
      {"monthly", "0.", "'0.' is not understood"},
      {"yearly", "Mon - Mar 5", "'mon - mar 5' is no range of days"},
      {"yearly", "m13d5", "'m13d5' is not understood"},
      {"yearly", "m3", "'m3' is not understood"},
      {"yearly", "March 5-7", "'march 5-7' is not understood"},
      {"yearly", "0 March", "'0 march' is not understood"},
      {"yearly", "32 March", "'32 march' is not understood"},
      {"yearly", "0.3.2026", "'0.3.2026' is not understood"},
      {"yearly", "32.3.2026", "'32.3.2026' is not understood"},
      {"yearly", "5.0.2026", "'5.0.2026' is not understood"},
      {"yearly", "5.13.2026", "'5.13.2026' is not understood"},
      {"yearly", "2026035", "'2026035' is not understood"},
      {"monthly", "Tue 2026-03-05", "no day is both one of these dates and one of these weekdays"},
      {"yearly", "5", "the day has no month"},
      {"yearly", "2026-13-05", "'2026-13-05' is not understood"},
      {"endless", "Mar 5", "the date has no year"},
      {"endless", "Mon", "an endless schedule needs dates; write the first and the last one too"},
      {"endless", "2035-01-01", "an endless schedule has the years 2020 to 2034"},
  };
  for (const Mistake& mistake : mistakes) {
    std::string problem;
    EXPECT_EQ(days_of(mistake.text, mistake.type, problem), std::vector<uint32_t>());
    EXPECT_EQ(problem, mistake.problem) << mistake.type << ": " << mistake.text;
  }
}

}  // namespace
