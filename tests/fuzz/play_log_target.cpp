// The lines of a play log, read and written back.

#include <algorithm>

#include "fuzz/fuzz_target.hpp"
#include "fuzz/scratch_folder.hpp"
#include "metadata/play_log.hpp"

namespace {

bool are_equal(const PlayLog& log, const PlayLog& other) {
  const auto is_same_line = [](const auto& line, const auto& other_line) {
    return line.first == other_line.first && line.second.path == other_line.second.path &&
           line.second.metadata == other_line.second.metadata;
  };
  return std::ranges::equal(log, other, is_same_line);
}

size_t longest_text(const PlayLog& log) {
  size_t longest = 0;
  for (const auto& [timestamp, entry] : log) {
    size_t length = entry.path.size();
    for (const auto& [name, value] : entry.metadata) {
      length += name.size() + value.size();
    }
    longest = std::max(longest, length);
  }
  return longest;
}

}  // namespace

void run_target(std::string_view input) {
  static const ScratchFolder folder;
  folder.write("play.log", input);
  metadata_v4_context context{};
  context.directory = folder.handle();
  PlayLog log;
  read_play_log(&context, log);

  // Every byte may be written as six, and a line that is longer than a piece is read in two.
  if (longest_text(log) > 4000) {
    return;
  }
  write_play_log(&context, log);
  PlayLog again;
  read_play_log(&context, again);
  require(are_equal(log, again), "a play log that is written is read back as it was");
}
