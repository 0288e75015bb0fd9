#include "import/row_times.hpp"

#include <cmath>
#include <cstdlib>
#include <utility>

#include "checks/time_advice.hpp"
#include "import/folded_word.hpp"
#include "import/written_position.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/written_time.hpp"

namespace {

/// A day and a clock, of which the day may be missing, or plain schedule seconds.
struct CellTime {
  std::string_view day;
  int second = 0;
  std::optional<uint64_t> position = {};
};

/// The most that a row may last: longer than any programme, shorter than the shortest month.
constexpr double longest_duration = 27.0 * seconds_per_day;

constexpr size_t longest_time = 200;  // longer cells hold something else

/// Many programs write a date as its midnight: "2026-03-05 00:00:00".
std::string_view without_midnight(std::string_view text) {
  const size_t at = text.find_last_of(" T");
  if (at == std::string_view::npos || text.find(':', at) == std::string_view::npos) {
    return text;
  }
  const auto clock = read_clock(text.substr(at + 1));
  const bool is_midnight = clock && clock->hour == 0 && clock->minute == 0 && clock->second == 0;
  return is_midnight ? strip_blanks(text.substr(0, at)) : text;
}

/// What is wrong with a time that is not understood, in the words of the checker where it has some.
Finding finding_of_time(const Place& place, std::string_view text, bool is_end) {
  if (text.size() > longest_time) {
    return {FindingKind::bad_time, place, "invalid time " + quoted_cell(text), {}};
  }
  const auto advice = advise_on_time(text, *find_schedule_type("daily"));
  const FindingKind kind = advice.empty() ? FindingKind::bad_time : advice.front().kind;
  if (kind == FindingKind::out_of_range && advice.front().position) {
    const auto second = static_cast<uint32_t>(*advice.front().position % seconds_per_day);
    return {kind,
            place,
            quoted_cell(text) + " is out of range: clocks run from 00:00 to 24:00; write " +
                quoted(clock_text(second)) +
                (is_end ? ", which is on the next day if it is before the start"
                        : " in a row of the next day"),
            {}};
  }
  const bool is_known = kind == FindingKind::bad_time || kind == FindingKind::out_of_range;
  return advice.empty() || !is_known
             ? Finding{FindingKind::bad_time, place, "invalid time " + quoted_cell(text), {}}
             : Finding{kind, place, advice.front().text, {}};
}

class RowReader {
 public:
  RowReader(const TableRules& rules, int64_t row, KnownDayCells& known,
            std::vector<Finding>& findings)
      : rules_(rules), row_(row), known_(known), findings_(findings) {}

  std::optional<RowTimes> read() {
    RowTimes times;
    const std::optional<CellTime> start = read_time(TableColumn::start);
    if (!start) {
      return std::nullopt;
    }
    times.start = static_cast<uint32_t>(start->second);
    auto days = start->position      ? read_day_of(*start->position)
                : start->day.empty() ? read_days()
                                     : read_own_days(TableColumn::start, start->day);
    if (!days || !read_end(times)) {
      return std::nullopt;
    }
    times.days = *std::move(days);
    return times;
  }

  std::optional<std::vector<uint32_t>> read_days() {
    std::vector<DayTerm> terms;
    TableColumn given = rules_.header.column_of(TableColumn::day) > 0    ? TableColumn::day
                        : rules_.header.column_of(TableColumn::date) > 0 ? TableColumn::date
                                                                         : TableColumn::start;
    for (const TableColumn column : {TableColumn::day, TableColumn::date}) {
      const std::string_view text = cell(column);
      auto found = terms_of(column, without_midnight(text));
      if (!found) {
        return std::nullopt;
      }
      given = text.empty() ? given : column;
      terms.insert(terms.end(), found->begin(), found->end());
    }
    return days_of(given, terms);
  }

 private:
  std::string_view cell(TableColumn column) const {
    return strip_blanks(rules_.cell(row_, column));
  }

  std::nullopt_t add(FindingKind kind, TableColumn column, std::string text) {
    findings_.push_back({kind, rules_.place(row_, column), std::move(text), {}});
    return std::nullopt;
  }

  std::optional<std::vector<DayTerm>> terms_of(TableColumn column, std::string_view text) {
    const auto [known, is_new] = known_.try_emplace(std::string(text));
    auto& [terms, problem] = known->second;
    if (is_new) {
      terms = read_day_terms(text, rules_.dates, problem);
    }
    if (!terms) {
      const bool is_ambiguous = problem.find("--dates") != std::string::npos;
      return add(is_ambiguous ? FindingKind::ambiguous : FindingKind::bad_day, column, problem);
    }
    return terms;
  }

  std::optional<std::vector<uint32_t>> days_of(TableColumn column,
                                               const std::vector<DayTerm>& terms) {
    std::string problem;
    auto days = days_of_terms(terms, rules_.days, problem);
    if (!days) {
      const bool is_missing = terms.empty();
      return add(is_missing ? FindingKind::missing : FindingKind::bad_day, column, problem);
    }
    return days;
  }

  bool has_one_day() {
    const bool has_one = cell(TableColumn::day).empty() && cell(TableColumn::date).empty();
    if (!has_one) {
      add(FindingKind::bad_time, TableColumn::start,
          "the start has a day of its own beside that of the row");
    }
    return has_one;
  }

  std::optional<std::vector<uint32_t>> read_day_of(uint64_t position) {
    return has_one_day()
               ? std::optional(std::vector{static_cast<uint32_t>(position / seconds_per_day)})
               : std::nullopt;
  }

  /// The day that stands before a clock in the same cell.
  std::optional<std::vector<uint32_t>> read_own_days(TableColumn column, std::string_view text) {
    if (column == TableColumn::start && !has_one_day()) {
      return std::nullopt;
    }
    const auto terms = terms_of(column, text);
    return terms ? days_of(column, *terms) : std::nullopt;
  }

  /// The text as a clock, or as a day and a clock.
  std::optional<CellTime> divide(std::string_view text, std::string& problem) const {
    if (const auto clock = read_cell_clock(text, rules_.numbers, problem)) {
      return CellTime{{}, *clock};
    }
    if (!problem.empty() || text.size() > longest_time) {
      return std::nullopt;
    }
    for (size_t at = text.find_first_of(" \tT,"); at != std::string_view::npos;
         at = text.find_first_of(" \tT,", at + 1)) {
      std::string ignored;
      const std::string_view tail = strip_blanks(text.substr(at + 1));
      const std::string_view head = strip_blanks(text.substr(0, at));
      const bool is_number = read_cell_number(tail).has_value() && !is_point_clock(tail);
      const auto clock = read_cell_clock(tail, rules_.numbers, ignored);
      if (clock && !is_number && !head.empty()) {
        return CellTime{head, *clock};
      }
    }
    return divide_number(text);
  }

  /// A day and a part of it as one number, as spreadsheets have it ("46086.75"), or the schedule
  /// seconds of schedule files.
  std::optional<CellTime> divide_number(std::string_view text) const {
    constexpr size_t shortest = 5;  // fewer digits are a clock
    constexpr size_t longest = 9;
    const bool is_whole = text.find_first_not_of("0123456789") == std::string_view::npos;
    if (is_whole && !rules_.numbers.are_raw && text.size() >= shortest && text.size() <= longest) {
      const uint64_t position = std::strtoull(std::string(text).c_str(), nullptr, 10);
      return CellTime{{}, static_cast<int>(position % seconds_per_day), position};
    }
    const size_t point = std::min(text.find_first_of(".,"), text.size());
    const auto number = read_cell_number(text);
    if (!number || point != 5 || !(rules_.numbers.are_raw || point < text.size())) {
      return std::nullopt;
    }
    const double second = std::round((*number - std::floor(*number)) * seconds_per_day);
    return CellTime{text.substr(0, point), static_cast<int>(second)};
  }

  std::optional<CellTime> read_time(TableColumn column) {
    const std::string_view text = cell(column);
    if (text.empty()) {
      return add(FindingKind::missing, column, "the row has no " + std::string(name_of(column)));
    }
    std::string problem;
    if (const auto time = divide(text, problem)) {
      return time;
    }
    if (!problem.empty()) {
      return add(FindingKind::ambiguous, column, problem);
    }
    findings_.push_back(
        finding_of_time(rules_.place(row_, column), text, column == TableColumn::end));
    return std::nullopt;
  }

  bool read_end(RowTimes& times) {
    const bool has_end = !cell(TableColumn::end).empty();
    const std::string_view duration = cell(TableColumn::duration);
    if (has_end) {
      const std::optional<CellTime> end = read_time(TableColumn::end);
      if (!end || !set_end(times, *end)) {
        return false;
      }
    }
    if (duration.empty()) {
      return true;
    }
    std::string problem;
    const auto length =
        read_cell_duration(duration, rules_.header.duration_unit, rules_.numbers, problem);
    if (length && *length > longest_duration) {
      add(FindingKind::bad_duration, TableColumn::duration,
          quoted_cell(duration) + " is longer than 27 days");
      return false;
    }
    if (!length) {
      add(problem.empty() ? FindingKind::bad_duration : FindingKind::ambiguous,
          TableColumn::duration,
          problem.empty() ? "invalid duration " + quoted_cell(duration) : problem);
      return false;
    }
    if (!has_end) {  // beside an end, a duration says nothing more
      times.length = static_cast<uint32_t>(std::lround(*length));
    }
    return true;
  }

  bool set_end(RowTimes& times, const CellTime& end) {
    if (end.position) {
      times.end_at = end.position;
      return true;
    }
    if (end.day.empty()) {
      times.end_clock = end.second;
      return true;
    }
    const auto days = read_own_days(TableColumn::end, end.day);
    if (!days) {
      return false;
    }
    if (days->size() != 1) {
      add(FindingKind::bad_day, TableColumn::end, "the end has several days");
      return false;
    }
    times.end_at = uint64_t{days->front()} * seconds_per_day + static_cast<uint64_t>(end.second);
    return true;
  }

  const TableRules& rules_;
  const int64_t row_;
  KnownDayCells& known_;
  std::vector<Finding>& findings_;
};

}  // namespace

std::optional<RowTimes> read_row_times(const TableRules& rules, int64_t row, KnownDayCells& known,
                                       std::vector<Finding>& findings) {
  return RowReader(rules, row, known, findings).read();
}

std::optional<std::vector<uint32_t>> read_row_days(const TableRules& rules, int64_t row,
                                                   KnownDayCells& known,
                                                   std::vector<Finding>& findings) {
  return RowReader(rules, row, known, findings).read_days();
}
