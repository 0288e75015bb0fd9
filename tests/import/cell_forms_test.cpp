// The forms in which people write times, lengths, days and headers.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "import/cell_clock.hpp"
#include "import/column_names.hpp"
#include "import/folded_word.hpp"
#include "import/row_days.hpp"

namespace {

struct ClockForm {
  const char* text;
  std::optional<int> second;
};

constexpr int hour = 3600;
constexpr int minute = 60;

TEST(CellClock, ReadsWhatPeopleWrite) {
  const std::vector<ClockForm> forms = {
      {"18:00", 18 * hour},
      {"6:05:30", 6 * hour + 5 * minute + 30},
      {"6:05:30.5", 6 * hour + 5 * minute + 31},
      {"6:05:30.499999", 6 * hour + 5 * minute + 30},
      {"24:00", 24 * hour},
      {"18.00", 18 * hour},
      {"9.30", 9 * hour + 30 * minute},
      {"00.30", 30 * minute},
      {"1800", 18 * hour},
      {"930", 9 * hour + 30 * minute},
      {"2400", 24 * hour},
      {"18h00", 18 * hour},
      {"18h", 18 * hour},
      {"9h05", 9 * hour + 5 * minute},
      {"18 Uhr", 18 * hour},
      {"18 Uhr 30", 18 * hour + 30 * minute},
      {"18:30 Uhr", 18 * hour + 30 * minute},
      {"18.30 Uhr", 18 * hour + 30 * minute},
      {"6 pm", 18 * hour},
      {"6:30 PM", 18 * hour + 30 * minute},
      {"6.30 pm", 18 * hour + 30 * minute},
      {"12 a.m.", 0},
      {" 18:00 ", 18 * hour},
      {"0.75", 18 * hour},
      {"0,75", 18 * hour},
      {"0.5", 12 * hour},
      {"0.25", 6 * hour},
      {"0.9793402777777777778", 23 * hour + 30 * minute + 15},
      {"0", 0},
      {"", std::nullopt},
      {"25:00", std::nullopt},
      {"18:60", std::nullopt},
      {"1860", std::nullopt},
      {"2430", std::nullopt},
      {"18.60", std::nullopt},
      {"13 pm", std::nullopt},
      {"soon", std::nullopt},
      {"h", std::nullopt},
      {"-1", std::nullopt},
      {"1e5", std::nullopt},
      {"00.5", std::nullopt},
      {"18.3", std::nullopt},
      {"12345", std::nullopt},
      {"0.5.5", std::nullopt},
  };
  for (const ClockForm& form : forms) {
    std::string problem;
    EXPECT_EQ(read_cell_clock(form.text, {}, problem), form.second) << form.text;
    EXPECT_EQ(problem, "") << form.text;
  }
}

TEST(CellClock, AsksWhatCouldBeTwo) {
  std::string problem;
  EXPECT_EQ(read_cell_clock("18", {}, problem), std::nullopt);
  EXPECT_EQ(problem,
            "'18' could be an hour or a number of seconds; write '18:00' if it is the hour");
  const NumberForm with_points{false, true};
  EXPECT_EQ(read_cell_clock("0.30", with_points, problem), std::nullopt);
  EXPECT_EQ(problem,
            "'0.30' could be a clock or a fraction of a day; write '00:30' if it is the clock");
  EXPECT_EQ(read_cell_clock("0.75", with_points, problem), 18 * hour);
  EXPECT_EQ(read_cell_clock("0,30", with_points, problem), 7 * hour + 12 * minute);
  EXPECT_EQ(read_cell_clock("0.30", {true, true}, problem), 7 * hour + 12 * minute);
}

TEST(CellClock, KnowsAClockWithAPoint) {
  for (const char* text : {"18.30", " 9.05 ", "24.00"}) {
    EXPECT_TRUE(is_point_clock(text)) << text;
  }
  for (const char* text : {"0.30", "18:30", "18.3", "25.00", "18.30 pm", "1830", "18.305", ""}) {
    EXPECT_FALSE(is_point_clock(text)) << text;
  }
}

TEST(CellClock, ReadsTheNumbersOfSpreadsheets) {
  const NumberForm raw{true, false};
  std::string problem;
  EXPECT_EQ(read_cell_clock("0.75", raw, problem), 18 * hour);
  EXPECT_EQ(read_cell_clock("1", raw, problem), 24 * hour);
  EXPECT_EQ(read_cell_clock("0.0208333333333333", raw, problem), 30 * minute);
  EXPECT_EQ(read_cell_clock("1800", raw, problem), 18 * hour);
  EXPECT_EQ(read_cell_clock("18:00", raw, problem), 18 * hour);
  EXPECT_EQ(read_cell_clock("18.3", raw, problem), std::nullopt);
  EXPECT_EQ(problem, "'18.3' is a number and not a time of the spreadsheet; write it with a colon");
  EXPECT_EQ(read_cell_clock("01.5", raw, problem), std::nullopt);
  EXPECT_EQ(problem, "'01.5' is a number and not a time of the spreadsheet; write it with a colon");
}

struct LengthForm {
  const char* text;
  int unit;
  std::optional<double> seconds;
};

TEST(CellDuration, ReadsWhatPeopleWrite) {
  const std::vector<LengthForm> forms = {
      {"1:30", 0, 5400.0},
      {"0:45", 0, 2700.0},
      {"25:00", 0, 90000.0},
      {"1:30:15", 0, 5415.0},
      {"0:00:10.5", 0, 10.5},
      {"90 min", 0, 5400.0},
      {"90min", 0, 5400.0},
      {"90'", 0, 5400.0},
      {"1h30", 0, 5400.0},
      {"1 h 30 min 15 s", 0, 5415.0},
      {"1.5 h", 0, 5400.0},
      {"PT1H30M", 0, 5400.0},
      {"20 Minuten", 0, 1200.0},
      {"2 Stunden", 0, 7200.0},
      {"3600 s", 0, 3600.0},
      {"2 days", 0, 172800.0},
      {"1 d 2", 0, 93600.0},
      {"1000:00", 0, 3600000.0},
      {"10000:00", 0, std::nullopt},
      {"1:30 pm", 0, std::nullopt},
      {"0.0625", 0, 5400.0},
      {"90", 60, 5400.0},
      {"90.5", 1, 90.5},
      {"1,5", 3600, 5400.0},
      {"", 0, std::nullopt},
      {"long", 0, std::nullopt},
      {"1:60", 0, std::nullopt},
      {"90 miles", 0, std::nullopt},
      {"-5", 60, std::nullopt},
  };
  for (const LengthForm& form : forms) {
    std::string problem;
    EXPECT_EQ(read_cell_duration(form.text, form.unit, {}, problem), form.seconds) << form.text;
    EXPECT_EQ(problem, "") << form.text;
  }
  std::string problem;
  EXPECT_EQ(read_cell_duration("90", 0, {}, problem), std::nullopt);
  EXPECT_EQ(problem, "'90' has no unit; write '90 min' or '90 s'");
  EXPECT_EQ(read_cell_duration("1", 0, {}, problem), std::nullopt);
  EXPECT_EQ(problem, "'1' has no unit; write '1 min' or '1 s'");
}

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
  expect_days("monthly", {
                             {"5", {4}},
                             {"5th", {4}},
                             {"day 5", {4}},
                             {"dom5", {4}},
                             {"1-3", {0, 1, 2}},
                             {"1, 15, 31", {0, 14, 30}},
                             {"1st and 15th", {0, 14}},
                             {"1st Tue", {2}},
                             {"1st and 3rd Tue", {2, 16}},
                             {"1. Dienstag", {2}},
                             {"last Fri", {26}},
                             {"last Tue", {30}},
                             {"5th Sun", {28}},
                             {"1st Sat", {6}},
                             {"1st, 2nd and 3rd Tue", {2, 9, 16}},
                             {"3, 1st and 3rd Tue", {2}},
                             {"31", {30}},
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
      {"weekly", "Mondey", "'mondey' is not understood"},
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

TEST(FoldedLetters, AreThoseWithoutAccents) {
  EXPECT_EQ(folded_letters("ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"),
            "aaaaaaaceeeeiiiiÐnooooo×ouuuuyÞss");
  EXPECT_EQ(folded_letters("àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ"), "aaaaaaaceeeeiiiiðnooooo÷ouuuuyþÿ");
  EXPECT_EQ(folded_letters("A\nZ\r¿"), "a z ¿");
  EXPECT_EQ(folded_letters("a\u00a0b\u202fc\u2009d\u2008e"), "a b c d\u2008e");
  EXPECT_EQ(folded_letters("\u200f\u2010\u2015\u2016"), "\u200f--\u2016");
  EXPECT_EQ(folded_letters("\xe9"), "\xe9");
}

TEST(QuotedCell, IsCutBetweenCharacters) {
  const std::string most(80, 'x');
  const std::string less(79, 'x');
  EXPECT_EQ(quoted_cell(most), "'" + most + "'");
  EXPECT_EQ(quoted_cell(most + "y"), "'" + most + "...'");
  EXPECT_EQ(quoted_cell(less + "éy"), "'" + less + "...'");
  EXPECT_EQ(quoted_cell(most + "é"), "'" + most + "...'");
}

TEST(ColumnNames, InFourLanguages) {
  struct Header {
    const char* text;
    std::optional<TableColumn> column;
  };
  const std::vector<Header> headers = {
      {"item", TableColumn::item},
      {"File Name", TableColumn::item},
      {"Datei", TableColumn::item},
      {"fichier", TableColumn::item},
      {"Archivo", TableColumn::item},
      {"START_TIME", TableColumn::start},
      {"Beginn", TableColumn::start},
      {"Début", TableColumn::start},
      {"Hora de inicio", TableColumn::start},
      {"Ende", TableColumn::end},
      {"Länge", TableColumn::duration},
      {"Duration (min)", TableColumn::duration},
      {"Dauer in Minuten", TableColumn::duration},
      {"Durée", TableColumn::duration},
      {"Item duration [s]", TableColumn::item_duration},
      {"Wochentag", TableColumn::day},
      {"Días", TableColumn::day},
      {"Datum", TableColumn::date},
      {"Event ID", TableColumn::event_id},
      {"event-id", TableColumn::event_id},
      {"Genre", std::nullopt},
      {"Title", std::nullopt},
      {"", std::nullopt},
  };
  for (const Header& header : headers) {
    EXPECT_EQ(find_column(header.text), header.column) << header.text;
  }
}

TEST(ListedWords, AreWholeWords) {
  constexpr std::string_view words = "monday,mondays,mon,all days";
  for (const char* word : {"monday", "mondays", "mon", "all days"}) {
    EXPECT_TRUE(is_listed_word(word, words)) << word;
  }
  for (const char* word :
       {"", "mo", "onday", "day", "days", "all", "mon,all", ",mon", "mon,", ","}) {
    EXPECT_FALSE(is_listed_word(word, words)) << word;
  }
}

TEST(ColumnNames, MayNameAUnit) {
  const auto seconds = [](const char* header) {
    return number_unit_of(folded_word(header)).seconds;
  };
  EXPECT_EQ(seconds("Duration (min)"), 60);
  EXPECT_EQ(seconds("Dauer in Minuten"), 60);
  EXPECT_EQ(seconds("Item duration [s]"), 1);
  EXPECT_EQ(seconds("Length (h)"), 3600);
  EXPECT_EQ(seconds("Length"), 0);
  EXPECT_EQ(seconds("min"), 0);
}

TEST(ColumnNames, EachWordNamesOneColumn) {
  for (const ColumnName& column : column_names()) {
    for (std::string_view rest = column.synonyms; !rest.empty();) {
      const std::string_view word = rest.substr(0, rest.find(','));
      EXPECT_EQ(find_column(word), column.column) << word;
      rest.remove_prefix(std::min(rest.size(), word.size() + 1));
    }
  }
}

}  // namespace
