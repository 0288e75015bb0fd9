#include "station/config_sections.hpp"

#include <set>
#include <utility>

#include "platform/syntax/text.hpp"
#include "station/config_keys.hpp"

namespace {

/// Reads the lines one by one.
class SectionReader {
 public:
  explicit SectionReader(std::vector<ConfigMistake>& mistakes) : mistakes_(mistakes) {}

  void take_line(std::string_view line) {
    ++number_;
    const std::string_view text = without_config_comment(line);
    if (text.empty()) {
      return;
    }
    const std::string complaint = text.starts_with('[') ? begin_section(text) : take_value(text);
    if (!complaint.empty()) {
      mistakes_.push_back({number_, complaint});
      if (!is_skipping_ && !sections_.empty()) {
        sections_.back().has_mistake = true;
      }
    }
  }

  std::vector<ConfigSection> take_sections() { return std::move(sections_); }

 private:
  std::string begin_section(std::string_view text) {
    // The keys of a section with a mistake belong to no channel, and are no mistakes themselves.
    is_skipping_ = true;
    if (!text.ends_with(']')) {
      return "no ']' ends the channel's id";
    }
    const std::string id(strip_blanks(text.substr(1, text.size() - 2)));
    if (id.empty()) {
      return "the channel has no id";
    }
    if (id != config_defaults_id && !is_channel_id(id)) {
      return "an id is UTF-8 text without control characters and doubled blanks";
    }
    if (!ids_.insert(id).second) {
      return id == config_defaults_id ? "the section [*] is there twice"
                                      : "the channel '" + id + "' is there twice";
    }
    is_skipping_ = false;
    sections_.push_back({id, number_, {}, false});
    return {};
  }

  std::string take_value(std::string_view text) {
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
      return "neither '[channel]' nor 'key = value'";
    }
    if (is_skipping_) {
      return {};
    }
    if (sections_.empty()) {
      return "a key stands before the first '[channel]'";
    }
    const std::string name(strip_blanks(text.substr(0, equals)));
    if (find_config_key(name) == nullptr) {
      return complaint_about_unknown_key(name);
    }
    const std::string value(strip_blanks(text.substr(equals + 1)));
    return sections_.back().values.emplace(name, ConfigValue{value, number_}).second
               ? std::string()
               : "'" + name + "' is there twice";
  }

  std::vector<ConfigMistake>& mistakes_;
  int number_ = 0;
  bool is_skipping_ = false;
  std::vector<ConfigSection> sections_;
  std::set<std::string> ids_;
};

}  // namespace

std::string_view without_config_comment(std::string_view line) {
  for (size_t i = 0; i < line.size(); ++i) {
    const bool is_mark = line[i] == '#' || line[i] == ';';
    if (is_mark && (i == 0 || is_blank(line[i - 1]))) {
      return strip_blanks(line.substr(0, i));
    }
  }
  return strip_blanks(line);
}

std::vector<ConfigSection> read_config_sections(std::string_view content,
                                                std::vector<ConfigMistake>& mistakes) {
  SectionReader reader(mistakes);
  for (std::string_view rest = content; !rest.empty();) {
    reader.take_line(take_line(rest));
  }
  return reader.take_sections();
}
