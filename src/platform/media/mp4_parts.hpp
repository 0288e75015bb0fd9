#pragma once

#include <cstddef>
#include <vector>

#include "platform/media/packed_tags.hpp"

/// A stretch of a file, in bytes.
struct FilePart {
  long start;
  long size;
};

struct Mp4Parts {
  TagsOutcome outcome = TagsOutcome::read;
  std::vector<FilePart> parts;  ///< empty unless they were found
};

/// The parts of an MP4 file of `length` bytes that tell its tags: its first box if that is "ftyp",
/// and the first "moov". Fragments, samples and free space in front of that are passed over, and
/// what follows it is never looked at, however many boxes that are. Spent when it takes more than
/// `reads` reads to find the "moov".
Mp4Parts find_mp4_parts(int fd, long length, size_t reads);

/// Puts blanks for the NUL bytes amid the texts of a tag's item, where the library would cut them
/// off. The block may be any; only one that consists of boxes with texts is changed.
void make_mp4_texts_whole(char* block, size_t size);
