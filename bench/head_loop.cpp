// The least work that telling the type of media files can cost: head_loop FILE...
// Opens each file, reads its first 4 KiB and looks for its sidecar.

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

#include "platform/system/file.hpp"

int main(int argc, char** argv) {
  size_t bytes = 0;
  size_t sidecars = 0;
  for (const char* path : std::span(argv, static_cast<size_t>(argc)).subspan(1)) {
    std::array<char, 4096> head;
    const FileDescriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    bytes += read_some(file.get(), head.data(), head.size()).value_or(0);
    struct stat status = {};
    sidecars += stat((std::string(path) + ".metadata").c_str(), &status) == 0 ? 1 : 0;
  }
  std::printf("%zu bytes, %zu sidecars\n", bytes, sidecars);
  return EXIT_SUCCESS;
}
