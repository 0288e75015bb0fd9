#pragma once

#include <ctime>
#include <string>

/// Formats a calendar time as local text, with a format of strftime. At most 255 bytes. Empty when
/// the time has no local date.
std::string local_text(time_t t, const char* format);

/// The same for a broken-down time.
std::string local_text(const std::tm& broken_down, const char* format);
