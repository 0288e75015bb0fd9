#pragma once

#include <optional>
#include <string_view>

#include "import/cell_date.hpp"

// Parts of a cell of days, in folded letters. Each function removes what it finds at the front of
// the text, and otherwise leaves the text as it is.

/// A word, which may be empty.
std::string_view take_day_word(std::string_view& text);

bool take_day_sign(std::string_view& text, char sign);

/// "1st", "1er", "1."; no other number.
std::optional<int> take_ordinal_number(std::string_view& text);

/// "m3d5", "y2026m3d5", "dom5", "day 5", as in schedule files.
std::optional<CellDate> take_key_date(std::string_view& text);

/// A date whose month is a word: "5 March 2026", "March 5, 2026", "5. März", "05-Mar-26".
std::optional<CellDate> take_worded_date(std::string_view& text);
