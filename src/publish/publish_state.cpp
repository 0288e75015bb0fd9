#include "publish/publish_state.hpp"

#include <array>
#include <charconv>
#include <optional>
#include <vector>

#include "platform/syntax/text.hpp"
#include "station/fingerprint.hpp"

namespace {

constexpr std::string_view first_line = "nv8x_schedule_publish state 1";
constexpr std::string_view last_line = "end\t";

std::string hexadecimal(uint64_t number) {
  std::array<char, 16> digits{};
  const auto* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
  const std::string text(digits.data(), static_cast<size_t>(end - digits.data()));
  return std::string(digits.size() - text.size(), '0') + text;
}

std::string fingerprint_of(std::string_view text) {
  Fingerprint fingerprint;
  fingerprint.add(text);
  return hexadecimal(fingerprint.value());
}

template <typename Number>
std::optional<Number> number_of(std::string_view text, int base) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number)
                                                                  : std::nullopt;
}

std::vector<std::string_view> fields_of(std::string_view line) {
  std::vector<std::string_view> fields;
  for (size_t tab = 0; (tab = line.find('\t')) != std::string_view::npos;) {
    fields.push_back(line.substr(0, tab));
    line.remove_prefix(tab + 1);
  }
  fields.push_back(line);
  return fields;
}

bool take_state_line(std::string_view line, PublishState& state) {
  const std::vector<std::string_view> fields = fields_of(line);
  if (fields.size() == 4 && fields[0] == "channel") {
    const auto items = number_of<uint64_t>(fields[2], 10);
    const auto time = number_of<time_t>(fields[3], 10);
    state.counts[std::string(fields[1])] = {items.value_or(0), time.value_or(0)};
    return items && time;
  }
  if (fields.size() == 3 && fields[0] == "page") {
    const auto fingerprint = number_of<uint64_t>(fields[2], 16);
    state.pages[std::string(fields[1])] = fingerprint.value_or(0);
    return fingerprint.has_value();
  }
  return false;
}

/// Whether the last line has the fingerprint of the lines before, which are left.
bool take_last_line(std::string_view& text) {
  const size_t place = text.rfind(last_line);
  if (place == std::string_view::npos || (place > 0 && text[place - 1] != '\n')) {
    return false;
  }
  const std::string_view end = text.substr(place);
  text = text.substr(0, place);
  return end == std::string(last_line) + fingerprint_of(text) + "\n";
}

}  // namespace

std::string text_of_state(const PublishState& state) {
  std::string text = std::string(first_line) + "\n";
  for (const auto& [channel, count] : state.counts) {
    text += "channel\t" + channel + "\t" + std::to_string(count.items) + "\t" +
            std::to_string(count.time) + "\n";
  }
  for (const auto& [page, fingerprint] : state.pages) {
    text += "page\t" + page + "\t" + hexadecimal(fingerprint) + "\n";
  }
  return text + std::string(last_line) + fingerprint_of(text) + "\n";
}

bool parse_state(std::string_view text, PublishState& state) {
  state = {};
  bool is_whole = take_last_line(text) && take_line(text) == first_line;
  while (is_whole && !text.empty()) {
    is_whole = take_state_line(take_line(text), state);
  }
  if (!is_whole) {
    state = {};
  }
  return is_whole;
}
