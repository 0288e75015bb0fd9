#pragma once

#include <string>
#include <string_view>

#include "platform/system/file.hpp"

/// A file that is written beside its place and takes it as a whole, once it is on the disk. What
/// stands there and is no regular file, a device or a pipe, is written to as it is; so is the file
/// that a link leads to replaced, not the link.
class GuideFile {
 public:
  explicit GuideFile(const std::string& path);
  GuideFile(const GuideFile&) = delete;
  GuideFile& operator=(const GuideFile&) = delete;
  ~GuideFile();

  bool is_open() const { return file_.is_open(); }
  int fd() const { return file_.get(); }
  bool write(std::string_view text);

  /// Brings it to the disk and into its place. False, with errno set and the old file there, when
  /// that fails.
  bool publish();

 private:
  std::string path_;
  std::string draft_;  ///< empty: written in place
  FileDescriptor file_;
};
