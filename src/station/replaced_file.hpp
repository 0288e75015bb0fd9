#pragma once

#include <string>
#include <string_view>

#include "platform/system/file.hpp"

/// A draft has the name of the file, this, and six characters.
inline constexpr const char* draft_mark = ".draft-";

/// The permissions of the new file: 644, or those of the old file.
enum class NewMode { readable, as_before };

/// A file that is written as a draft beside the old one. When it is complete and on the disk, it
/// replaces the old file at once. If the path is a device or a pipe, it is written to directly. If
/// the path is a link, the file that it points to is replaced. A link to a missing file, and a file
/// without read permission, are not replaced. Only one ReplacedFile exists at a time.
class ReplacedFile {
 public:
  /// Not open on failure, with errno set.
  ReplacedFile(const std::string& path, NewMode mode);
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  ~ReplacedFile();

  bool is_open() const { return file_.is_open(); }
  /// Whether it is a draft that will replace a file. False if it is written to directly.
  bool is_draft() const { return !draft_.empty(); }
  int fd() const { return file_.get(); }
  bool write(std::string_view text);

  /// Syncs it to the disk and replaces the old file. False, with errno set and the old file
  /// unchanged, when that fails.
  bool publish();

 private:
  void open_draft(mode_t mode);

  std::string path_;
  std::string draft_;  ///< empty: no draft
  FileDescriptor file_;
};

/// Removes the draft in work, if there is one, without allocating memory. For runs that end at
/// once. A signal handler may call this.
void remove_draft();
