#include "publish/page_report.hpp"

#include <unistd.h>

#include <array>
#include <cstdio>

#include "platform/syntax/json_text.hpp"
#include "platform/syntax/utf_8.hpp"

namespace {

constexpr std::array<const char*, 5> outcome_names = {"published", "unchanged", "would-publish",
                                                      "refused", "failed"};

/// The text as UTF-8: names of files may hold other bytes.
std::string as_utf_8(std::string_view text) {
  constexpr uint32_t replacement = 0xfffd;
  std::string out;
  while (!text.empty()) {
    const auto c = take_utf_8(text);
    append_utf_8(out, c.value_or(replacement));
    text.remove_prefix(c ? 0 : 1);
  }
  return out;
}

void append_member(std::string& out, const char* name, std::string_view text) {
  out += std::string("\"") + name + "\": ";
  append_json_string(out, as_utf_8(text));
}

std::string json_of(const PageRow& row) {
  std::string out = "  {";
  append_member(out, "channel", row.channel);
  out += ", ";
  append_member(out, "format", row.format);
  out += ", ";
  append_member(out, "outcome", outcome_names.at(static_cast<size_t>(row.outcome)));
  out += ", ";
  append_member(out, "reason", row.reason);
  std::array<char, 64> seconds{};
  std::snprintf(seconds.data(), seconds.size(), "%.3f", row.seconds);
  return out + ", \"items\": " + (row.items ? std::to_string(*row.items) : "null") +
         ", \"seconds\": " + seconds.data() + "}";
}

}  // namespace

bool is_bad(Outcome outcome) {
  return outcome == Outcome::refused || outcome == Outcome::failed;
}

std::string json_of(const std::vector<PageRow>& rows) {
  std::string out = "[";
  const char* separator = "\n";
  for (const PageRow& row : rows) {
    out += separator + json_of(row);
    separator = ",\n";
  }
  return out + "\n]\n";
}

Progress::Progress(size_t channels) : is_shown_(isatty(STDERR_FILENO) == 1), channels_(channels) {
  show();
}

void Progress::print(const std::string& text) {
  clear();
  std::fwrite(text.data(), 1, text.size(), stderr);
  show();
}

void Progress::count(const std::vector<PageRow>& rows) {
  ++done_;
  pages_ += rows.size();
  for (const PageRow& row : rows) {
    bad_ += is_bad(row.outcome) ? 1U : 0U;
  }
  clear();
  show();
}

void Progress::finish() const {
  if (is_shown_) {
    std::fputs("\n", stderr);
  }
}

void Progress::show() const {
  if (is_shown_) {
    std::fprintf(stderr, "%zu of %zu channels, %zu pages, %zu refused or failed", done_, channels_,
                 pages_, bad_);
  }
}

void Progress::clear() const {
  if (is_shown_) {
    std::fputs("\r\033[K", stderr);
  }
}
