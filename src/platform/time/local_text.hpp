#pragma once

#include <ctime>
#include <string>

/// A calendar time as local text in a format of strftime; empty when it has no local date. At most
/// 255 bytes.
std::string local_text(time_t t, const char* format);

/// The same for a time that is broken down already.
std::string local_text(const std::tm& broken_down, const char* format);
