#pragma once

#include <cstddef>
#include <vector>

#include "platform/media/packed_tags.hpp"

/// A range of a file, in bytes.
struct FilePart {
  long start;
  long size;
};

struct Mp4Parts {
  TagsOutcome outcome = TagsOutcome::read;
  std::vector<FilePart> parts;  ///< empty unless the outcome is `read`
};

/// The parts of an MP4 file of `length` bytes that hold its tags: its first box if that is "ftyp",
/// and the first "moov". Fragments, samples and free space before the "moov" are skipped.
/// Everything after it is ignored, however much there is. The outcome is `spent` when finding the
/// "moov" takes more than `reads` reads.
Mp4Parts find_mp4_parts(int fd, long length, size_t reads);

/// Replaces NUL bytes inside the texts of a tag's item by blanks, because the library would cut the
/// texts there. The block may hold anything; it is changed only if it consists of boxes with texts.
void make_mp4_texts_whole(char* block, size_t size);
