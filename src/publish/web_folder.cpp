#include "publish/web_folder.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

#include "publish/publish_options.hpp"
#include "station/channel_jobs.hpp"
#include "station/fingerprint.hpp"
#include "station/replaced_file.hpp"

namespace fs = std::filesystem;

namespace {

constexpr const char* lock_file = ".nv8x-publish.lock";
constexpr size_t piece_size = 256UL * 1024;

/// Calls take(piece) for the whole file. False, with errno set, when it cannot be read.
template <typename Take>
bool for_each_piece_of(int file, Take take) {
  std::string buffer(piece_size, '\0');
  long offset = 0;
  for (;;) {
    const auto length = read_fully_at(file, buffer.data(), buffer.size(), offset);
    if (!length) {
      return false;
    }
    if (*length == 0) {
      return true;
    }
    if (!take(std::string_view(buffer).substr(0, *length))) {
      return false;
    }
    offset += static_cast<long>(*length);
  }
}

bool have_same_bytes(int one, int other) {
  long offset = 0;
  std::string buffer(piece_size, '\0');
  const bool is_same = for_each_piece_of(one, [&](std::string_view piece) {
    const auto length = read_fully_at(other, buffer.data(), piece.size(), offset);
    offset += static_cast<long>(piece.size());
    return length && std::string_view(buffer).substr(0, *length) == piece;
  });
  char more = '\0';
  return is_same && read_fully_at(other, &more, 1, offset) == 0U;
}

/// Whether the name is that of a draft of one of the pages.
bool is_draft_of(std::string_view name, const std::set<std::string>& pages) {
  constexpr size_t random_characters = 6;
  const std::string_view mark = draft_mark;
  const size_t end = mark.size() + random_characters;
  return name.size() > end && name.substr(name.size() - end, mark.size()) == mark &&
         pages.contains(std::string(name.substr(0, name.size() - end)));
}

/// Whether something other than a file is at the path. A FIFO would keep the run waiting.
bool is_no_file(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

/// Replaces the file. False, with `reason`, when that fails; the old file is then unchanged.
bool replace_file(const std::string& path, const WritePage& write, std::string& reason) {
  if (is_no_file(path)) {
    reason = "'" + path + "' is no file";
    return false;
  }
  ReplacedFile file(path, NewMode::readable);
  const bool is_replaced = file.is_open() && write(file.fd()) && file.publish();
  reason = is_replaced ? "" : std::strerror(errno);
  return is_replaced;
}

}  // namespace

WebFolder::WebFolder(const std::string& path, bool is_dry_run) : is_dry_run_(is_dry_run) {
  std::error_code unknown;
  path_ = fs::canonical(path, unknown).string();
  if (unknown || !fs::is_directory(path_, unknown)) {
    error_ = "'" + path + "' is no folder";
  } else if (!is_dry_run && !lock(path)) {
    error_ = "'" + path + "' cannot be written to: " + std::strerror(errno);
  } else {
    read_state();
  }
}

bool WebFolder::lock(const std::string& path) {
  lock_.reset(::open((path_ + "/" + lock_file).c_str(),
                     O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0644));
  if (!lock_.is_open()) {
    return false;
  }
  if (flock(lock_.get(), LOCK_EX | LOCK_NB) == 0) {
    return true;
  }
  if (errno != EWOULDBLOCK) {
    return false;
  }
  std::fprintf(stderr, "%s: another run publishes into '%s'; waiting for its end\n", publisher,
               path.c_str());
  while (flock(lock_.get(), LOCK_EX) != 0) {
    if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

void WebFolder::read_state() {
  const FileDescriptor file =
      open_regular_file(AT_FDCWD, (path_ + "/" + state_file).c_str(), Links::refused);
  if (!file.is_open()) {
    has_damaged_state_ = errno != ENOENT;
    return;
  }
  const auto content = read_content(file.get());
  has_damaged_state_ = !content || !parse_state(*content, state_);
}

void WebFolder::remove_old_drafts(const std::set<std::string>& pages) {
  std::error_code unreadable;
  std::vector<fs::path> drafts;
  for (fs::directory_iterator entry(path_, unreadable), end; !unreadable && entry != end;
       entry.increment(unreadable)) {
    if (is_draft_of(entry->path().filename().string(), pages)) {
      drafts.push_back(entry->path());
    }
  }
  for (const fs::path& draft : drafts) {
    unlink(draft.c_str());
  }
}

Outcome WebFolder::publish(const std::string& page, const WritePage& write, std::string& reason) {
  const FileDescriptor text = open_scratch_file();
  Fingerprint fingerprint;
  if (!text.is_open() || !write(text.get()) ||
      !for_each_piece_of(text.get(), [&](std::string_view piece) {
        fingerprint.add(piece);
        return true;
      })) {
    reason = std::strerror(errno);
    return Outcome::failed;
  }
  if (is_unchanged(page, text.get(), fingerprint.value())) {
    state_.pages[page] = fingerprint.value();
    return Outcome::unchanged;
  }
  if (is_dry_run_) {
    return Outcome::would_publish;
  }
  if (!replace(page, text.get(), reason)) {
    return Outcome::failed;
  }
  state_.pages[page] = fingerprint.value();
  return Outcome::published;
}

/// The recorded fingerprint spares reading most old pages. Another program may have changed a page,
/// so its bytes are compared too.
bool WebFolder::is_unchanged(const std::string& page, int text, uint64_t fingerprint) const {
  const auto recorded = state_.pages.find(page);
  if (recorded != state_.pages.end() && recorded->second != fingerprint) {
    return false;
  }
  const FileDescriptor old = open_regular_file(AT_FDCWD, (path_ + "/" + page).c_str());
  return old.is_open() && have_same_bytes(text, old.get());
}

bool WebFolder::replace(const std::string& page, int text, std::string& reason) {
  return replace_file(
      path_ + "/" + page,
      [&](int file) {
        return for_each_piece_of(text,
                                 [&](std::string_view piece) { return write_fully(file, piece); });
      },
      reason);
}

bool WebFolder::finish(std::string& reason) {
  if (is_dry_run_) {
    return true;
  }
  const auto write = [&](int file) { return write_fully(file, text_of_state(state_)); };
  if (!replace_file(path_ + "/" + state_file, write, reason)) {
    return false;
  }
  const FileDescriptor folder(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const bool is_synced = folder.is_open() && fsync(folder.get()) == 0;
  reason = is_synced ? "" : std::strerror(errno);
  return is_synced;
}
