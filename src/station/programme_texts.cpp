#include "station/programme_texts.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>

#include "platform/syntax/text.hpp"
#include "platform/syntax/utf_8.hpp"
#include "writers/listing_text.hpp"

namespace {

/// Windows-1252 from 0x80 to 0x9f. 0 means no character.
constexpr std::array<uint16_t, 32> windows_1252 = {
    0x20ac, 0,      0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017d, 0,      0,      0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0,      0x017e, 0x0178};

/// Whether XML allows the character, and it is neither a blank nor a control character.
bool is_visible(uint32_t c) {
  return c > ' ' && c != 0x7f && c != 0xfffe && c != 0xffff && (c < 0x80 || c >= 0xa0);
}

/// Of several entries with one name, the last one that is not blank counts.
struct Values {
  std::vector<std::pair<std::string, std::string>> entries;  ///< names in lower case

  std::string last(std::string_view name) const {
    std::string value;
    for (const auto& [entry, text] : entries) {
      if (entry == name && !text.empty()) {
        value = text;
      }
    }
    return value;
  }
};

bool is_number_or_fraction(std::string_view text) {
  return text.find_first_not_of(" /0123456789") == std::string_view::npos;
}

/// The number before a "/", or the whole text if it is a number. Empty for other texts.
std::string number_of(std::string_view text) {
  constexpr size_t longest = 15;
  const std::string_view number = strip_blanks(text.substr(0, text.find('/')));
  return number.size() <= longest && std::ranges::all_of(number, is_digit) ? std::string(number)
                                                                           : std::string();
}

std::string clean_title_of_file(std::string_view path) {
  std::string title = clean_text(title_of_file(path));
  return title.empty() ? "(untitled)" : title;
}

void set_titles(ProgrammeTexts& texts, const Values& values, const ScheduleItem& item) {
  const std::string program = values.last("program");
  const std::string title = values.last("title");
  const std::string label = clean_text(item.label);
  texts.title = !program.empty() ? program
                : !title.empty() ? title
                : !label.empty() ? label
                                 : clean_title_of_file(item.item);
  std::string sub_title = values.last("episode");
  if (is_number_or_fraction(sub_title)) {
    sub_title = program.empty() ? std::string() : title;
  }
  texts.sub_title = sub_title != program ? sub_title : std::string();
}

void set_credits(ProgrammeTexts& texts, const Values& values) {
  constexpr std::array<std::pair<std::string_view, const char*>, 3> roles = {{
      {"producers", "producer"},
      {"hosts", "presenter"},
      {"guests", "guest"},
  }};
  for (const auto& [name, element] : roles) {
    for (const auto& [entry, text] : values.entries) {
      if (entry == name && !text.empty()) {
        texts.credits.emplace_back(element, text);
      }
    }
  }
}

bool is_category(std::string_view name) {
  return name == "genre" || name == "rovi category";
}

void set_categories(ProgrammeTexts& texts, const Values& values) {
  std::set<std::string> known;
  for (const auto& entry : values.entries) {
    if (is_category(entry.first) && !entry.second.empty() &&
        known.insert(lower_case(entry.second)).second) {
      texts.categories.push_back(entry.second);
    }
  }
}

/// A year, month and day with dashes as figures alone: "20240305" for "2024-3-5". A clock may
/// follow. Empty for a text of another form.
std::string figures_of_date(std::string_view text) {
  std::string figures;
  for (const size_t length : {4UL, 2UL, 2UL}) {
    if (!figures.empty() && !text.starts_with('-')) {
      break;
    }
    text.remove_prefix(figures.empty() ? 0 : 1);
    const size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    if (count == 0 || count > length || (figures.empty() && count != length)) {
      return {};
    }
    figures.append(length - count, '0').append(text.substr(0, count));
    text.remove_prefix(count);
  }
  const bool is_at_end = text.empty() || text.front() == 'T' || text.front() == ' ';
  return is_at_end ? figures : std::string();
}

void set_date(ProgrammeTexts& texts, const Values& values) {
  std::string date = values.last("date").substr(0, 10);
  if (date.find('-') != std::string::npos) {
    date = figures_of_date(date);
  }
  const bool has_length = date.size() == 4 || date.size() == 6 || date.size() == 8;
  if (has_length && std::ranges::all_of(date, is_digit)) {
    texts.date = date;
  }
}

void set_rating(ProgrammeTexts& texts, const std::string& rating) {
  const size_t slash = rating.rfind('/');
  texts.rating = slash == std::string::npos ? rating : rating.substr(slash + 1);
  texts.rating_system = slash == std::string::npos ? std::string() : rating.substr(0, slash);
}

bool begins_with_one_of(std::string_view text, std::string_view letters) {
  return !text.empty() && letters.find(to_lower(text.front())) != std::string_view::npos;
}

}  // namespace

std::string clean_text(std::string_view text) {
  std::string clean;
  bool is_blank_due = false;
  while (!text.empty()) {
    std::optional<uint32_t> c = take_utf_8(text);
    if (!c) {
      const auto byte = static_cast<unsigned char>(text.front());
      c = byte < 0xa0 ? windows_1252.at(byte - 0x80U) : byte;
      text.remove_prefix(1);
    }
    if (!is_visible(*c)) {
      is_blank_due = !clean.empty();
      continue;
    }
    if (is_blank_due) {
      clean += ' ';
      is_blank_due = false;
    }
    append_utf_8(clean, *c);
  }
  return clean;
}

ProgrammeTexts texts_of_item(const ScheduleItem& item, const MetadataSet& set) {
  Values values;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    if (is_whole(entry)) {
      values.entries.emplace_back(lower_case(entry.name), clean_text(entry.value));
    }
  });
  ProgrammeTexts texts;
  set_titles(texts, values, item);
  texts.description = values.last("description");
  if (texts.description.empty()) {
    texts.description = values.last("summary");
  }
  set_credits(texts, values);
  set_date(texts, values);
  set_categories(texts, values);
  texts.language = values.last("language");
  texts.season = number_of(values.last("season"));
  texts.episode = number_of(values.last("tvepisode"));
  if (texts.episode.empty()) {
    texts.episode = number_of(values.last("episode"));
  }
  texts.is_hd = begins_with_one_of(values.last("hd"), "123456789ty");
  texts.is_repeat = lower_case(values.last("newliverepeat")) == "repeat";
  texts.has_captions = begins_with_one_of(values.last("cc"), "1ty");
  set_rating(texts, values.last("rating"));
  return texts;
}
