#pragma once

#include <string_view>

/// Whether the C library knows the zone, as TZ would name it: a file of the machine's zone database
/// (RFC 8536) by its name or its path, with or without a colon before it, or a zone that is written
/// out, such as "EST5EDT,M3.2.0,M11.1.0" (POSIX). Any other text means UTC to it, without a word.
bool is_known_zone(std::string_view zone);
