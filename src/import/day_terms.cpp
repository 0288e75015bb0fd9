#include "import/day_terms.hpp"

#include <algorithm>

#include "checks/finding.hpp"
#include "import/day_text.hpp"
#include "import/folded_word.hpp"
#include "platform/syntax/text.hpp"

namespace {

bool is_gap_between_words(char c) {
  return std::string_view(" \t,;/+&").find(c) != std::string_view::npos;
}

/// Goes through the text of a cell. The functions remove what they recognise from its front.
/// Otherwise they leave it unchanged.
class DayParser {
 public:
  DayParser(std::string_view text, std::optional<DateOrder> order, std::string& problem)
      : text_(text), rest_(text), order_(order), problem_(problem) {}

  std::optional<std::vector<DayTerm>> parse() {
    skip_separators();
    while (!rest_.empty()) {
      if (!take_term()) {
        if (problem_.empty()) {
          std::string_view rest = rest_;
          problem_ =
              quoted_cell(rest_) + " is not understood" + advice_on_day_word(take_day_word(rest));
        }
        return std::nullopt;
      }
      skip_separators();
    }
    return std::move(terms_);
  }

 private:
  /// A term, and the range that it may begin.
  bool take_term() {
    DayTerm term;
    if (!take_days(term)) {
      return false;
    }
    const std::string_view before = rest_;
    DayTerm end;
    if (take_range_sign() && term.ordinal == 0 && take_days(end) && join(term, end)) {
      terms_.push_back(term);
      return true;
    }
    if (before != rest_ && problem_.empty()) {
      problem_ = quoted_cell(text_) + " is no range of days";
    }
    if (!problem_.empty()) {
      return false;
    }
    give_ordinals_their_weekday(term);
    terms_.push_back(term);
    return true;
  }

  /// Makes one range of both.
  static bool join(DayTerm& term, const DayTerm& end) {
    if (end.ordinal != 0 || (term.weekdays == 0) != (end.weekdays == 0)) {
      return false;
    }
    if (term.weekdays == 0) {
      const bool takes_rest = !term.first.month && end.first.month;  // "5 to 9 March"
      if (takes_rest) {
        term.first.month = end.first.month;
      }
      if (!term.first.year) {
        term.first.year = end.first.year;
      }
      term.last = end.last;
      if (!term.last.month) {  // "March 5 - 7"
        term.last.month = term.first.month;
        term.last.year = term.first.year;
      }
      return true;
    }
    const auto is_one_day = [](WeekdaySet days) { return (days & (days - 1)) == 0; };
    if (!is_one_day(term.weekdays) || !is_one_day(end.weekdays)) {
      return false;
    }
    for (WeekdaySet day = term.weekdays; day != end.weekdays;) {
      day = day == 0x40 ? 1 : day << 1U;
      term.weekdays |= day;
    }
    return true;
  }

  /// "1st and 3rd Tue": the first number is not a day of the month.
  void give_ordinals_their_weekday(const DayTerm& term) {
    if (term.ordinal > 0) {
      for (size_t i = terms_.size(); i > 0 && i > terms_.size() - open_ordinals_; --i) {
        DayTerm& earlier = terms_[i - 1];
        earlier.ordinal = earlier.first.day;
        earlier.weekdays = term.weekdays;
      }
    }
    open_ordinals_ = is_ordinal_number_ ? open_ordinals_ + 1 : 0;
  }

  bool take_days(DayTerm& term) {
    is_ordinal_number_ = false;
    return set_date(term, take_key_date(rest_)) || take_group(term) || take_ordinal_weekday(term) ||
           set_date(term, take_worded_date(rest_)) || take_number(term) || take_weekday(term);
  }

  /// "daily", "every day", "am Wochenende". The longest phrase that is known counts.
  bool take_group(DayTerm& term) {
    constexpr size_t longest = 32;  // of all phrases; cells may be much longer
    const std::string_view begin = rest_.substr(0, longest);
    for (size_t end = begin.size(); end > 0;) {
      const bool is_whole = end == rest_.size() || is_gap_between_words(rest_[end]);
      const auto days =
          is_whole ? find_weekday_group(folded_word(begin.substr(0, end))) : std::nullopt;
      if (days) {
        term.weekdays = *days;
        rest_.remove_prefix(end);
        return true;
      }
      --end;
    }
    return false;
  }

  /// "1st Tue", "1. Dienstag", "last Fri".
  bool take_ordinal_weekday(DayTerm& term) {
    const std::string_view before = rest_;
    std::optional<int> ordinal = take_ordinal_number(rest_);
    if (!ordinal) {
      ordinal = find_ordinal_word(take_day_word(rest_));
    }
    rest_ = skip_blanks(rest_);
    if (ordinal && *ordinal <= 5 && take_weekday(term)) {
      term.ordinal = *ordinal;
      return true;
    }
    rest_ = before;
    return false;
  }

  /// Dates in figures, and a range without blanks around its dash.
  bool take_number(DayTerm& term) {
    const std::string_view before = rest_;
    const int number = take_ordinal_number(rest_).value_or(0);
    if (number >= 1 && number <= 31) {
      is_ordinal_number_ = number <= 5;
      return set_date(term, CellDate{std::nullopt, std::nullopt, number});
    }
    rest_ = before;
    std::string_view chunk = rest_.substr(0, rest_.find_first_not_of("0123456789./-"));
    chunk = chunk.substr(0, chunk.find_last_not_of("-/") + 1);
    const size_t dash = chunk.find('-');
    const bool is_range =
        dash != std::string_view::npos &&
        (chunk.find_first_of("./") != std::string_view::npos ||
         (!order_ && chunk.find('-', dash + 1) == std::string_view::npos && dash <= 2));
    if (is_range) {
      chunk = chunk.substr(0, dash);
    }
    const auto date = read_numeric_date(chunk, order_, problem_);
    if (!date) {
      return false;
    }
    rest_.remove_prefix(chunk.size());
    return set_date(term, date);
  }

  bool take_weekday(DayTerm& term) {
    const std::string_view before = rest_;
    const auto weekday = find_weekday_word(take_day_word(rest_));
    if (!weekday) {
      rest_ = before;
      return false;
    }
    take_day_sign(rest_, '.');
    term.weekdays = 1U << static_cast<unsigned>(*weekday);
    return true;
  }

  /// False without a date.
  static bool set_date(DayTerm& term, const std::optional<CellDate>& date) {
    if (date) {
      term.weekdays = 0;
      term.first = term.last = *date;
    }
    return date.has_value();
  }

  bool take_range_sign() {
    const std::string_view before = rest_;
    rest_ = skip_blanks(rest_);
    if (take_day_sign(rest_, '-') || is_range_word(take_day_word(rest_))) {
      rest_ = skip_blanks(rest_);
      return true;
    }
    rest_ = before;
    return false;
  }

  void skip_separators() {
    while (true) {
      rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t,;/+&"), rest_.size()));
      const std::string_view before = rest_;
      const std::string_view word = take_day_word(rest_);
      const bool is_key = !rest_.empty() && is_digit(rest_.front());  // "y2026m3d5"
      if (is_key || (!is_list_word(word) && !is_ignored(before))) {
        rest_ = before;
        return;
      }
    }
  }

  /// "on", "le", "the" before a day.
  static bool is_ignored(std::string_view text) {
    return is_listed_word(take_day_word(text), "on,am,the,le,el,los,les");
  }

  std::string_view text_;
  std::string_view rest_;
  std::optional<DateOrder> order_;
  std::string& problem_;
  std::vector<DayTerm> terms_;
  size_t open_ordinals_ = 0;  ///< of the last terms, which are numbers such as "1st"
  bool is_ordinal_number_ = false;
};

}  // namespace

std::optional<std::vector<DayTerm>> read_day_terms(std::string_view text,
                                                   std::optional<DateOrder> order,
                                                   std::string& problem) {
  problem.clear();
  const std::string folded = folded_letters(strip_blanks(text));
  return DayParser(folded, order, problem).parse();
}
