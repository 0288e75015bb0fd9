#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// The pieces of which a written time is read.

/// What is still to be read of a lower-case text. Readers take what they recognise off the front
/// and leave the text alone otherwise.
using TimeText = std::string_view;

/// The number of digits, or letters, that the text begins with.
size_t count_digits(TimeText rest);
size_t count_letters(TimeText rest);

/// Whether the text ends here, or a blank or comma parts what follows.
bool at_boundary(TimeText rest);

bool take_text(TimeText& rest, std::string_view text);

/// Takes all blanks and commas; false when there is none.
bool take_separators(TimeText& rest);

/// Takes a run of digits that is `shortest` to `longest` digits long, no more.
std::optional<int> take_number(TimeText& rest, size_t shortest, size_t longest);

/// The digits of a fraction as microseconds; digits past the sixth are cut off.
long microseconds_of(std::string_view digits);
