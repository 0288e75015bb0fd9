#pragma once

#include <string>
#include <string_view>

/// The text for comparing names that people write: lower case, Latin letters without their accents,
/// and one blank for each run of blanks, underscores, dots and dashes, none at both ends.
std::string folded_word(std::string_view text);

/// The same without the change of blanks and punctuation: only letters change.
std::string folded_letters(std::string_view text);

/// Whether `word` is one of `words`, which are separated by commas.
bool is_listed_word(std::string_view word, std::string_view words);

/// The beginning of a cell in single quotes, as a message shows it. Cells may be very long.
std::string quoted_cell(std::string_view cell);
