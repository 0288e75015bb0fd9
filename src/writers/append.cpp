#include "writers/append.hpp"

#include <array>
#include <charconv>

namespace {

/// Long enough for any 64-bit number.
using Digits = std::array<char, 24>;

template <typename Number>
std::string_view decimal(Number number, Digits& digits) {
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return {digits.data(), static_cast<size_t>(result.ptr - digits.data())};
}

void append_two_digits(std::string& out, int number) {
  append_padded(out, static_cast<unsigned>(number), 2);
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
