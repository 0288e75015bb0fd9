#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

// Writers build their documents with these functions. Each appends one piece to a text.

/// Appends all parts, one after the other.
template <typename... Parts>
void append(std::string& out, const Parts&... parts) {
  (out.append(std::string_view(parts)), ...);
}

void append_unsigned(std::string& out, uint64_t number);
void append_signed(std::string& out, int64_t number);

/// Decimal, with leading zeros up to `width` digits.
void append_padded(std::string& out, unsigned number, size_t width);

/// "YYYY-MM-DD hh:mm:ss" (ISO 8601 with a blank for the T).
void append_date_and_time(std::string& out, const std::tm& tm);

/// "YYYY-MM-DDThh:mm:ss+hhmm" (ISO 8601).
void append_iso8601(std::string& out, const std::tm& tm);
