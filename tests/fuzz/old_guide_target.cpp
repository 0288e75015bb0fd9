// A guide that is there from the last run. The first line is the id of a channel. What is kept of
// the guide makes a guide that can be read.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <string>

#include "fuzz/fuzz_target.hpp"
#include "station/old_guide.hpp"
#include "station/well_formed.hpp"

namespace {

FileDescriptor file_with(std::string_view text) {
  FileDescriptor file(memfd_create("guide", MFD_CLOEXEC));
  require(file.is_open() && write_fully(file.get(), text), "there is room for a file");
  return file;
}

void require_kept(const OldGuide& guide, const std::string& id, time_t now) {
  const FileDescriptor kept = file_with("<tv>\n");
  const auto programmes = guide.copy_ahead(id, now, kept.get());
  require(programmes.has_value(), "a guide can be read again");
  require(write_fully(kept.get(), "</tv>\n"), "there is room for a file");
  const off_t bytes = lseek(kept.get(), 0, SEEK_END);
  require(complaint_about_document("xml", kept.get(), 0, static_cast<uint64_t>(bytes)).empty(),
          "what is kept is well-formed");
  const OldGuide again("/proc/self/fd/" + std::to_string(kept.get()));
  time_t last = 0;
  const uint64_t most =
      guide.count(id, std::numeric_limits<time_t>::min(), std::numeric_limits<time_t>::max(), last);
  require(programmes->copied + programmes->unreadable <= most, "no programme is kept twice");
  const auto twice = again.copy_ahead(id, now, file_with("").get());
  require(twice && twice->copied == programmes->copied && twice->unreadable == 0,
          "what is kept is kept again");
}

}  // namespace

void run_target(std::string_view input) {
  const std::string id(input.substr(0, input.find('\n')));
  const FileDescriptor file = file_with(input.substr(std::min(id.size() + 1, input.size())));
  const OldGuide guide("/proc/self/fd/" + std::to_string(file.get()));
  require(guide.is_readable(), "a file can be read");
  require_kept(guide, id, 0);
  require_kept(guide, id, 1772733600);
}
