#include "check/line_check.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <set>
#include <utility>

#include "check/time_advice.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/schedule_lines.hpp"
#include "platform/syntax/text.hpp"
#include "schedule/default_slot.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

constexpr std::array<std::string_view, 7> item_keys = {"item",  "start",    "end",          "label",
                                                       "block", "event id", "item duration"};
constexpr std::array<std::string_view, 4> block_keys = {"block", "start", "end", "announce"};
constexpr std::array<std::string_view, 3> needed_of_item = {"item", "start", "end"};
constexpr std::array<std::string_view, 3> needed_of_block = {"block", "start", "end"};
constexpr std::array<std::string_view, 1> top_level_names = {"global default"};
constexpr std::array<std::string_view, 3> announces = {"block", "items", ""};
constexpr std::array<std::string_view, 7> section_names = {"schedule block",
                                                           "defaults, of the day",
                                                           "defaults, day of the week",
                                                           "defaults, day of the month",
                                                           "defaults, day of the year",
                                                           "defaults, day of the interval",
                                                           "defaults, by date"};

enum class SectionKind { item, block, defaults, unknown };

struct Section {
  SectionKind kind = SectionKind::unknown;
  int64_t line = 0;
  WrittenSection written;
  std::map<std::string, size_t> meant;  ///< keys that stand there misspelt, with the report of it
  bool is_broken = false;               ///< it runs into the next: what it holds says nothing more
  bool is_foreign = false;              ///< defaults of another type than the schedule's
};

constexpr std::array<std::string_view, 5> references = {"&amp;", "&lt;", "&gt;", "&quot;",
                                                        "&apos;"};

bool contains(std::span<const std::string_view> words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

class LineCheck {
 public:
  LineCheck(WrittenSchedule& written, bool with_media, std::vector<Report>& reports)
      : written_(written), with_media_(with_media), reports_(reports) {}

  void look(const Observation& seen) {
    if (is_line(seen.deed) && is_piece_of_long_line(seen.line)) {
      return;
    }
    switch (seen.deed) {
      case Deed::took_type:
        set_type_line(seen.line);
        break;
      case Deed::passed_type:
        check_passed_type(seen);
        break;
      case Deed::took_global_default:
        take_global_default(seen);
        break;
      case Deed::passed_name:
        check_passed_name(seen);
        break;
      case Deed::began_section:
        begin_section(seen);
        break;
      case Deed::began_nested:
        check_nested(seen);
        break;
      case Deed::read_item_line:
        check_section_line(seen, item_keys, "an item");
        break;
      case Deed::read_block_line:
        check_section_line(seen, block_keys, "a schedule block");
        break;
      case Deed::took_default:
        take_default(seen);
        break;
      case Deed::passed_default:
        check_passed_default(seen);
        break;
      case Deed::ended_section:
      case Deed::ended_nested:
        check_closing(seen);
        break;
      case Deed::cut_off_section:
        if (!section_.is_broken) {
          add(Finding::unclosed_section, place_of_text(section_.line),
              "this section is never closed by a '}'");
          section_.is_broken = true;
        }
        break;
      case Deed::stored_item:
      case Deed::dropped_item:
        end_section(seen, written_.items, written_.item_numbers, needed_of_item);
        break;
      case Deed::stored_block:
      case Deed::dropped_block:
        end_section(seen, written_.blocks, written_.block_numbers, needed_of_block);
        break;
      default:
        break;
    }
  }

  /// What only the end of the file tells.
  void finish() {
    if (type_line_ == 0 && first_untyped_ != 0 && !starts_with_mark()) {
      add(Finding::no_type, place_of_text(first_untyped_),
          "no type line before this section, which its times need; begin the file with '*weekly' "
          "or another type");
    }
    check_bare_numbers();
    check_days_without_default();
  }

 private:
  Place place_of_text(int64_t line) const { return written_.source.place_of_text(line); }

  void add(Finding finding, Place place, std::string text, std::vector<Note> notes = {}) {
    reports_.push_back({finding, place, std::move(text), std::move(notes)});
  }

  bool starts_with_mark() const { return written_.source.content().starts_with("\xef\xbb\xbf"); }

  static bool is_line(Deed deed) {
    return deed != Deed::cut_off_section && deed != Deed::stored_item &&
           deed != Deed::dropped_item && deed != Deed::stored_block && deed != Deed::dropped_block;
  }

  /// The rest of a line that is too long comes as lines of their own, of which enough is said.
  bool is_piece_of_long_line(int64_t line) {
    const bool is_next_piece = line != 0 && line == last_line_ &&
                               written_.source.line(line).size() >= longest_schedule_line;
    last_line_ = line;
    return is_next_piece;
  }

  void set_type_line(int64_t line) {
    type_line_ = line;
    if (first_untyped_ != 0) {
      add(Finding::late_type, place_of_text(line),
          "the type comes behind sections whose times needed it; they are not aired",
          {{place_of_text(first_untyped_), "the first of them"}});
      first_untyped_ = 0;
    }
  }

  void check_passed_type(const Observation& seen) {
    const Place place = place_of_text(seen.line);
    const std::string_view text = seen.text;
    const ScheduleType* type = find_schedule_type(text);
    if (type != nullptr && type->unit_length == 0) {
      add(Finding::type_without_unit, place, "a schedule of this type cannot be printed");
      return;
    }
    if (type != nullptr) {
      add(Finding::second_type, place,
          "the schedule is " + written_.schedule.type + " already; this line is of no effect",
          {{place_of_text(type_line_), "the type comes from here"}});
      return;
    }
    std::vector<std::string_view> types;
    for (const ScheduleType& known : schedule_types()) {
      if (known.unit_length > 0) {
        types.push_back(known.text);
      }
    }
    const std::string_view word = strip_blanks(text.substr(0, text.find('#')));
    const std::optional<std::string_view> nearest = nearest_word(word, types);
    if (word != text && nearest == word) {
      add(Finding::unknown_type, place,
          quoted("*" + std::string(text)) +
              " is no type: nothing may stand around the word; write " +
              quoted("*" + std::string(*nearest)));
    } else {
      add(Finding::unknown_type, place,
          quoted("*" + std::string(text)) + " is no type" +
              (nearest ? "; did you mean " + quoted("*" + std::string(*nearest)) + "?"
                       : std::string("; there are daily, weekly, monthly, yearly and endless")));
    }
    has_bad_type_ = true;
  }

  void take_global_default(const Observation& seen) {
    if (global_default_line_ != 0) {
      add(Finding::repeated_key, place_of_text(global_default_line_),
          "the global default is given again; this line is of no effect",
          {{place_of_text(seen.line), "here"}});
    }
    global_default_line_ = seen.line;
    take_default_path(written_.schedule.global_default, seen.line);
  }

  void take_default_path(const std::string& path, int64_t line) {
    const Place place = written_.source.place_of_value(line);
    check_path(path, place);
    written_.default_paths.try_emplace(path, place);
  }

  void check_passed_name(const Observation& seen) {
    const std::string_view text = seen.text;
    if (seen.line == 1 && starts_with_mark()) {
      return;
    }
    if (is_in_lost_section_) {
      is_in_lost_section_ = !closes_section(text);
      return;
    }
    const Place place = place_of_text(seen.line);
    if (closes_section(text)) {
      add(Finding::stray_brace, place, "this '}' closes nothing");
      return;
    }
    const size_t brace = text.find('{');
    const std::string_view before = strip_blanks(text.substr(0, brace));
    if (brace != std::string_view::npos &&
        (before.empty() || before == "schedule block" || before.starts_with("defaults,"))) {
      add(Finding::text_behind_brace, {seen.line, place.column + static_cast<int64_t>(brace) + 1},
          "with text behind its '{' this begins no section; give the text a line of its own");
      is_in_lost_section_ = true;
      return;
    }
    if (find_schedule_type(lower_case(strip_blanks(text))) != nullptr) {
      add(Finding::unknown_type, place,
          "a type stands behind a star; write " + quoted("*" + lower_case(strip_blanks(text))));
      has_bad_type_ = true;
      return;
    }
    const std::string_view name = strip_blanks(text.substr(0, text.find_first_of("=:")));
    if (contains(item_keys, name) || contains(block_keys, name)) {
      add(Finding::unknown_name, place, quoted(name) + " stands in no section");
      return;
    }
    if (name.starts_with(top_level_names[0])) {
      add(Finding::no_key, place,
          quoted(text) + " gives no default; write " + quoted("global default = path"));
      return;
    }
    if (lower_case(name) == top_level_names[0] && name != top_level_names[0]) {
      add(Finding::letter_case, place,
          quoted(name) + " is of no effect; write " + quoted(top_level_names[0]));
      return;
    }
    add(Finding::unknown_name, place,
        quoted(name.empty() ? text : name) + " means nothing here" +
            did_you_mean(name, top_level_names));
  }

  void begin_section(const Observation& seen) {
    section_ = {};
    section_.line = seen.line;
    if (seen.text.empty()) {
      section_.kind = SectionKind::item;
    } else if (seen.text == "schedule block") {
      section_.kind = SectionKind::block;
    } else if (seen.text.starts_with("defaults,")) {
      section_.kind = SectionKind::defaults;
      begin_defaults(seen);
    } else {
      add(Finding::unknown_section, place_of_text(seen.line),
          quoted(seen.text) + " is no section; it is skipped" +
              did_you_mean(seen.text, section_names));
    }
  }

  void begin_defaults(const Observation& seen) {
    const ScheduleType* type = find_schedule_type_of_section(seen.text);
    const std::string& schedule_type = written_.schedule.type;
    if (schedule_type.empty() && type == nullptr) {
      section_.is_foreign = true;
      add(Finding::default_section, place_of_text(seen.line),
          quoted(seen.text) +
              " tells no type, and none stands before it: its lines are of no effect" +
              did_you_mean(seen.text, section_names));
    } else if (schedule_type.empty()) {
      set_type_line(seen.line);
      if (type->unit_length == 0) {
        add(Finding::type_without_unit, place_of_text(seen.line),
            "this makes the schedule one that cannot be printed");
      }
    } else if (type != nullptr && type->text != schedule_type) {
      add(Finding::default_section, place_of_text(seen.line),
          quoted(seen.text) + " in " + a_schedule_of(schedule_type) +
              ": its keys are read as those of " + a_schedule_of(schedule_type),
          {{place_of_text(type_line_), "the type comes from here"}});
      section_.is_foreign = true;
    }
  }

  void check_nested(const Observation& seen) {
    if (!section_.is_broken && section_.kind != SectionKind::unknown) {
      break_section(seen.line);
    }
  }

  void break_section(int64_t line) {
    section_.is_broken = true;
    add(Finding::unclosed_section, place_of_text(section_.line),
        "no '}' closes this section before the next begins",
        {{place_of_text(line), "the next begins here"}});
  }

  void check_section_line(const Observation& seen, std::span<const std::string_view> keys,
                          std::string_view owner) {
    const std::string_view text = seen.text;
    if (text.empty() || text.front() == '#' || section_.is_broken) {
      return;
    }
    if (opens_section(text)) {
      break_section(seen.line);
      return;
    }
    const Place place = place_of_text(seen.line);
    const size_t equals = text.find('=');
    const size_t colon = text.find(':');
    if (equals == std::string_view::npos) {
      const std::string_view before = strip_blanks(text.substr(0, colon));
      if (colon != std::string_view::npos && nearest_word(before, keys)) {
        section_.meant.emplace(*nearest_word(before, keys), reports_.size());
        add(Finding::colon, place, "a ':' gives " + quoted(before) + " no value; write '='");
      } else {
        add(Finding::no_key, place, quoted(text) + " gives nothing a value; write 'key = value'");
      }
      return;
    }
    const std::string name(strip_blanks(text.substr(0, equals)));
    const std::string_view value = strip_blanks(text.substr(equals + 1));
    if (!contains(keys, name)) {
      check_unknown_key(name, place, keys, owner);
    } else if (!value.empty()) {
      const Place value_place = written_.source.place_of_value(seen.line);
      const std::string_view line = written_.source.line(seen.line);
      take_value(
          {*std::ranges::find(keys, name),
           line.substr(static_cast<size_t>(value_place.column) - 1, value.size()), value_place},
          place);
    }
  }

  void check_unknown_key(const std::string& name, Place place,
                         std::span<const std::string_view> keys, std::string_view owner) {
    const std::optional<std::string_view> nearest = nearest_word(name, keys);
    if (nearest) {
      section_.meant.emplace(*nearest, reports_.size());
    }
    if (contains(keys, lower_case(name))) {
      add(Finding::letter_case, place,
          quoted(name) + " is of no effect; write " + quoted(lower_case(name)));
      return;
    }
    add(Finding::unknown_key, place,
        quoted(name) + " is no key of " + std::string(owner) + did_you_mean(name, keys));
  }

  void check_path(const std::string& path, Place place) {
    const size_t mark = comment_behind_path(path);
    if (mark != std::string::npos && !(with_media_ && access(path.c_str(), F_OK) == 0)) {
      add(Finding::comment_behind_value,
          {place.line, place.column + static_cast<int64_t>(mark) + 1},
          "a comment behind a path is part of it; give the comment a line of its own");
    }
  }

  void take_value(const WrittenValue& value, Place key_place) {
    if (value.key == "item") {
      check_path(std::string(value.text), value.place);
    }
    auto& values = section_.written.values;
    const auto earlier = std::ranges::find(values, value.key, &WrittenValue::key);
    if (earlier == values.end()) {
      values.push_back(value);
      return;
    }
    add(Finding::repeated_key, place_of_text(earlier->place.line),
        quoted(value.key) + " is given again; this line is of no effect", {{key_place, "here"}});
    *earlier = value;
  }

  void take_default(const Observation& seen) {
    if (section_.is_broken) {
      return;
    }
    const Place place = place_of_text(seen.line);
    const auto slot = static_cast<size_t>(seen.start);
    const ScheduleType* type = find_schedule_type(written_.schedule.type);
    const uint64_t days = type->unit_length / seconds_per_day;
    if (days > 0 && slot >= days) {
      add(Finding::default_range, place,
          "the schedule has " + std::to_string(days) + " days; this default is of no effect");
    }
    const auto earlier = default_lines_.find(slot);
    if (earlier != default_lines_.end()) {
      add(Finding::repeated_default, place_of_text(earlier->second),
          "the day is given another default; this line is of no effect", {{place, "here"}});
    }
    default_lines_.insert_or_assign(slot, seen.line);
    take_default_path(written_.schedule.defaults[slot], seen.line);
  }

  void check_passed_default(const Observation& seen) {
    const std::string_view text = seen.text;
    if (text.front() == '#' || section_.is_foreign || section_.is_broken) {
      return;
    }
    const Place place = place_of_text(seen.line);
    const std::string& own_type = written_.schedule.type;
    const std::optional<DefaultsEntry> entry = schedule_defaults_name_equ_value_and_clarifier(text);
    if (!entry) {
      const bool has_colon =
          text.find('=') == std::string_view::npos && text.find(':') != std::string_view::npos;
      add(has_colon ? Finding::colon : Finding::no_key, place,
          has_colon ? "a ':' gives no value; write '='"
                    : quoted(text) + " gives no day a default; write 'day = path'");
      return;
    }
    if (!entry->clarifier.empty()) {
      add(Finding::default_key, place,
          "a line with " + quoted("[" + std::string(entry->clarifier) + "]") + " is of no effect");
      return;
    }
    if (default_slot_of_key(own_type, lower_case(entry->name))) {
      add(Finding::letter_case, place,
          quoted(entry->name) + " is of no effect; write " + quoted(lower_case(entry->name)));
      return;
    }
    for (const ScheduleType& type : schedule_types()) {
      if (type.text != own_type && default_slot_of_key(type.text, entry->name)) {
        add(Finding::default_key, place,
            quoted(entry->name) + " is a key of " + a_schedule_of(type.text) + ", not of " +
                a_schedule_of(own_type));
        return;
      }
    }
    const bool has_number = entry->name.find_first_of("0123456789") != std::string_view::npos;
    add(has_number ? Finding::default_range : Finding::default_key, place,
        quoted(entry->name) + (has_number ? " is no day of " : " is no key of ") +
            a_schedule_of(own_type));
  }

  void check_closing(const Observation& seen) {
    const std::string_view behind = strip_blanks(seen.text.substr(1));
    if (!behind.empty() && behind.front() != '#' && !section_.is_broken) {
      add(Finding::text_behind_brace, {seen.line, place_of_text(seen.line).column + 1},
          quoted(behind) + " behind a '}' is not read; give it a line of its own");
      is_in_lost_section_ = opens_section(behind);
    }
  }

  /// An item's or block's section is read, and was stored or dropped.
  void end_section(const Observation& seen, std::vector<WrittenSection>& sections,
                   std::map<uint64_t, size_t>& numbers, std::span<const std::string_view> needed) {
    const bool is_stored = seen.deed == Deed::stored_item || seen.deed == Deed::stored_block;
    section_.written.place = place_of_text(section_.line);
    section_.written.start = seen.start;
    section_.written.end = seen.end;
    section_.written.is_broken = section_.is_broken;
    if (section_.is_broken) {
      if (is_stored) {
        numbers.insert_or_assign(seen.start, sections.size());
        sections.push_back(std::move(section_.written));
      }
      return;
    }
    const bool has_type = !written_.schedule.type.empty();
    const bool had_time = section_.written.value_of("start") != nullptr ||
                          section_.written.value_of("end") != nullptr;
    if (!has_type && had_time && first_untyped_ == 0 && !has_bad_type_) {
      first_untyped_ = section_.line;
    }
    const char* lost = section_.kind == SectionKind::item ? "no item: " : "no block: ";
    for (const std::string_view key : needed) {
      if (section_.written.value_of(key) != nullptr) {
        continue;
      }
      const auto meant = section_.meant.find(std::string(key));
      if (meant != section_.meant.end()) {
        reports_[meant->second].text.insert(0, lost);
      } else {
        add(Finding::missing, place_of_text(section_.line),
            std::string(lost) + "without " + quoted(key) + " it is dropped");
      }
    }
    check_times();
    check_texts();
    if (is_stored) {
      sections.push_back(std::move(section_.written));
      const auto [number, is_new] = numbers.try_emplace(seen.start, sections.size() - 1);
      if (!is_new) {
        add(Finding::same_start, sections[number->second].place,
            "another one starts at the same time; this one is dropped",
            {{sections.back().place, "this is the other"}});
        number->second = sections.size() - 1;
      }
    }
  }

  void check_times() {
    const ScheduleType* type = find_schedule_type(written_.schedule.type);
    if (type == nullptr) {
      type = find_schedule_type(default_schedule_type);
    }
    for (const char* key : {"start", "end"}) {
      const WrittenValue* value = section_.written.value_of(key);
      if (value == nullptr) {
        continue;
      }
      const auto& [name, text, place] = *value;
      if (is_bare_number(text)) {
        bare_numbers_.push_back(*value);
        if (std::strtoull(std::string(text).c_str(), nullptr, 10) > type->unit_length) {
          add(Finding::out_of_range, place,
              quoted(text) + " is out of range: the schedule has " +
                  std::to_string(type->unit_length) + " seconds");
        }
      } else {
        has_clocks_ = true;
      }
      for (const TimeAdvice& advice : advise_on_time(text, *type)) {
        add(advice.finding, {place.line, place.column + static_cast<int64_t>(advice.offset)},
            advice.text);
      }
    }
  }

  static bool is_number(const std::string& text) {
    char* end = nullptr;
    std::strtod(text.c_str(), &end);
    return end != text.c_str() && *end == '\0';
  }

  void check_texts() {
    const WrittenValue* announce = section_.written.value_of("announce");
    if (announce != nullptr) {
      const auto& [name, text, place] = *announce;
      if (!contains(announces, text)) {
        add(Finding::unknown_announce, place,
            quoted(text) +
                " counts as no word: the block is announced as one only without "
                "programmes inside" +
                did_you_mean(text, announces));
      }
    }
    const WrittenValue* duration = section_.written.value_of("item duration");
    if (duration != nullptr && !is_number(std::string(duration->text))) {
      add(Finding::bad_number, duration->place,
          quoted(duration->text) + " is no number of seconds");
    }
    for (const std::string_view key : {"label", "block"}) {
      const WrittenValue* value = section_.written.value_of(key);
      if (value == nullptr) {
        continue;
      }
      const std::string_view text = value->text;
      const Place place = value->place;
      const auto at = [&](size_t offset) {
        return Place{place.line, place.column + static_cast<int64_t>(offset)};
      };
      // The document escapes paths, and the name of an announced block stands where its path would.
      const size_t mark = key == "label" ? text.find_first_of("&<") : std::string_view::npos;
      if (mark != std::string_view::npos) {
        const std::string_view reference = reference_at(text.substr(mark));
        add(Finding::markup, at(mark),
            reference.empty() ? quoted(text.substr(mark, 1)) +
                                    " goes into the XML document as it is and makes it ill-formed"
                              : quoted(reference) +
                                    " is one sign in the XML document alone; all other documents "
                                    "show it as it is");
      }
      for (size_t i = 0; i < text.size(); ++i) {
        if (static_cast<unsigned char>(text[i]) < ' ' && text[i] != '\t') {
          add(Finding::control_character, at(i),
              "a control character makes the XML document ill-formed");
          break;
        }
      }
    }
  }

  /// Numbers alone are schedule seconds, "12.48" as well as "3605.20". They are meant as clocks in
  /// a file that writes clocks elsewhere, and where every one of them could be one; "1800" only
  /// there.
  void check_bare_numbers() {
    const bool are_seconds =
        !has_clocks_ && std::ranges::any_of(bare_numbers_, [](const WrittenValue& value) {
          return value.text != "0" && !looks_like_clock(value.text, false);
        });
    if (are_seconds) {
      return;
    }
    for (const WrittenValue& value : bare_numbers_) {
      if (looks_like_clock(value.text, has_clocks_)) {
        add(Finding::bare_number, value.place,
            quoted(value.text) + " is read as seconds from the beginning of the unit; write " +
                quoted(clock_of(value.text)));
      }
    }
  }

  void check_days_without_default() {
    const ScheduleType* type = find_schedule_type(written_.schedule.type);
    if (type == nullptr || global_default_line_ != 0 || default_lines_.empty() ||
        type->day_name != DayName::weekday) {
      return;
    }
    std::string days;
    for (uint64_t day = 0; day < 7; ++day) {
      if (!default_lines_.contains(day)) {
        const std::string name = written_position(day * seconds_per_day, *type).substr(0, 3);
        days += days.empty() ? name : ", " + name;
      }
    }
    if (!days.empty()) {
      add(Finding::no_default, place_of_text(default_lines_.begin()->second),
          "other days have a default, but none has " + days + ", and there is no global default");
    }
  }

  WrittenSchedule& written_;
  bool with_media_;
  std::vector<Report>& reports_;
  Section section_;
  int64_t last_line_ = 0;
  int64_t type_line_ = 0;      ///< that gave the schedule its type; 0: none yet
  int64_t first_untyped_ = 0;  ///< first section that needed a type and found none
  int64_t global_default_line_ = 0;
  bool has_bad_type_ = false;
  bool is_in_lost_section_ = false;
  bool has_clocks_ = false;
  std::vector<WrittenValue> bare_numbers_;
  std::map<size_t, int64_t> default_lines_;
};

}  // namespace

std::string_view reference_at(std::string_view text) {
  const auto begins = [&](std::string_view reference) { return text.starts_with(reference); };
  const auto* found = std::ranges::find_if(references, begins);
  return found == references.end() ? std::string_view() : *found;
}

size_t comment_behind_path(std::string_view path) {
  return path.find(" # ");
}

void read_and_check_lines(WrittenSchedule& written, const std::string& file, bool with_media,
                          std::vector<Report>& reports) {
  LineCheck check(written, with_media, reports);
  written.schedule.observe = [&](const Observation& seen) { check.look(seen); };
  read_schedule_content(written.schedule, written.source.content(), file.c_str());
  written.schedule.observe = nullptr;
  check.finish();
}
