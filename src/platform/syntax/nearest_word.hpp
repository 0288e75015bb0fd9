#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// The known word that the text most likely stands for: the one with the fewest letters added,
/// missing, replaced or swapped. Case does not matter. Nothing when no word is near.
std::optional<std::string_view> nearest_word(std::string_view text,
                                             std::span<const std::string_view> words);

/// "; did you mean 'WORD'?", or an empty text.
std::string did_you_mean(std::string_view text, std::span<const std::string_view> words);
