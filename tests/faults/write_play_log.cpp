// Replaces the play log of the current directory by one of a few hundred lines.

#include <fcntl.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "metadata/play_log.hpp"
#include "platform/system/file.hpp"

int main() {
  std::set_new_handler([] { std::_Exit(EXIT_FAILURE); });
  const FileDescriptor directory(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!directory.is_open()) {
    return EXIT_FAILURE;
  }
  const metadata_v4_context context{0, directory.get()};
  PlayLog log;
  constexpr int entries = 300;
  for (int i = 0; i < entries; ++i) {
    log[i] = {"media/" + std::to_string(i) + ".mp4", {{"title", "Title " + std::to_string(i)}}};
  }
  write_play_log(&context, log);
  return EXIT_SUCCESS;
}
