#pragma once

#include <string>
#include <string_view>

/// Two databases of libmagic. The small one (media_types.magic) is compiled into the program and
/// knows the usual media in microseconds. The large one is libmagic's own and is loaded at its
/// first use. If the small one knows an answer, the large one would give the same. Both use the
/// first 4 KiB of a file.

/// The type according to the small database. Empty when it does not know the type, or when this
/// libmagic cannot read a database compiled for another version.
std::string known_media_type(std::string_view head);

/// The type according to the large database; application/octet-stream when it does not know it.
/// Without the database the run fails, because a wrong type could remove an item from every
/// listing.
std::string libmagic_type(std::string_view head);
