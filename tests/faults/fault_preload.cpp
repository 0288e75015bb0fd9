// Preloaded (LD_PRELOAD), makes the calls of one kind fail. The environment says which:
//
//   FAULT=KIND:N      the Nth call of the kind fails; KIND:N+ the Nth and all that follow
//   FAULT_ERRNO=E     with this errno; 0: a read or write moves one byte instead of failing
//   FAULT_REPORT=PATH this file is created when the Nth call is made
//
// With FAULT_SERVER=SOCKET the process forks a run for each fault that is asked for there instead.
//
// The kinds are open (all that makes a descriptor of a file), read (with pread), stat (with
// access), fadvise, lseek, mmap, malloc (all that takes memory), write, close, fsync, rename,
// unlink, mkdir, chmod, chdir, fork, waitpid, socketpair, sendmsg, send, recvmsg and setitimer.
// Allocations fail in programs that link the project's own allocation functions. Calls that the C
// library makes for itself pass by: those are strace's. All goes by system call from here, as
// looking the real functions up would take memory.

#include "fault_server.hpp"

#include <fcntl.h>
#include <malloc.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// The names are the C library's, and so are their headers' names of parameters.
// NOLINTBEGIN(clang-diagnostic-reserved-*)
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)

extern "C" {
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* memory);
}

namespace {

constexpr size_t minimal_alignment = 16;

const char* fault_kind = nullptr;  // null: nothing fails
size_t fault_kind_length = 0;
long first_failing = 0;
bool all_that_follow = false;
int fault_errno = 0;
const char* report_path = nullptr;
long* calls = nullptr;  // shared with the processes that the program forks

FaultOfRun wanted_fault() {
  if (const char* number = std::getenv("FAULT_SERVER")) {
    const auto socket = static_cast<int>(std::strtol(number, nullptr, 10));
    unsetenv("FAULT_SERVER");  // what the program starts is no server
    return serve_runs(socket);
  }
  return {std::getenv("FAULT"), std::getenv("FAULT_ERRNO"), std::getenv("FAULT_REPORT")};
}

[[gnu::constructor]] void plant_fault() {
  const auto [fault, wanted_errno, report] = wanted_fault();
  const char* number = fault != nullptr ? std::strchr(fault, ':') : nullptr;
  if (number == nullptr) {
    return;
  }
  char* end = nullptr;
  first_failing = std::strtol(number + 1, &end, 10);
  all_that_follow = *end == '+';
  fault_errno =
      wanted_errno != nullptr ? static_cast<int>(std::strtol(wanted_errno, nullptr, 10)) : EIO;
  report_path = report;
  constexpr int no_file = -1;
  calls = static_cast<long*>(
      // NOLINTNEXTLINE(performance-no-int-to-ptr,bugprone-casting-through-void): a number
      reinterpret_cast<void*>(syscall(SYS_mmap, nullptr, sizeof(*calls), PROT_READ | PROT_WRITE,
                                      MAP_SHARED | MAP_ANONYMOUS, no_file, 0)));
  fault_kind_length = static_cast<size_t>(number - fault);
  fault_kind = fault;
}

/// Counts a call of the kind; whether it is one that fails.
bool is_due(const char* kind) {
  if (fault_kind == nullptr || std::strlen(kind) != fault_kind_length ||
      std::strncmp(fault_kind, kind, fault_kind_length) != 0) {
    return false;
  }
  // Processes that run side by side count together.
  const long number = __atomic_add_fetch(calls, 1, __ATOMIC_RELAXED);
  if (number == first_failing && report_path != nullptr) {
    const long report = syscall(SYS_openat, AT_FDCWD, report_path, O_CREAT | O_WRONLY, 0600);
    syscall(SYS_close, report);
  }
  return number == first_failing || (all_that_follow && number > first_failing);
}

/// The same for calls that fail as a whole; errno is set when they do.
bool fails(const char* kind) {
  if (!is_due(kind)) {
    return false;
  }
  errno = fault_errno;
  return true;
}

/// How much a read or write of that size may move; negative, with errno set, when it fails.
ssize_t allowed_size(const char* kind, size_t size) {
  if (!is_due(kind)) {
    return static_cast<ssize_t>(size);
  }
  if (fault_errno == 0) {
    return static_cast<ssize_t>(std::min<size_t>(size, 1));
  }
  errno = fault_errno;
  return -1;
}

int open_file(int directory, const char* path, int flags, mode_t mode) {
  return fails("open") ? -1 : static_cast<int>(syscall(SYS_openat, directory, path, flags, mode));
}

int look_at(int directory, const char* path, struct stat* status, int flags) {
  return fails("stat") ? -1
                       : static_cast<int>(syscall(SYS_newfstatat, directory, path, status, flags));
}

ssize_t read_at(int fd, void* bytes, size_t size, off_t offset) {
  const ssize_t allowed = allowed_size("read", size);
  return allowed < 0 ? -1 : syscall(SYS_pread64, fd, bytes, allowed, offset);
}

void* map(void* address, size_t size, int protection, int flags, int fd, off_t offset) {
  if (fails("mmap")) {
    return MAP_FAILED;
  }
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a system call gives a number
  return reinterpret_cast<void*>(syscall(SYS_mmap, address, size, protection, flags, fd, offset));
}

void* allocate(size_t alignment, size_t size) {
  return fails("malloc") ? nullptr : __libc_memalign(alignment, size);
}

/// The mode that follows the flags of an open that may create its file.
mode_t mode_of(int flags, std::va_list arguments) {
  const bool creates = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  return creates ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_of(flags, arguments);
  va_end(arguments);
  return open_file(AT_FDCWD, path, flags, mode);
}

int openat(int directory, const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_of(flags, arguments);
  va_end(arguments);
  return open_file(directory, path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_of(flags, arguments);
  va_end(arguments);
  return open_file(AT_FDCWD, path, flags, mode);
}

int openat64(int directory, const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_of(flags, arguments);
  va_end(arguments);
  return open_file(directory, path, flags, mode);
}

// What the C library's headers make of an open whose flags the compiler does not know.
int __open_2(const char* path, int flags) {
  return open_file(AT_FDCWD, path, flags, 0);
}

int __openat_2(int directory, const char* path, int flags) {
  return open_file(directory, path, flags, 0);
}

int mkostemp(char* path, int flags) {
  return fails("open") ? -1 : mkostemp64(path, flags);
}

int memfd_create(const char* name, unsigned flags) {
  return fails("open") ? -1 : static_cast<int>(syscall(SYS_memfd_create, name, flags));
}

int fstat(int fd, struct stat* status) {
  return look_at(fd, "", status, AT_EMPTY_PATH);
}

int fstat64(int fd, struct stat64* status) {
  return look_at(fd, "", reinterpret_cast<struct stat*>(status), AT_EMPTY_PATH);
}

int stat(const char* path, struct stat* status) {
  return look_at(AT_FDCWD, path, status, 0);
}

int stat64(const char* path, struct stat64* status) {
  return look_at(AT_FDCWD, path, reinterpret_cast<struct stat*>(status), 0);
}

int lstat(const char* path, struct stat* status) {
  return look_at(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}

int lstat64(const char* path, struct stat64* status) {
  return look_at(AT_FDCWD, path, reinterpret_cast<struct stat*>(status), AT_SYMLINK_NOFOLLOW);
}

int fstatat(int fd, const char* file, struct stat* buf, int flag) {
  return look_at(fd, file, buf, flag);
}

int fstatat64(int directory, const char* path, struct stat64* status, int flags) {
  return look_at(directory, path, reinterpret_cast<struct stat*>(status), flags);
}

int access(const char* path, int mode) {
  return fails("stat") ? -1 : static_cast<int>(syscall(SYS_faccessat, AT_FDCWD, path, mode));
}

off_t lseek(int fd, off_t offset, int whence) {
  return fails("lseek") ? -1 : syscall(SYS_lseek, fd, offset, whence);
}

ssize_t read(int fd, void* bytes, size_t size) {
  const ssize_t allowed = allowed_size("read", size);
  return allowed < 0 ? -1 : syscall(SYS_read, fd, bytes, allowed);
}

ssize_t pread(int fd, void* bytes, size_t size, off_t offset) {
  return read_at(fd, bytes, size, offset);
}

ssize_t pread64(int fd, void* bytes, size_t size, off64_t offset) {
  return read_at(fd, bytes, size, offset);
}

// These two return the error instead of setting errno.
int posix_fadvise(int fd, off_t offset, off_t size, int advice) {
  return is_due("fadvise") ? fault_errno
                           : static_cast<int>(-syscall(SYS_fadvise64, fd, offset, size, advice));
}

int posix_fadvise64(int fd, off64_t offset, off64_t size, int advice) {
  return posix_fadvise(fd, offset, size, advice);
}

void* mmap(void* address, size_t size, int protection, int flags, int fd, off_t offset) {
  return map(address, size, protection, flags, fd, offset);
}

void* mmap64(void* address, size_t size, int protection, int flags, int fd, off64_t offset) {
  return map(address, size, protection, flags, fd, offset);
}

ssize_t write(int fd, const void* bytes, size_t size) {
  const ssize_t allowed = allowed_size("write", size);
  return allowed < 0 ? -1 : syscall(SYS_write, fd, bytes, allowed);
}

int close(int fd) {
  // A file whose closing fails is closed all the same.
  const bool failed = is_due("close");
  const auto result = static_cast<int>(syscall(SYS_close, fd));
  if (failed) {
    errno = fault_errno;
  }
  return failed ? -1 : result;
}

int fsync(int fd) {
  return fails("fsync") ? -1 : static_cast<int>(syscall(SYS_fsync, fd));
}

int fdatasync(int fd) {
  return fails("fsync") ? -1 : static_cast<int>(syscall(SYS_fdatasync, fd));
}

int rename(const char* old_path, const char* path) {
  return fails("rename")
             ? -1
             : static_cast<int>(syscall(SYS_renameat, AT_FDCWD, old_path, AT_FDCWD, path));
}

int renameat(int old_directory, const char* old_path, int directory, const char* path) {
  return fails("rename")
             ? -1
             : static_cast<int>(syscall(SYS_renameat, old_directory, old_path, directory, path));
}

int unlinkat(int directory, const char* path, int flags) {
  return fails("unlink") ? -1 : static_cast<int>(syscall(SYS_unlinkat, directory, path, flags));
}

int unlink(const char* path) {
  return fails("unlink") ? -1 : static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

int mkdir(const char* path, mode_t mode) {
  return fails("mkdir") ? -1 : static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

int fchmod(int fd, mode_t mode) {
  return fails("chmod") ? -1 : static_cast<int>(syscall(SYS_fchmod, fd, mode));
}

int chdir(const char* path) {
  return fails("chdir") ? -1 : static_cast<int>(syscall(SYS_chdir, path));
}

pid_t waitpid(pid_t process, int* status, int options) {
  return fails("waitpid")
             ? -1
             : static_cast<pid_t>(syscall(SYS_wait4, process, status, options, nullptr));
}

pid_t fork() {
  return fails("fork") ? -1 : _Fork();
}

int socketpair(int domain, int type, int protocol, int* ends) {
  return fails("socketpair")
             ? -1
             : static_cast<int>(syscall(SYS_socketpair, domain, type, protocol, ends));
}

ssize_t sendmsg(int socket, const msghdr* message, int flags) {
  return fails("sendmsg") ? -1 : syscall(SYS_sendmsg, socket, message, flags);
}

ssize_t send(int socket, const void* bytes, size_t size, int flags) {
  return fails("send") ? -1 : syscall(SYS_sendto, socket, bytes, size, flags, nullptr, 0);
}

ssize_t recvmsg(int socket, msghdr* message, int flags) {
  return fails("recvmsg") ? -1 : syscall(SYS_recvmsg, socket, message, flags);
}

int setitimer(int which, const itimerval* timer, itimerval* old) noexcept {
  return fails("setitimer") ? -1 : static_cast<int>(syscall(SYS_setitimer, which, timer, old));
}

// The program's own allocation functions call those of the C library by these names.

void* __libc_malloc(size_t size) {
  return allocate(minimal_alignment, size);
}

void* __libc_calloc(size_t count, size_t size) {
  size_t total = 0;
  if (__builtin_mul_overflow(count, size, &total)) {
    return nullptr;
  }
  void* memory = allocate(minimal_alignment, total);
  return memory != nullptr ? std::memset(memory, 0, total) : nullptr;
}

void* __libc_realloc(void* memory, size_t size) {
  if (memory != nullptr && size == 0) {
    __libc_free(memory);
    return nullptr;
  }
  void* moved = allocate(minimal_alignment, size);
  if (moved != nullptr && memory != nullptr) {
    std::memcpy(moved, memory, std::min(size, malloc_usable_size(memory)));
    __libc_free(memory);
  }
  return moved;
}

}  // extern "C"

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
// NOLINTEND(clang-diagnostic-reserved-*)
