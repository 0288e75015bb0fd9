#pragma once

#include <taglib.h>
#include <tiostream.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/media/mp4_parts.hpp"

// The types in which the tag library counts bytes, those of version 2 and of version 1.
#if TAGLIB_MAJOR_VERSION >= 2
using StreamOffset = TagLib::offset_t;
using StreamStart = TagLib::offset_t;
using StreamSize = size_t;
#else
using StreamOffset = long;
using StreamStart = unsigned long;
using StreamSize = unsigned long;
#endif

/// What reading one media file's tags may take.
struct ReadBudget {
  size_t bytes;     ///< without pictures
  size_t pictures;  ///< bytes of pictures that are passed over
  size_t reads;
  size_t box_reads;  ///< to find the part of an MP4 file that holds its tags
  bool risks;        ///< whether to read what can take much more memory than it has bytes
};

/// Whether a block is a picture, and if so whether the library does with less of it than there is.
enum class PictureKind { none, may_be_short, must_be_whole };

/// A media file as the tag library reads it: through one descriptor, which stays the caller's, and
/// one buffer, with no system call for a change of place. The library's own stream makes some
/// eighty for a small file. Pictures, of which nothing is shown, are not loaded: they seem empty.
/// Writing does nothing. Once its budget is spent, the file seems to end wherever it is read.
class MediaStream : public TagLib::IOStream {
 public:
  /// The library takes the format from the name's extension, or from the content without a name.
  MediaStream(int fd, std::string name, const ReadBudget& budget);

  /// Makes an MP4 file seem to consist of its parts with tags alone, and goes to its beginning.
  void show_mp4_parts();

  /// Whether the library was told less than the file holds.
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

  /// Whether something of the file could not be read; the library takes that for its end.
  bool has_failed() const { return has_failed_; }

  /// The names of tags that the library did not see since they are too large.
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

  int fd_;
  std::string name_;
  ReadBudget left_;
  std::vector<FilePart> parts_;  ///< what the library sees of the file, in this order
  bool is_mp4_ = false;
  bool is_spent_ = false;
  std::string id3v2_header_;  ///< of the tag that the next block is; empty: of none
  StreamOffset length_ = 0;
  StreamOffset position_ = 0;
  bool has_failed_ = false;
  std::string left_out_;
  std::string buffer_;
  StreamOffset buffer_start_ = 0;
};
