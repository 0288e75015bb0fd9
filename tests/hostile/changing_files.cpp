// Linked into a program in place of the C library's read, pread, lstat and fstatat: just before the
// read number CHANGE_AT of the file CHANGE_FILE, that file gets CHANGE_SIZE bytes; just after the
// look number REPLACE_AT by lstat, or REPLACE_STAT_AT by fstatat, at the path REPLACE_FILE, what
// lies at REPLACE_BY takes its place.

// The C library's checked versions are inline functions of the same names.
#undef _FORTIFY_SOURCE  // NOLINT(clang-diagnostic-reserved-macro-identifier)

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

bool is_file_to_change(int fd, const char* path) {
  struct stat own = {};
  struct stat other = {};
  return fstat(fd, &own) == 0 && stat(path, &other) == 0 && own.st_ino == other.st_ino &&
         own.st_dev == other.st_dev;
}

long number_in(const char* name) {
  const char* text = std::getenv(name);
  return text != nullptr ? std::strtol(text, nullptr, 10) : 0;
}

void change_in_time(int fd) {
  static long reads = 0;
  const char* path = std::getenv("CHANGE_FILE");
  if (path == nullptr || !is_file_to_change(fd, path)) {
    return;
  }
  if (++reads == number_in("CHANGE_AT") && truncate(path, number_in("CHANGE_SIZE")) == 0) {
    static_cast<void>(!::write(STDERR_FILENO, "changed\n", 8));
  }
}

void replace_in_time(std::string_view path, long& looks, const char* when) {
  const char* file = std::getenv("REPLACE_FILE");
  if (file == nullptr || path != file) {
    return;
  }
  if (++looks == number_in(when) && std::rename(std::getenv("REPLACE_BY"), file) == 0) {
    static_cast<void>(!::write(STDERR_FILENO, "replaced\n", 9));
  }
}

}  // namespace

extern "C" int lstat(const char* file, struct stat* buf) {
  static long looks = 0;
  const long result = syscall(SYS_newfstatat, AT_FDCWD, file, buf, AT_SYMLINK_NOFOLLOW);
  replace_in_time(file, looks, "REPLACE_AT");
  return static_cast<int>(result);
}

extern "C" int fstatat(int fd, const char* file, struct stat* buf, int flag) {
  static long looks = 0;
  const long result = syscall(SYS_newfstatat, fd, file, buf, flag);
  replace_in_time(file, looks, "REPLACE_STAT_AT");
  return static_cast<int>(result);
}

extern "C" ssize_t read(int fd, void* buf, size_t nbytes) {
  change_in_time(fd);
  return syscall(SYS_read, fd, buf, nbytes);
}

extern "C" ssize_t pread(int fd, void* buf, size_t nbytes, off_t offset) {
  change_in_time(fd);
  return syscall(SYS_pread64, fd, buf, nbytes, offset);
}
