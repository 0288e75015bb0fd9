// The forms in which people write times, lengths and headers.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "import/cell_clock.hpp"
#include "import/column_names.hpp"
#include "import/folded_word.hpp"

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
