// Reads media files cut off at every byte, and with every byte changed: corrupt_media STEP FILE...
// Takes every STEP-th byte only.
// None of it may crash the reader, or take more time or memory than a media file may. A file named
// NAME.EXT is read under that name, as the reader partly goes by it.

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/media/embedded_tags.hpp"
#include "platform/media/mime_type.hpp"
#include "platform/syntax/text.hpp"

namespace {

constexpr double most_seconds = 1.5;
constexpr long most_memory = 64L * 1024;  // KiB
constexpr size_t positions_per_type = 16;

struct Totals {
  long readings = 0;
  double longest = 0;
};

double cpu_seconds() {
  rusage own{};
  rusage children{};
  getrusage(RUSAGE_SELF, &own);
  getrusage(RUSAGE_CHILDREN, &children);
  double seconds = 0;
  for (const timeval& time : {own.ru_utime, own.ru_stime, children.ru_utime, children.ru_stime}) {
    seconds += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  }
  return seconds;
}

long peak_memory() {
  rusage own{};
  getrusage(RUSAGE_SELF, &own);
  return own.ru_maxrss;
}

/// A file in memory, so that the disk plays no part.
class MemoryFile {
 public:
  MemoryFile() : fd_(memfd_create("media", MFD_CLOEXEC)) {}
  ~MemoryFile() { close(fd_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  /// The file as it is now, with its head read.
  MediaSource source() const {
    struct stat status = {};
    MediaSource source(fd_, fstat(fd_, &status) == 0 ? status.st_size : 0);
    if (!source.read_head()) {
      std::abort();
    }
    return source;
  }

  void resize(size_t size) const {
    if (ftruncate(fd_, static_cast<off_t>(size)) != 0) {
      std::abort();
    }
  }

  void write(size_t position, const char* bytes, size_t size) const {
    if (pwrite(fd_, bytes, size, static_cast<off_t>(position)) != static_cast<ssize_t>(size)) {
      std::abort();
    }
  }

 private:
  int fd_;
};

void read_tags(const MemoryFile& file, const std::string& name, Totals& totals) {
  const double begin = cpu_seconds();
  MediaSource source = file.source();
  read_embedded_tags(source, name);
  totals.longest = std::max(totals.longest, cpu_seconds() - begin);
  ++totals.readings;
}

void read_type(const MemoryFile& file) {
  if (detect_mime_type(file.source()).value_or("").empty()) {
    std::abort();
  }
}

void cut_everywhere(const MemoryFile& file, const std::string& name, size_t size, size_t step,
                    Totals& totals) {
  for (size_t left = size; left-- > 0;) {
    if (left % step != 0) {
      continue;
    }
    file.resize(left);
    read_tags(file, name, totals);
    if (left % positions_per_type == 0) {
      read_type(file);
    }
  }
}

void change_everywhere(const MemoryFile& file, const std::string& name, const std::string& content,
                       size_t step, Totals& totals) {
  for (size_t i = 0; i < content.size(); i += step) {
    const char byte = content[i];
    const std::array<char, 3> changed = {static_cast<char>(byte ^ 1), static_cast<char>(~byte),
                                         '\xff'};
    for (const char other : changed) {
      file.write(i, &other, 1);
      read_tags(file, name, totals);
    }
    if (i % positions_per_type == 0) {
      read_type(file);
    }
    file.write(i, &byte, 1);
  }
}

/// Whether the file as it is has the tags that it should have lost above.
bool has_tags(const MemoryFile& file, const std::string& name) {
  MediaSource source = file.source();
  const auto tags = read_embedded_tags(source, name);
  return tags && !tags->empty();
}

bool read_corrupted(const std::string& path, size_t step) {
  std::ifstream stream(path, std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(stream), {}};
  const std::string name(file_name_of(path));
  const MemoryFile file;
  file.resize(content.size());
  file.write(0, content.data(), content.size());
  if (!has_tags(file, name)) {
    std::printf("%s: no tags in the whole file\n", path.c_str());
    return false;
  }
  const long memory_before = peak_memory();
  Totals totals;
  change_everywhere(file, name, content, step, totals);
  cut_everywhere(file, name, content.size(), step, totals);
  const long memory = peak_memory() - memory_before;
  std::printf("%s: %ld readings, the longest took %.3f s, %ld KiB more memory\n", name.c_str(),
              totals.readings, totals.longest, memory);
#ifdef NV8X_ADDRESS_SANITIZER
  const bool is_small = true;  // the sanitizer keeps what was freed
#else
  const bool is_small = memory <= most_memory;
#endif
  return totals.longest <= most_seconds && is_small;
}

}  // namespace

int main(int argc, char** argv) {
  const size_t step = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 0;
  bool is_sound = step > 0 && argc > 2;
  for (int i = 2; is_sound && i < argc; ++i) {
    is_sound = read_corrupted(argv[i], step);
  }
  return is_sound ? EXIT_SUCCESS : EXIT_FAILURE;
}
