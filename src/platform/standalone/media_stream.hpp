#pragma once

#include <tiostream.h>

#include <string>

/// What reading one media file's tags may take.
struct ReadBudget {
  size_t bytes;
  size_t reads;
  bool risks;  ///< whether to read what can take much more memory than it has bytes
};

/// A media file as the tag library reads it: through one descriptor, which stays the caller's, and
/// one buffer, with no system call for a change of place. The library's own stream makes some
/// eighty for a small file. Writing does nothing. Once its budget is spent, the file seems to end
/// wherever it is read.
class MediaStream : public TagLib::IOStream {
 public:
  /// The library takes the format from the name's extension, or from the content without a name.
  MediaStream(int fd, std::string name, const ReadBudget& budget);

  /// Whether the library was told less than the file holds.
  bool is_spent() const { return is_spent_; }

  TagLib::FileName name() const override;
  TagLib::ByteVector readBlock(unsigned long length) override;
  void writeBlock(const TagLib::ByteVector& data) override;
  void insert(const TagLib::ByteVector& data, unsigned long start, unsigned long replace) override;
  void removeBlock(unsigned long start, unsigned long length) override;
  bool readOnly() const override;
  bool isOpen() const override;
  void seek(long offset, Position from) override;
  void clear() override;
  long tell() const override;
  long length() override;
  void truncate(long length) override;

  /// Whether something of the file could not be read; the library takes that for its end.
  bool has_failed() const { return has_failed_; }

 private:
  size_t read_at(char* bytes, size_t size, long offset);
  TagLib::ByteVector read_within_file(size_t wanted);
  bool unfolds(const TagLib::ByteVector& block);

  int fd_;
  std::string name_;
  ReadBudget left_;
  bool is_spent_ = false;
  bool id3v2_follows_ = false;
  long length_ = 0;
  long position_ = 0;
  bool has_failed_ = false;
  std::string buffer_;
  long buffer_start_ = 0;
};
