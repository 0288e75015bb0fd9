#pragma once

#include <string>
#include <string_view>

/// A folder of its own for this process, taken away at the end.
class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  const std::string& path() const { return path_; }
  /// Open handle on the folder.
  int handle() const { return handle_; }

  /// Makes or replaces a file; aborts when that fails.
  void write(const char* name, std::string_view content) const;

 private:
  std::string path_;
  int handle_;
};
