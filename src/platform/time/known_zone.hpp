#pragma once

#include <string_view>

/// Whether the C library knows this zone as a value of TZ. It may be a file of the machine's zone
/// database (RFC 8536), by name or path, with or without a colon in front. Or it may be written
/// out, such as "EST5EDT,M3.2.0,M11.1.0" (POSIX). The library treats any other text as UTC, without
/// a message.
bool is_known_zone(std::string_view zone);
