#pragma once

#include <cstdint>
#include <string_view>

/// A 64-bit number that stands for a text (FNV-1a). Different texts almost never have the same. It
/// protects against mistakes, not against people who look for such texts.
class Fingerprint {
 public:
  void add(std::string_view text) {
    for (const char c : text) {
      value_ = (value_ ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    }
  }
  uint64_t value() const { return value_; }

 private:
  uint64_t value_ = 0xcbf29ce484222325U;
};
