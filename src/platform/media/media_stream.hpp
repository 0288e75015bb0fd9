#pragma once

#include <taglib.h>
#include <tiostream.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/media/mp4_parts.hpp"

// The types in which the tag library counts bytes, for its versions 2 and 1.
#if TAGLIB_MAJOR_VERSION >= 2
using StreamOffset = TagLib::offset_t;
using StreamStart = TagLib::offset_t;
using StreamSize = size_t;
#else
using StreamOffset = long;
using StreamStart = unsigned long;
using StreamSize = unsigned long;
#endif

/// In bytes. Larger tags are left out if their size is known before they are read. The longest text
/// that the helper process may return takes half of this in UTF-16.
inline constexpr size_t largest_tag = 4UL * 1024 * 1024;

/// The limits for reading the tags of one media file.
struct ReadBudget {
  size_t bytes;     ///< without pictures
  size_t pictures;  ///< bytes of pictures that are skipped
  size_t reads;
  size_t box_reads;  ///< to find the part of an MP4 file that holds its tags
  bool risks;  ///< whether to read parts that can take much more memory than their size suggests
};

/// Whether a block is a picture and, if so, whether the library accepts a shorter one.
enum class PictureKind { none, may_be_short, must_be_whole };

/// A media file as the tag library reads it, through a source, which the caller still owns, and
/// one buffer. Seeking needs no system call; the library's own stream makes about eighty calls
/// for a small file. Pictures are not loaded, because nothing of them is shown: they seem empty.
/// Writing does nothing. When its budget is spent, the file seems to end at each read.
class MediaStream : public TagLib::IOStream {
 public:
  /// The library goes by the extension of the name or, without a name, by the content.
  MediaStream(MediaSource& source, std::string name, const ReadBudget& budget);

  /// Makes an MP4 file look as if it had only the parts with tags, and goes to its beginning.
  void show_mp4_parts();

  /// Whether the library saw less than the file holds because a budget was spent.
  bool is_spent() const { return is_spent_; }

  TagLib::FileName name() const override;
  TagLib::ByteVector readBlock(StreamSize length) override;
  void writeBlock(const TagLib::ByteVector& data) override;
  void insert(const TagLib::ByteVector& data, StreamStart start, StreamSize replace) override;
  void removeBlock(StreamStart start, StreamSize length) override;
  bool readOnly() const override;
  bool isOpen() const override;
  void seek(StreamOffset offset, Position from) override;
  void clear() override;
  StreamOffset tell() const override;
  StreamOffset length() override;
  void truncate(StreamOffset length) override;

  /// Whether a read of the file failed. The library takes a failure for the end of the file.
  bool has_failed() const { return has_failed_; }

  /// The names of tags that were too large to show to the library.
  const std::string& left_out() const { return left_out_; }

 private:
  size_t read_at(char* bytes, size_t size, StreamOffset offset);
  size_t bytes_left() const;
  bool spend(size_t& budget, size_t amount);
  std::string bytes_before();
  TagLib::ByteVector pass_over(size_t size, PictureKind kind);
  TagLib::ByteVector read_id3v2_tag(std::string_view header, size_t size);
  TagLib::ByteVector read_within_file(size_t wanted);
  TagLib::ByteVector leave_out_mp4_item(size_t size);

  MediaSource& source_;
  std::string name_;
  ReadBudget left_;
  std::vector<FilePart> parts_;  ///< the parts of the file that the library sees, in order
  bool is_mp4_ = false;
  bool is_spent_ = false;
  std::string id3v2_header_;  ///< header of the tag in the next block; empty if it is not a tag
  StreamOffset length_ = 0;
  StreamOffset position_ = 0;
  bool has_failed_ = false;
  std::string left_out_;
  std::string buffer_;
  StreamOffset buffer_start_ = 0;
};
