#include "grab/guide_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

GuideFile::GuideFile(const std::string& path) : path_(path), draft_(path + ".XXXXXX") {
  file_.reset(mkostemp(draft_.data(), O_CLOEXEC));
  if (file_.is_open()) {
    constexpr mode_t readable = 0644;
    fchmod(file_.get(), readable);
  }
}

GuideFile::~GuideFile() {
  if (file_.is_open()) {
    unlink(draft_.c_str());
  }
}

bool GuideFile::write(std::string_view text) {
  return write_fully(file_.get(), text);
}

bool GuideFile::publish() {
  if (fsync(file_.get()) != 0 || std::rename(draft_.c_str(), path_.c_str()) != 0) {
    return false;
  }
  file_.reset();
  return true;
}
