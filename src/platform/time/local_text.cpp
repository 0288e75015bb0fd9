#include "platform/time/local_text.hpp"

#include <array>

std::string local_text(time_t t, const char* format) {
  std::tm broken_down{};
  return localtime_r(&t, &broken_down) != nullptr ? local_text(broken_down, format) : std::string();
}

std::string local_text(const std::tm& broken_down, const char* format) {
  std::array<char, 256> text{};
  return {text.data(), std::strftime(text.data(), text.size(), format, &broken_down)};
}
