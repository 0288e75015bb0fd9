#pragma once

#include <string>
#include <string_view>

/// Two databases of libmagic's. The small one (media_types.magic, compiled into the program) knows
/// the usual media in microseconds and gives no other answer than the large one, which is
/// libmagic's own and is loaded when it is first asked. Both take a file's first 4 KiB.

/// What the small database makes of the head; empty when it does not know it, or another libmagic
/// than the one it was compiled for cannot read it.
std::string known_media_type(std::string_view head);

/// What the large database makes of the head; application/octet-stream when it does not know it.
/// Without the database the run fails: a wrong type could take an item out of every listing.
std::string libmagic_type(std::string_view head);
