#include "platform/syntax/command_line.hpp"

#include <gtest/gtest.h>

#include <array>

namespace {

struct Row {
  OptionInfo info;
};

constexpr std::array<Row, 7> rows = {{
    {{"colour", "NAME", "paint it (red); one\nof the rainbow's", Offer::words, Use::once,
      "red blue"}},
    {{"very-long-name-of-an-option", nullptr, "stretch the column"}},
    {{"secret", nullptr}},
    {{"count", "N", "count to N"}},
    {{"motto", nullptr, "print the motto", Offer::nothing, Use::alone}},
    {{"help", nullptr, "print this", Offer::nothing, Use::alone}},
    {{"version", nullptr, "print the version", Offer::nothing, Use::alone}},
}};

ProgramInfo painter() {
  return {.name = "painter",
          .options = options_of(rows),
          .operands = Offer::files,
          .version = "1.2",
          .about = "Usage: painter [OPTION]...\n\n",
          .status = "\nThat is all.\n",
          .usage_status = 3};
}

/// What came of a command line, as one text.
struct Outcome {
  std::string applied;   ///< "NAME=VALUE " for each option
  std::string operands;  ///< each with a blank behind it, or "none" when there is no command
  std::string out;
  std::string err;
  int status = -1;

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  return stream << "applied: " << outcome.applied << "\noperands: " << outcome.operands
                << "\nout: " << outcome.out << "\nerr: " << outcome.err
                << "\nstatus: " << outcome.status;
}

Outcome outcome_of(const ProgramInfo& program, std::vector<std::string> words) {
  words.insert(words.begin(), "bin/painter");
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) {
    argv.push_back(word.data());
  }
  argv.push_back(nullptr);
  Outcome outcome;
  const auto apply = [&](size_t place, const char* value) {
    const std::string name = program.options.at(place).name;
    outcome.applied += name + "=" + (value != nullptr ? value : "") + " ";
    return value == nullptr || std::string(value) != "wrong";
  };
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const auto operands = parse_command_line(program, static_cast<int>(words.size()), argv.data(),
                                           apply, outcome.status);
  outcome.out = testing::internal::GetCapturedStdout();
  outcome.err = testing::internal::GetCapturedStderr();
  outcome.operands = operands ? "" : "none";
  for (const std::string& operand : operands.value_or(std::vector<std::string>())) {
    outcome.operands += operand + " ";
  }
  return outcome;
}

Outcome refused(const std::string& applied, const std::string& message) {
  return {applied, "none", "", message + "Try 'painter --help'.\n", 3};
}

}  // namespace

TEST(CommandLine, TakesOptionsInTheirOrderAndOperandsBetweenThem) {
  EXPECT_EQ(outcome_of(painter(), {"a", "--colour=red", "b", "--count", "2", "--sec", "--", "--c"}),
            (Outcome{"colour=red count=2 secret= ", "a b --c ", "", "", 0}));
  EXPECT_EQ(outcome_of(painter(), {}), (Outcome{"", "", "", "", 0}));
}

TEST(CommandLine, PrintsTheHelpInOneColumn) {
  EXPECT_EQ(outcome_of(painter(), {"--count=1", "--help", "--unheard-of"}),
            (Outcome{"count=1 ", "none",
                     "Usage: painter [OPTION]...\n\n"
                     "      --colour=NAME                  paint it (red); one\n"
                     "                                     of the rainbow's\n"
                     "      --very-long-name-of-an-option  stretch the column\n"
                     "      --count=N                      count to N\n"
                     "      --motto                        print the motto\n"
                     "      --help                         print this\n"
                     "      --version                      print the version\n"
                     "\nThat is all.\n",
                     "", 0}));
  ProgramInfo brief = painter();
  brief.options = {{"count", "N", "count to N"},
                   {"help", nullptr, "print this", Offer::nothing, Use::alone}};
  EXPECT_EQ(outcome_of(brief, {"--help"}).out,
            "Usage: painter [OPTION]...\n\n"
            "      --count=N          count to N\n"
            "      --help             print this\n"
            "\nThat is all.\n");
}

TEST(CommandLine, EndsWithWhatStandsAlone) {
  EXPECT_EQ(outcome_of(painter(), {"--version", "--motto"}),
            (Outcome{"", "none", "painter 1.2\n", "", 0}));
  EXPECT_EQ(outcome_of(painter(), {"--motto", "--version"}),
            (Outcome{"motto= ", "none", "", "", 0}));
}

TEST(CommandLine, NamesTheOptionThatIsNearest) {
  EXPECT_EQ(outcome_of(painter(), {"--coutn", "2"}),
            refused("", "bin/painter: unrecognized option '--coutn'\nDid you mean '--count'?\n"));
  EXPECT_EQ(
      outcome_of(painter(), {"--color=red"}),
      refused("", "bin/painter: unrecognized option '--color=red'\nDid you mean '--colour'?\n"));
}

TEST(CommandLine, GivesNoAdviceWhereItHasNone) {
  EXPECT_EQ(outcome_of(painter(), {"--bogus"}),
            refused("", "bin/painter: unrecognized option '--bogus'\n"));
  EXPECT_EQ(outcome_of(painter(), {"--co"}),
            refused("",
                    "bin/painter: option '--co' is ambiguous; possibilities: '--colour' "
                    "'--count'\n"));
  EXPECT_EQ(outcome_of(painter(), {"-c"}), refused("", "bin/painter: invalid option -- 'c'\n"));
  EXPECT_EQ(outcome_of(painter(), {"--count"}),
            refused("", "bin/painter: option '--count' requires an argument\n"));
  EXPECT_EQ(outcome_of(painter(), {"--motto=x"}),
            refused("", "bin/painter: option '--motto' doesn't allow an argument\n"));
}

TEST(CommandLine, StopsAtAWrongValue) {
  EXPECT_EQ(outcome_of(painter(), {"--colour=wrong", "--count=2", "--help"}),
            refused("colour=wrong ", ""));
}

TEST(CommandLine, RefusesOperandsOfAProgramWithoutThem) {
  ProgramInfo program = painter();
  program.operands = Offer::nothing;
  EXPECT_EQ(outcome_of(program, {"--count=1", "x", "y"}),
            refused("count=1 ", "painter: 'x' is not an option\n"));
}

TEST(CommandLine, ShortensTheHelpForShells) {
  EXPECT_EQ(short_help({"a", nullptr, "days (14)"}), "days");
  EXPECT_EQ(short_help({"a", nullptr, "as text (the default) or json"}), "as text or json");
  EXPECT_EQ(short_help({"a", nullptr, "tell why; WHEN\nas (a) time"}), "tell why");
  EXPECT_EQ(short_help({"a", nullptr, "a (half"}), "a (half");
}

TEST(CommandLine, TakesWholeNumbersOnly) {
  int number = 0;
  EXPECT_TRUE(parse_whole_number("-12", number));
  EXPECT_EQ(number, -12);
  for (const char* text : {"", "12x", " 12", "1.5", "99999999999"}) {
    EXPECT_FALSE(parse_whole_number(text, number)) << text;
  }
  size_t count = 0;
  EXPECT_FALSE(parse_whole_number("-1", count));
}
