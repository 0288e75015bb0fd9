#pragma once

#include <string>
#include <string_view>

// Characters that cannot be seen, or that look like others: blanks of other kinds, characters
// without width, and Cyrillic or Greek letters among Latin ones.

/// The text with each of these characters written by its number: \u00a0.
std::string with_odd_characters_shown(std::string_view text);

/// The text as it was meant: plain blanks and Latin letters, and nothing without width.
std::string with_plain_characters(std::string_view text);
