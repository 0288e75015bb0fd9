#include "station/replaced_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "station/held_signals.hpp"

namespace {

// A channel's process has a copy of this. It must not remove the file that its parent writes.
std::atomic<const char*> draft_at_work = nullptr;
pid_t owner_of_draft = 0;
static_assert(std::atomic<const char*>::is_always_lock_free, "a handler of signals reads it");

/// Whether a new file can replace the one at the path. `old` describes that file; its mode is 0
/// when there is none.
bool is_replaceable(const std::string& path, struct stat& old) {
  if (stat(path.c_str(), &old) == 0) {
    return !S_ISREG(old.st_mode) || faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) == 0;
  }
  if (errno != ENOENT) {
    return false;
  }
  old = {};
  struct stat link = {};
  const bool is_dangling = lstat(path.c_str(), &link) == 0;
  errno = ENOENT;
  return !is_dangling;
}

}  // namespace

ReplacedFile::ReplacedFile(const std::string& path, NewMode mode) : path_(path) {
  struct stat old = {};
  if (!is_replaceable(path, old)) {
    return;
  }
  const bool is_there = old.st_mode != 0;
  if (is_there && !S_ISREG(old.st_mode)) {
    file_.reset(::open(path_.c_str(), O_WRONLY | O_CLOEXEC));
    return;
  }
  if (is_there) {
    std::error_code error;
    path_ = std::filesystem::canonical(path, error).string();
    if (error) {
      errno = error.value();
      return;
    }
  }
  constexpr mode_t readable = 0644;
  constexpr mode_t permissions = 0777;
  open_draft(is_there && mode == NewMode::as_before ? old.st_mode & permissions : readable);
}

void ReplacedFile::open_draft(mode_t mode) {
  const SignalsHeldBack held_back;
  std::string draft = path_ + draft_mark + "XXXXXX";
  file_.reset(mkostemp(draft.data(), O_CLOEXEC));
  if (!file_.is_open()) {
    return;
  }
  draft_ = std::move(draft);
  owner_of_draft = getpid();
  draft_at_work = draft_.c_str();
  if (fchmod(file_.get(), mode) != 0) {
    const int error = errno;
    remove_draft();
    file_.reset();
    errno = error;
  }
}

ReplacedFile::~ReplacedFile() {
  remove_draft();
}

bool ReplacedFile::write(std::string_view text) {
  return write_fully(file_.get(), text);
}

bool ReplacedFile::publish() {
  if (!draft_.empty()) {
    if (fsync(file_.get()) != 0 || std::rename(draft_.c_str(), path_.c_str()) != 0) {
      return false;
    }
    draft_at_work = nullptr;
  }
  file_.reset();
  return true;
}

void remove_draft() {
  const char* const draft = draft_at_work.exchange(nullptr);
  if (draft != nullptr && owner_of_draft == getpid()) {
    unlink(draft);
  }
}
