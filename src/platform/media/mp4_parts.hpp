#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/media/media_source.hpp"
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

/// The parts of an MP4 file that hold its tags: its first box if that is "ftyp",
/// and the first "moov". Fragments, samples and free space before the "moov" are skipped.
/// Everything after it is ignored, however much there is. The outcome is `spent` when finding the
/// "moov" takes more than `reads` reads.
Mp4Parts find_mp4_parts(MediaSource& source, size_t reads);

/// Whether the head of an MP4 file shows that what holds its tags has at most that many bytes.
bool mp4_tags_end_within(const MediaSource& source, long most_bytes);

/// Whether a file begins like an ISO base media file (ISO/IEC 14496-12). Most media are such files.
bool is_mp4_head(std::string_view head);

/// Replaces NUL bytes inside the texts of a tag's item by blanks, because the library would cut the
/// texts there. The block may hold anything; it is changed only if it consists of boxes with texts.
void make_mp4_texts_whole(char* block, size_t size);
