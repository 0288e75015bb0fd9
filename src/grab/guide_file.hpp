#pragma once

#include <string>
#include <string_view>

#include "platform/system/file.hpp"

/// The permissions of the new file: 644, or those of the file whose place it takes.
enum class NewMode { readable, as_before };

/// A file that is written beside its place and takes it as a whole, once it is on the disk. What
/// stands there and is no regular file, a device or a pipe, is written to as it is; so is the file
/// that a link leads to replaced, not the link. A link that leads nowhere, and a file that may not
/// be read, are not replaced. There is one at a time.
class GuideFile {
 public:
  /// Not open on failure, with errno set.
  GuideFile(const std::string& path, NewMode mode);
  GuideFile(const GuideFile&) = delete;
  GuideFile& operator=(const GuideFile&) = delete;
  ~GuideFile();

  bool is_open() const { return file_.is_open(); }
  /// Whether it takes a place later, and is not written to what is there.
  bool is_draft() const { return !draft_.empty(); }
  int fd() const { return file_.get(); }
  bool write(std::string_view text);

  /// Brings it to the disk and into its place. False, with errno set and the old file there, when
  /// that fails.
  bool publish();

 private:
  void open_draft(mode_t mode);

  std::string path_;
  std::string draft_;  ///< empty: written in place
  FileDescriptor file_;
};

/// Removes the draft that is being written, if there is one, and asks for no memory: for runs that
/// end at once. A handler of signals may call this.
void remove_draft();
