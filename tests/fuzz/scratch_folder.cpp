#include "fuzz/scratch_folder.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace {

std::string make_folder() {
  // In memory where there is such a place: thousands of files a second are written.
  std::string path = std::filesystem::is_directory("/dev/shm") ? "/dev/shm/nv8x_fuzz_XXXXXX"
                                                               : "/tmp/nv8x_fuzz_XXXXXX";
  if (mkdtemp(path.data()) == nullptr) {
    std::abort();
  }
  return path;
}

}  // namespace

ScratchFolder::ScratchFolder()
    : path_(make_folder()), handle_(open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
}

ScratchFolder::~ScratchFolder() {
  close(handle_);
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void ScratchFolder::write(const char* name, std::string_view content) const {
  constexpr mode_t mode = 0600;
  const int fd = openat(handle_, name, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
  while (!content.empty()) {
    const ssize_t count = ::write(fd, content.data(), content.size());
    if (count <= 0) {
      std::abort();
    }
    content.remove_prefix(static_cast<size_t>(count));
  }
  if (fd < 0 || close(fd) != 0) {
    std::abort();
  }
}
