#include "grab/guide_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

/// Where the links end that begin at the path.
std::string behind_links(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
  return error ? path : target.string();
}

bool is_special(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

}  // namespace

GuideFile::GuideFile(const std::string& path) : path_(behind_links(path)) {
  if (is_special(path_)) {
    file_.reset(::open(path_.c_str(), O_WRONLY | O_CLOEXEC));
    return;
  }
  draft_ = path_ + ".XXXXXX";
  file_.reset(mkostemp(draft_.data(), O_CLOEXEC));
  if (file_.is_open()) {
    constexpr mode_t readable = 0644;
    fchmod(file_.get(), readable);
  }
}

GuideFile::~GuideFile() {
  if (file_.is_open() && !draft_.empty()) {
    unlink(draft_.c_str());
  }
}

bool GuideFile::write(std::string_view text) {
  return write_fully(file_.get(), text);
}

bool GuideFile::publish() {
  if (!draft_.empty() &&
      (fsync(file_.get()) != 0 || std::rename(draft_.c_str(), path_.c_str()) != 0)) {
    return false;
  }
  file_.reset();
  return true;
}
