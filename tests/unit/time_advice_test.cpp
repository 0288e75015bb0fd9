// What the checker makes of invalid times.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "checks/corrected_word.hpp"
#include "checks/odd_characters.hpp"
#include "checks/span_advice.hpp"
#include "checks/time_advice.hpp"
#include "checks/time_guess.hpp"
#include "platform/syntax/utf_8.hpp"

namespace {

TEST(TimeAdvice, KnowsTheLastDayOfEachMonth) {
  const ScheduleType& type = *find_schedule_type("yearly");
  const auto says = [&](const std::string& text) {
    const std::vector<TimeAdvice> advice = advise_on_time(text, type);
    return advice.empty() ? "" : advice.front().text;
  };
  for (const std::string month : {"Jan", "Mar", "May", "Jul", "Aug", "Oct", "Dec"}) {
    EXPECT_EQ(says(month + " 31 1:00"), "");
  }
  const std::vector<std::string> short_months = {"April",     "May",     "June",     "July",
                                                 "September", "October", "November", "December"};
  for (size_t i = 0; i < short_months.size(); i += 2) {
    EXPECT_EQ(says(short_months[i] + " 30 1:00"), "");
    EXPECT_EQ(says(short_months[i] + " 31 1:00"),
              short_months[i] + " has no day 31; it airs on " + short_months[i + 1] + " 1");
  }
  EXPECT_EQ(says("Feb 29 1:00"), "");
  EXPECT_EQ(
      says("Feb 30 1:00"),
      "February has no day 30; it airs on March 1, or a day later where February has no 29th");
  EXPECT_EQ(
      says("Feb 31 1:00"),
      "February has no day 31; it airs on March 2, or a day later where February has no 29th");
}

TEST(TimeAdvice, GivesAnEndAfterMidnightTheNextDay) {
  const std::vector<TimeAdvice> advice =
      advise_on_time("Mon 23:00-1:00", *find_schedule_type("weekly"));
  ASSERT_EQ(advice.size(), 1U);
  EXPECT_EQ(advice.front().text,
            "'Mon 23:00-1:00' are two times; write 'start = Mon 23:00' and 'end = Tue 01:00'");
}

TEST(TimeAdvice, TakesTwoTimesWithColonsAloneForAStartAndAnEnd) {
  for (const std::string text :
       {"Mon 18:00-19", "18-Mon 19:00", "x 18:00-19:00", "18:00-19:00 x"}) {
    const std::vector<TimeAdvice> advice = advise_on_time(text, *find_schedule_type("weekly"));
    ASSERT_EQ(advice.size(), 1U) << text;
    EXPECT_EQ(advice.front().end_time, "") << text;
  }
}

TEST(TimeAdvice, TakesHoursTo35ForTheNextDay) {
  const auto position = [](const std::string& text) {
    const std::vector<TimeAdvice> advice = advise_on_time(text, *find_schedule_type("weekly"));
    return advice.empty() ? std::nullopt : advice.front().position;
  };
  constexpr uint64_t tuesday = 2UL * seconds_per_day;
  EXPECT_EQ(position("Mon 24:01"), tuesday + 60);
  EXPECT_EQ(position("Mon 35:59:59"), tuesday + 43199);
  EXPECT_EQ(position("Mon 36:00"), std::nullopt);
  EXPECT_EQ(position("Mon 99:00"), std::nullopt);
}

TEST(TimeAdvice, FindsTheColonThatAnotherSignStandsFor) {
  const auto says = [](const std::string& text) {
    const std::vector<TimeAdvice> advice = advise_on_time(text, *find_schedule_type("weekly"));
    return advice.empty() ? "" : advice.front().text;
  };
  for (const std::string sign : {",", ";", "-", "_", "'", " "}) {
    EXPECT_EQ(says("Mon 6" + sign + "30 pm"),
              "'6" + sign + "30' is not understood; did you mean '06:30'?");
  }
  EXPECT_EQ(says("Mon 18,05"), "'18,05' is not understood; did you mean '18:05'?");
  EXPECT_EQ(says("Mon 18,37"), "'18,37' is not understood; did you mean '18:37'?");
  EXPECT_EQ(says("Mon 18 37"), "invalid time 'Mon 18 37'");
  EXPECT_EQ(says("Mon 6,30pm"), "invalid time 'Mon 6,30pm'");
  EXPECT_EQ(says("Mon 18,60"), "invalid time 'Mon 18,60'");
  EXPECT_EQ(says("Mon 25:00:"), "'25:00:' is not understood");
  EXPECT_EQ(says("Mon 25:000"), "'25:000' is not understood");
}

TEST(TimeAdvice, TakesAllOfALetterWithAnAccentForAPartOfTheWord) {
  const std::vector<TimeAdvice> advice =
      advise_on_time("Mon \u00c0tue 18:00", *find_schedule_type("weekly"));
  ASSERT_EQ(advice.size(), 1U);
  EXPECT_EQ(advice.front().text, "'\u00c0tue' is not understood");
}

TEST(SpanAdvice, GoesFromTheLastDayOfAMonthToTheFirstOfTheNext) {
  const auto follow = [](std::string_view type_name, const std::string& before,
                         const std::string& next) {
    const ScheduleType& type = *find_schedule_type(type_name);
    const uint64_t position = position_of(before, type).value_or(0);
    const uint64_t next_position = position_of(next, type).value_or(0);
    EXPECT_EQ(a_day_later(position, type), next_position) << before;
    EXPECT_EQ(a_day_earlier(next_position, type), position) << next;
  };
  const std::vector<std::string> days = {
      "Jan 30", "Jan 31", "Feb 1", "Feb 28", "Feb 29", "Mar 1", "Mar 30", "Mar 31", "Apr 1",
      "Apr 29", "Apr 30", "May 1", "May 30", "May 31", "Jun 1", "Jun 29", "Jun 30", "Jul 1",
      "Jul 30", "Jul 31", "Aug 1", "Aug 30", "Aug 31", "Sep 1", "Sep 29", "Sep 30", "Oct 1",
      "Oct 30", "Oct 31", "Nov 1", "Nov 29", "Nov 30", "Dec 1", "Dec 30", "Dec 31"};
  for (size_t i = 1; i < days.size(); ++i) {
    if (i % 3 != 0) {
      follow("yearly", days[i - 1], days[i]);
    }
  }
  follow("endless", "2023-02-28", "2023-03-01");
  follow("endless", "2024-02-28", "2024-02-29");
  follow("endless", "2024-02-29", "2024-03-01");
  follow("endless", "2025-02-28", "2025-03-01");
  follow("endless", "2025-03-31", "2025-04-01");
  follow("monthly", "day 30", "day 31");
}

TEST(OddCharacters, AreBlanksOfAnyWidthAndWhatHasNone) {
  const auto between = [](uint32_t c) {
    std::string text = "5";
    append_utf_8(text, c);
    return text + "6";
  };
  for (const uint32_t c : {0xa0U, 0x2000U, 0x200aU, 0x202fU, 0x205fU, 0x3000U}) {
    EXPECT_EQ(with_plain_characters(between(c)), "5 6") << c;
  }
  for (const uint32_t c : {0xadU, 0x200bU, 0x200fU, 0x2028U, 0x202eU, 0x2060U, 0x206fU, 0xfeffU}) {
    EXPECT_EQ(with_plain_characters(between(c)), "56") << c;
  }
  for (const uint32_t c : {0x9fU, 0xa1U, 0xacU, 0xaeU, 0x1fffU, 0x2010U, 0x2027U, 0x2030U, 0x205eU,
                           0x2070U, 0x2fffU, 0x3001U, 0xfefeU, 0xff00U}) {
    EXPECT_EQ(with_plain_characters(between(c)), between(c)) << c;
  }
  EXPECT_EQ(with_odd_characters_shown(between(0xa0)), "5\\u00a06");
  EXPECT_EQ(with_odd_characters_shown("5\xff"
                                      "6"),
            "5\xff"
            "6");
}

TEST(OddCharacters, AreLettersOfAnotherScriptAmongLatinOnes) {
  EXPECT_EQ(with_plain_characters("qΑΒΕΖΗΙΚΜΝΟΡΤΥΧοЅІЈАВЕКМНОРСТХаеорсухѕіј"),
            "qABEZHIKMNOPTYXoSIJABEKMHOPCTXaeopcyxsij");
  EXPECT_EQ(with_plain_characters("СТОП"), "СТОП");
  EXPECT_EQ(with_odd_characters_shown("qд"), "q\\u0434");
  for (const std::string letter : {"a", "z", "A", "Z", "À", "ɏ"}) {
    EXPECT_EQ(with_plain_characters("о" + letter), "o" + letter);
  }
  for (const std::string sign : {"`", "{", "@", "[", "¿", "ɐ"}) {
    EXPECT_EQ(with_plain_characters("о" + sign), "о" + sign);
  }
  EXPECT_EQ(with_odd_characters_shown("q\u0370\u052f"), "q\\u0370\\u052f");
  EXPECT_EQ(with_odd_characters_shown("q\u036f\u0530"), "q\u036f\u0530");
}

using Guesses = std::vector<std::pair<const char*, std::optional<std::string>>>;

TEST(TimeGuess, PutsADateInOrder) {
  const Guesses dates = {
      {"05.03.2026", "2026-03-05"}, {"5.3.", "Mar 5"},
      {"5.3.26", "2026-03-05"},     {"1.1.1900", "1900-01-01"},
      {"31/12/2026", "2026-12-31"}, {"12/31/2026", "2026-12-31"},
      {"13/3", "Mar 13"},           {"31-12", "Dec 31"},
      {"5.3", std::nullopt},        {"18.30", std::nullopt},
      {"3/13", std::nullopt},       {"12/25", std::nullopt},
      {"5/3/2026", std::nullopt},   {"5/12/2026", std::nullopt},
      {"5/13/2026", "2026-05-13"},  {"12/32/2026", std::nullopt},
      {"0/31/2026", std::nullopt},  {"32.3.2026", std::nullopt},
      {"0.1.2026", std::nullopt},   {"1.0.2026", std::nullopt},
      {"1.13.2026", std::nullopt},  {"31.12.1899", std::nullopt},
      {"123.1.2026", std::nullopt}, {"1.123.2026", std::nullopt},
      {"005.3.2026", std::nullopt}, {"5.003.2026", std::nullopt},
      {"1.2/2026", std::nullopt},   {"1.2.3.4", std::nullopt},
      {"5.", std::nullopt},         {"", std::nullopt},
  };
  for (const auto& [text, meant] : dates) {
    EXPECT_EQ(reordered_date(text), meant) << text;
  }
}

TEST(TimeGuess, CorrectsAWord) {
  const Guesses words = {
      {"Uhr", ""},
      {"o'clock", ""},
      {"5.", "5"},
      {"12.", "12"},
      {"18.30", "18:30"},
      {"8h", "08:00"},
      {"18h", "18:00"},
      {"18h30", "18:30"},
      {"18:5", "18:05"},
      {"18:5:7", "18:05:07"},
      {"1800", "18:00"},
      {"20261231", "2026-12-31"},
      {"20261301", "20261301"},
      {"20261232", "20261232"},
      {"2400", "2400"},
      {"1860", "1860"},
      {"24.00", "24:00"},
      {"25.00", "25.00"},
      {"9.30", "09:30"},
      {"123.30", "123.30"},
      {"18.60", "18.60"},
      {"18.305", "18.305"},
      {"18:00pm", "18:00"},
      {"6:00pm", "6:00pm"},
      {"18:00x", "18:00x"},
      {"18:00uhr", "18:00"},
      {"18.00uhr", "18:00"},
      {"pm", "pm"},
      {"Mon", "Mon"},
      {"Mon.", "Mon"},
      {"Montag", "Mon"},
      {"Mondey", "Mondey"},
      {"Janury", "January"},
      {"märz", "Mar"},
      {"Mon18:00", "Mon 18:00"},
      {"Mo18.30", "Mon 18:30"},
      {"18:00:00:12", "18:00:00"},
      {"18:00:00:12:1", "18:00:00:12:1"},
      {"18:00:", "18:00:"},
      {"05.03.2026", "2026-03-05"},
  };
  for (const auto& [text, meant] : words) {
    EXPECT_EQ(corrected_word(text), meant) << text;
  }
}

TEST(TimeGuess, WritesTheDateBeforeTheClock) {
  const Guesses texts = {
      {"=18:5", "18:05"},
      {" = 18:00 ", "18:00"},
      {"18h den 05.03.2026", "2026-03-05 18:00"},
      {"Montag um 6 Uhr", "Mon 06:00"},
      {"6:00 pm Mon", "Mon 6:00 pm"},
      {"18:00 pm Mon", "Mon 18:00"},
      {"um", std::nullopt},
      {"", std::nullopt},
      {"soon", std::nullopt},
  };
  for (const auto& [text, meant] : texts) {
    EXPECT_EQ(guess_time(text), meant) << text;
  }
}

TEST(TimeGuess, KeepsWhatTheTypeCounts) {
  const auto expect = [](std::string_view type, const Guesses& texts) {
    for (const auto& [text, fitted] : texts) {
      EXPECT_EQ(fitted_to_type(text, *find_schedule_type(type)), fitted) << type << ": " << text;
    }
  };
  const std::string whole = "2026-03-05 18:00";  // a Thursday
  expect("daily", {{"18:00", "18:00"}, {whole.c_str(), "18:00"}, {"Mon 25:00", std::nullopt}});
  expect("weekly", {{"18:00", "18:00"},
                    {whole.c_str(), "Thu 18:00"},
                    {"Mon 18:00", "Mon 18:00"},
                    {"Thu Mar 5 18:00", "Thu 18:00"},
                    {"Mar 5 18:00", std::nullopt},
                    {"Mon 25:00", std::nullopt}});
  expect("monthly", {{whole.c_str(), "day 5 18:00"},
                     {"5 18:00", "5 18:00"},
                     {"Thu Mar 5 18:00", "day 5 18:00"},
                     {"Mon 18:00", std::nullopt},
                     {"day 5 25:00", std::nullopt}});
  expect("yearly", {{whole.c_str(), "Mar 5 18:00"},
                    {"Mar 5 18:00", "Mar 5 18:00"},
                    {"Thu Mar 5 18:00", "Mar 5 18:00"},
                    {"day 5 18:00", std::nullopt},
                    {"Mar 5 25:00", std::nullopt}});
  expect("endless", {{whole.c_str(), whole},
                     {"Thu 2026-03-05 18:00", "Mar 5 2026 18:00"},
                     {"Mar 5 18:00", std::nullopt},
                     {"2026-03-05 25:00", std::nullopt}});
}

}  // namespace
