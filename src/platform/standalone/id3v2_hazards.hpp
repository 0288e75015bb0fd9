#pragma once

#include <string_view>

// What in an ID3v2 tag (as of versions 2.2 to 2.4) can take much more memory than it has bytes:
// frames that are compressed, and chapters, which hold frames that may be chapters again.

/// Whether a block that was read is the tag's header.
bool is_id3v2_header(std::string_view block);

/// Whether the header announces a tag whose frames are not to be seen as they stand.
bool id3v2_header_is_unusual(std::string_view header);

/// Whether the tag behind the header may hold such frames. May err to the safe side.
bool id3v2_may_unfold(std::string_view tag);
