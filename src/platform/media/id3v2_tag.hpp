#pragma once

#include <string>
#include <string_view>
#include <vector>

// ID3v2 tags (versions 2.2 to 2.4) as blocks of bytes. These functions find the parts that need not
// be read, and the parts that can take much more memory or time than their size suggests.

/// Whether a block is the header of a tag.
bool is_id3v2_header(std::string_view block);

/// Whether the header announces a tag whose frames are stored in a changed form.
bool id3v2_header_is_unusual(std::string_view header);

/// Removes frames from the tag after the header, unless they are stored in a changed form. Frames
/// that are never shown, mainly pictures, are removed. So are frames with more than `most_bytes`;
/// their ids are returned. From a frame on whose size is ambiguous, everything stays.
std::vector<std::string> remove_id3v2_frames(std::string_view header, std::string& tag,
                                             size_t most_bytes);

/// Whether the tag after the header may hold frames that grow when they are read: compressed
/// frames, chapters, which can contain other chapters, and long lists of genres. In doubt the
/// result is true.
bool id3v2_may_unfold(std::string_view header, std::string_view tag);
