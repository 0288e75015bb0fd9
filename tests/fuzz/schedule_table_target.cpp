// A table, read as the importer does, and written again.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.hpp"
#include "import/export_table.hpp"
#include "import/read_table.hpp"
#include "import/schedule_text.hpp"
#include "import/table_reader.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

constexpr size_t longest_line = 1000;  // longer ones are read as several

/// What the first two bytes ask for.
struct Asked {
  TableForm form;
  TableOptions rows;
  bool are_raw;
};

Asked asked_by(std::string_view input) {
  static const std::vector<const char*> types = {"",        "daily",  "weekly",
                                                 "monthly", "yearly", "endless"};
  static const std::vector<std::optional<DateOrder>> orders = {
      std::nullopt, DateOrder::day_month_year, DateOrder::month_day_year,
      DateOrder::year_month_day};
  const auto one = static_cast<unsigned char>(input[0]);
  const auto other = static_cast<unsigned char>(input[1]);
  Asked asked;
  asked.rows.type = types.at(one % types.size());
  asked.rows.dates = orders.at(other % orders.size());
  asked.rows.today = {2026, 3, 5};
  asked.form.encoding = other / 4 % 8 == 1 ? "Windows-1252" : "";
  asked.are_raw = other / 32 % 2 == 1;
  return asked;
}

bool has_error(const std::vector<Finding>& findings) {
  return std::ranges::any_of(findings, [](const Finding& finding) {
    return info_of(finding.kind).severity == Severity::error;
  });
}

void require_places(const std::vector<Finding>& findings) {
  for (const Finding& finding : findings) {
    require(finding.place.line >= 1 && finding.place.column >= 1, "a finding has a place");
    require(!finding.text.empty(), "a finding has a text");
    for (const Note& note : finding.notes) {
      require(note.place.line >= 1 && note.place.column >= 1, "a note has a place");
    }
  }
}

/// The schedule that a table makes; nothing when there is an error.
std::optional<ScheduleText> schedule_of(const Table& table, const TableOptions& options,
                                        std::vector<Finding>& findings) {
  const auto header = find_table_header(table, {}, findings);
  const auto rules = header ? rules_of_table(table, *header, options, findings) : std::nullopt;
  if (!rules) {
    require(has_error(findings), "what is not read has a finding");
    return std::nullopt;
  }
  const MadeSchedule made = read_table_rows(*rules, findings);
  for (const auto* sections : {&made.items, &made.blocks}) {
    for (const MadeSection& section : *sections) {
      require(section.start < section.end && section.end <= made.type->unit_length,
              "what is made lies in the unit");
    }
  }
  return has_error(findings) ? std::nullopt
                             : std::optional(schedule_text(made, *rules, "table.csv"));
}

std::unique_ptr<Schedule> read_back(const std::string& text) {
  auto schedule = std::make_unique<Schedule>();
  ScheduleFile file{std::string_view(text)};
  ScheduleBuilder builder(*schedule);
  SchedulePart part;
  while (file.next(part)) {
    builder.add_part(part);
  }
  builder.finish();
  return schedule;
}

bool has_long_line(std::string_view text) {
  while (text.size() > longest_line) {
    const size_t end = text.find('\n');
    if (end > longest_line) {  // also without a line feed
      return true;
    }
    text.remove_prefix(end + 1);
  }
  return false;
}

std::string table_text(const Schedule& schedule) {
  std::vector<std::string> warnings;
  std::string text = table_of(schedule, ',', warnings);
  require(warnings.empty(), "the importer makes nothing that ends before it starts");
  return text;
}

}  // namespace

void run_target(std::string_view input) {
  if (input.size() < 2) {
    return;
  }
  const Asked asked = asked_by(input);
  std::vector<Finding> findings;
  auto table = table_of_text(input.substr(2), asked.form, findings);
  require(table || has_error(findings), "a table that is not read has a finding");
  if (table) {
    table->has_raw_numbers = asked.are_raw;
    const auto made = schedule_of(*table, asked.rows, findings);
    if (made && !has_long_line(made->text)) {
      const auto lines = std::ranges::count(made->text, '\n');
      require(static_cast<size_t>(lines) == made->places.size(), "each line has its place");
      const std::string first = table_text(*read_back(made->text));
      std::vector<Finding> again;
      const auto table_again = table_of_text(first, {}, again);
      const auto remade = table_again ? schedule_of(*table_again, {}, again) : std::nullopt;
      require(remade.has_value(), "the table of a schedule makes a schedule");
      require(table_text(*read_back(remade->text)) == first, "and the same one");
    }
  }
  require_places(findings);
}
