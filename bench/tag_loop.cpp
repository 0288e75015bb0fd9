// The least work that the metadata of media files can cost: tag_loop FILE...
// Reads each file's tags, without audio properties, and its MIME type from its first 4 KiB.

#include <fcntl.h>
#include <fileref.h>
#include <magic.h>
#include <tpropertymap.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <span>

#include "platform/system/file.hpp"

int main(int argc, char** argv) {
  const magic_t magic = magic_open(MAGIC_MIME_TYPE);
  if (magic == nullptr || magic_load(magic, nullptr) != 0) {
    std::fputs("no libmagic database\n", stderr);
    return EXIT_FAILURE;
  }
  size_t tags = 0;
  size_t types = 0;
  for (const char* path : std::span(argv, static_cast<size_t>(argc)).subspan(1)) {
    std::array<char, 4096> head;
    const FileDescriptor file = open_regular_file(AT_FDCWD, path);
    const size_t size = read_fully(file.get(), head.data(), head.size()).value_or(0);
    if (magic_buffer(magic, head.data(), size) != nullptr) {
      ++types;
    }
    const TagLib::FileRef tagged(path, false);
    if (!tagged.isNull()) {
      tags += tagged.file()->properties().size();
    }
  }
  magic_close(magic);
  std::printf("%zu tags, %zu types\n", tags, types);
  return EXIT_SUCCESS;
}
