#include "writers/append.hpp"

#include <array>
#include <charconv>

#include "platform/time/local_text.hpp"

namespace {

/// Enough room for any 64-bit number.
using Digits = std::array<char, 24>;

template <typename Number>
std::string_view decimal(Number number, Digits& digits) {
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return {digits.data(), static_cast<size_t>(result.ptr - digits.data())};
}

void append_two_digits(std::string& out, int number) {
  append_padded(out, static_cast<unsigned>(number), 2);
}

void set_two_digits(char* out, int number) {
  out[0] = static_cast<char>('0' + number / 10);
  out[1] = static_cast<char>('0' + number % 10);
}

/// Sets the digits of a text "YYYY-MM-DD hh:mm:ss". The year must have four digits.
void set_date_and_time(char* out, const std::tm& tm) {
  const int year = tm.tm_year + 1900;
  set_two_digits(out, year / 100);
  set_two_digits(out + 2, year % 100);
  set_two_digits(out + 5, tm.tm_mon + 1);
  set_two_digits(out + 8, tm.tm_mday);
  set_two_digits(out + 11, tm.tm_hour);
  set_two_digits(out + 14, tm.tm_min);
  set_two_digits(out + 17, tm.tm_sec);
}

bool has_usual_year(const std::tm& tm) {
  return tm.tm_year >= 1000 - 1900 && tm.tm_year <= 9999 - 1900;
}

}  // namespace

void append_unsigned(std::string& out, uint64_t number) {
  Digits digits;
  out.append(decimal(number, digits));
}

void append_signed(std::string& out, int64_t number) {
  Digits digits;
  out.append(decimal(number, digits));
}

void append_padded(std::string& out, unsigned number, size_t width) {
  Digits digits;
  const std::string_view text = decimal(number, digits);
  if (text.size() < width) {
    out.append(width - text.size(), '0');
  }
  out.append(text);
}

void append_date_and_time(std::string& out, const std::tm& tm) {
  if (has_usual_year(tm)) {
    const size_t begin = out.size();
    out.append("YYYY-MM-DD hh:mm:ss");
    set_date_and_time(out.data() + begin, tm);
    return;
  }
  append_padded(out, static_cast<unsigned>(tm.tm_year) + 1900, 4);
  out += '-';
  append_two_digits(out, tm.tm_mon + 1);
  out += '-';
  append_two_digits(out, tm.tm_mday);
  out += ' ';
  append_two_digits(out, tm.tm_hour);
  out += ':';
  append_two_digits(out, tm.tm_min);
  out += ':';
  append_two_digits(out, tm.tm_sec);
}

void append_iso8601(std::string& out, const std::tm& tm) {
  if (has_usual_year(tm)) {
    const size_t begin = out.size();
    out.append("YYYY-MM-DDThh:mm:ss+hhmm");
    char* text = out.data() + begin;
    set_date_and_time(text, tm);
    const bool is_west = tm.tm_gmtoff < 0;
    const auto minutes = static_cast<int>((is_west ? -tm.tm_gmtoff : tm.tm_gmtoff) / 60);
    text[19] = is_west ? '-' : '+';
    set_two_digits(text + 20, minutes / 60);
    set_two_digits(text + 22, minutes % 60);
    return;
  }
  out.append(local_text(tm, "%FT%T%z"));
}
