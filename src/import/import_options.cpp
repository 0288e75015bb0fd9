#include "import/import_options.hpp"

#include <array>
#include <cstdio>
#include <string_view>

#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"
#include "platform/syntax/text_encoding.hpp"
#include "platform/system/clock.hpp"
#include "platform/time/local_clock.hpp"

namespace {

constexpr const char* about =
    "Usage: nv8x_schedule_import [OPTION]... [TABLE]\n"
    "Makes a schedule file of a table, or a table of a schedule file.\n"
    "Without TABLE, or if it is -, standard input is read.\n"
    "\n";
constexpr const char* exit_status =
    "\n"
    "The exit status is 0 if all is done, 1 if there are errors in the table or the\n"
    "schedule, and 2 for a wrong command line or what cannot be read or written.\n";

bool refuse_value(const char* what, const char* value) {
  std::fprintf(stderr, "nv8x_schedule_import: %s '%s'\n", what, value);
  return false;
}

bool take_columns(ImportCommand& command, const char* value) {
  std::string error;
  const auto choices = read_column_choices(value, error);
  if (!choices) {
    std::fprintf(stderr, "nv8x_schedule_import: --columns: %s\n", error.c_str());
    return false;
  }
  command.rows.columns.insert(command.rows.columns.end(), choices->begin(), choices->end());
  return true;
}

bool take_dates(ImportCommand& command, const char* value) {
  command.rows.dates = find_date_order(value);
  return command.rows.dates || refuse_value("unknown order of dates", value);
}

bool take_encoding(ImportCommand& command, const char* value) {
  command.form.encoding = value;
  return is_known_encoding(value) || refuse_value("unknown encoding", value);
}

bool take_separator(ImportCommand& command, const char* value) {
  const std::string_view text = value;
  const char separator = text == "tab" || text == "\\t" ? '\t'
                         : text == "comma"              ? ','
                         : text == "semicolon"          ? ';'
                         : text.size() == 1             ? text.front()
                                                        : '\0';
  command.form.separator = separator;
  const bool is_usable = separator != '\0' && separator != '"' && separator != '\n' &&
                         separator != '\r' && separator != ' ';
  return is_usable || refuse_value("invalid separator", value);
}

bool is_type_with_unit(std::string_view name) {
  const ScheduleType* type = find_schedule_type(name);
  return type != nullptr && type->unit_length > 0;
}

struct ImportOption {
  OptionInfo info;
  /// Prints a message and returns false if the value is wrong.
  bool (*take)(ImportCommand& command, const char* value) = nullptr;
};

constexpr const char* type_words = "daily weekly monthly yearly endless";

bool take_template(ImportCommand& command, const char* value) {
  command.template_type = value;
  return is_type_with_unit(value) || refuse_value("unknown type", value);
}

constexpr std::array<ImportOption, 17> import_options = {{
    {{"aired", nullptr, "with --export, what airs in the unit of the report time"},
     set_flag<&ImportCommand::aired>},
    {{"columns", "LIST",
      "headers of columns that are not known; such as\n"
      "item=Datei,start=Beginn",
      Offer::nothing, Use::repeated},
     take_columns},
    {{"dates", "ORDER", "the order of the numbers in dates", Offer::words, Use::once,
      "DMY MDY YMD"},
     take_dates},
    {{"encoding", "NAME", "encoding of the table (UTF-8), such as Windows-1252"}, take_encoding},
    {{"export", "SCHEDULE", "print the table of a schedule instead", Offer::files},
     set_text<&ImportCommand::schedule>},
    {{"format", "FORMAT", "print findings as text (the default) or json", Offer::words, Use::once,
      "text json"},
     [](ImportCommand& command, const char* value) {
       command.json = std::string_view(value) == "json";
       return command.json || std::string_view(value) == "text" ||
              refuse_value("unknown format", value);
     }},
    {{"max", "N", "print at most N findings (100)"},
     [](ImportCommand& command, const char* value) {
       return parse_whole_number(value, command.max_findings) ||
              refuse_value("invalid number", value);
     }},
    {{"no-media", nullptr, "do not look at media files"},
     [](ImportCommand& command, const char*) {
       command.media = false;
       return true;
     }},
    {{"output", "FILE", "replace FILE instead of writing to standard output", Offer::files},
     set_text<&ImportCommand::output>},
    {{"separator", "CHAR", "comma, semicolon, tab or another character (found out)"},
     take_separator},
    {{"sidecars", "FOLDER", "write other columns to the sidecars of the items below FOLDER",
      Offer::files},
     set_text<&ImportCommand::sidecars>},
    {{"strict", nullptr, "count warnings as errors"}, set_flag<&ImportCommand::strict>},
    {{"template", "TYPE", "print a table with a header and examples", Offer::words, Use::once,
      type_words},
     take_template},
    {{"time", "SECONDS", "the report time, in seconds since 1970"},
     [](ImportCommand& command, const char* value) {
       return parse_whole_number(value, command.report_time) || refuse_value("invalid time", value);
     }},
    {{"type", "TYPE", "the type of the schedule if no row names it", Offer::words, Use::once,
      type_words},
     [](ImportCommand& command, const char* value) {
       command.rows.type = value;
       return is_type_with_unit(value) || refuse_value("unknown type", value);
     }},
    {{"help", nullptr, "print this and exit", Offer::nothing, Use::alone}},
    {{"version", nullptr, "print the version and exit", Offer::nothing, Use::alone}},
}};

CellDate local_date_of(time_t t) {
  LocalClock clock;
  const std::tm* tm = clock.breakdown(t);
  return tm != nullptr ? CellDate{tm->tm_year + 1900, tm->tm_mon + 1, tm->tm_mday}
                       : CellDate{1970, 1, 1};
}

}  // namespace

ProgramInfo import_program() {
  return {.name = "nv8x_schedule_import",
          .options = options_of(import_options),
          .operands = Offer::files,
          .version = NV8X_VERSION,
          .about = about,
          .status = exit_status};
}

std::optional<ImportCommand> parse_import_command(int argc, char** argv, int& status) {
  const ProgramInfo program = import_program();
  ImportCommand command;
  const auto tables = parse_command_line(
      program, argc, argv,
      [&](size_t place, const char* value) {
        return import_options.at(place).take(command, value);
      },
      status);
  if (!tables) {
    return std::nullopt;
  }
  if (tables->size() > 1) {
    status = refuse_command_line(program, "more than one table is given");
    return std::nullopt;
  }
  if (!tables->empty()) {
    command.table = tables->front();
  }
  if (command.report_time == 0) {
    command.report_time = current_time();
  }
  command.rows.today = local_date_of(command.report_time);
  return command;
}
