#include "platform/syntax/nearest_word.hpp"

#include <algorithm>
#include <vector>

#include "platform/syntax/text.hpp"

namespace {

/// The number of letters that differ. Swapping two neighbours counts as one.
size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::vector<size_t>> rows(a.size() + 1, std::vector<size_t>(b.size() + 1));
  for (size_t i = 0; i <= a.size(); ++i) {
    for (size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        rows[i][j] = i + j;
        continue;
      }
      const size_t exchanged = rows[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, exchanged});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
      }
    }
  }
  return rows[a.size()][b.size()];
}

}  // namespace

std::optional<std::string_view> nearest_word(std::string_view text,
                                             std::span<const std::string_view> words) {
  constexpr size_t longest = 64;
  if (text.empty() || text.size() > longest) {
    return std::nullopt;
  }
  const std::string lower = lower_case(text);
  std::optional<std::string_view> nearest;
  size_t least = lower.size() / 3 + 2;  // words further away are not suggested
  for (const std::string_view word : words) {
    const size_t differing = distance(lower, lower_case(word));
    if (differing < least && differing < word.size()) {
      least = differing;
      nearest = word;
    }
  }
  return nearest;
}

std::string did_you_mean(std::string_view text, std::span<const std::string_view> words) {
  const std::optional<std::string_view> word = nearest_word(text, words);
  return word ? "; did you mean '" + std::string(*word) + "'?" : std::string();
}
