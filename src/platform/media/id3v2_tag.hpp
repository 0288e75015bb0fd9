#pragma once

#include <string>
#include <string_view>
#include <vector>

// ID3v2 tags (versions 2.2 to 2.4) as blocks of bytes: what in them need not be read, and what can
// take much more memory or time than it has bytes.

/// Whether a block that was read is the tag's header.
bool is_id3v2_header(std::string_view block);

/// Whether the header announces a tag whose frames are not to be seen as they stand.
bool id3v2_header_is_unusual(std::string_view header);

/// Takes out of the tag behind the header, if its frames stand there as they are, those of which
/// nothing is ever shown, pictures above all, and those that have more than `most_bytes`; gives the
/// ids of these. Where a frame's size may be read in two ways, it and what follows it stay.
std::vector<std::string> remove_id3v2_frames(std::string_view header, std::string& tag,
                                             size_t most_bytes);

/// Whether the tag behind the header may hold frames that unfold when they are read: compressed
/// ones, chapters, which hold frames that may be chapters again, and long lists of genres. May err
/// to the safe side.
bool id3v2_may_unfold(std::string_view header, std::string_view tag);
