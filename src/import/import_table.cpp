#include "import/import_table.hpp"

#include <algorithm>
#include <utility>

#include "import/check_made_schedule.hpp"
#include "import/read_table.hpp"
#include "import/schedule_text.hpp"
#include "import/table_reader.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "schedule/watchdog.hpp"

namespace {

bool has_failing(const std::vector<Finding>& findings, bool strict) {
  return std::ranges::any_of(findings, [strict](const Finding& finding) {
    return strict || info_of(finding.kind).severity == Severity::error;
  });
}

/// The names of the columns that the table does not have.
std::vector<std::string_view> missing_columns(const TableHeader& header) {
  std::vector<std::string_view> names;
  for (const ColumnName& column : column_names()) {
    if (header.column_of(column.column) == 0) {
      names.push_back(column.name);
    }
  }
  return names;
}

void warn_of_unused_columns(const TableHeader& header, std::vector<Finding>& findings) {
  const std::vector<std::string_view> missing = missing_columns(header);
  for (const OtherColumn& other : header.others) {
    const std::string advice =
        is_metadata_name(other.name) ? std::string() : did_you_mean(other.name, missing);
    findings.push_back(
        {FindingKind::unused_column,
         {header.row, other.column},
         "the column " + quoted(other.name) + " has no place in a schedule and is not used" +
             (advice.empty() ? "; with --sidecars it goes to the sidecars of the items" : advice),
         {}});
  }
}

bool makes_nothing(const MadeSchedule& made) {
  return made.items.empty() && made.blocks.empty() && made.defaults.empty() &&
         made.global_default_row == 0;
}

/// The text of the schedule, not checked yet, and the sidecars.
struct UncheckedSchedule {
  ScheduleText schedule;
  std::vector<MadeSidecar> sidecars;
};

/// Nothing when the rows have an error.
std::optional<UncheckedSchedule> unchecked_schedule(const Table& table,
                                                    const ImportCommand& command,
                                                    std::vector<Finding>& findings) {
  const auto header = find_table_header(table, command.rows.columns, findings);
  if (!header) {
    return std::nullopt;
  }
  if (command.sidecars.empty()) {
    warn_of_unused_columns(*header, findings);
  }
  const std::optional<TableRules> rules = rules_of_table(table, *header, command.rows, findings);
  if (!rules) {
    return std::nullopt;
  }
  const MadeSchedule made = read_table_rows(*rules, findings);
  if (has_failing(findings, false)) {
    return std::nullopt;
  }
  if (makes_nothing(made)) {
    findings.push_back({FindingKind::missing, {header->row, 1}, "the table has no rows", {}});
    return std::nullopt;
  }
  UncheckedSchedule written;
  written.schedule = schedule_text(made, *rules, command.table);
  if (!command.sidecars.empty()) {
    written.sidecars = sidecars_of_table(table, *header, command.sidecars, command.table, findings);
  }
  return written;
}

}  // namespace

std::optional<ImportedTable> import_table(const ImportCommand& command, FileFindings& findings,
                                          std::string& error) {
  findings = {command.table, {}};
  TableForm form = command.form;
  form.columns = command.rows.columns;
  std::optional<Table> table = read_table(command.table, form, error, findings.findings);
  if (!table) {
    return std::nullopt;
  }
  arm_watchdog();  // not earlier: standard input may take its time
  std::optional<UncheckedSchedule> written = unchecked_schedule(*table, command, findings.findings);
  table.reset();  // the checks can use its memory
  if (written) {
    const std::vector<Finding> checked =
        check_made_schedule(written->schedule, command.output, command.media, command.report_time);
    findings.findings.insert(findings.findings.end(), checked.begin(), checked.end());
  }
  cancel_watchdog();
  sort_findings(findings);
  if (!written || has_failing(findings.findings, command.strict)) {
    return std::nullopt;
  }
  return ImportedTable{std::move(written->schedule.text), std::move(written->sidecars)};
}
