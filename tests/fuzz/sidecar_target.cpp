// A media file's sidecar.

#include "fuzz/fuzz_target.hpp"
#include "fuzz/scratch_folder.hpp"
#include "platform/media/sidecar.hpp"

namespace {

bool is_stripped(const std::string& text) {
  const auto is_blank = [](char c) { return c == ' ' || c == '\t'; };
  return !text.empty() && !is_blank(text.front()) && !is_blank(text.back());
}

}  // namespace

void run_target(std::string_view input) {
  static const ScratchFolder folder;
  folder.write("clip.mp4.metadata", input);
  const FileMetadata metadata = read_sidecar(folder.handle(), "clip.mp4").value_or(FileMetadata());
  const auto groups = static_cast<int32_t>(metadata.groups.size());
  for (const MetadataEntry& entry : metadata.entries) {
    require(is_stripped(entry.name) && is_stripped(entry.value), "blanks are stripped");
    require(entry.name.find_first_of("=\n") == std::string::npos, "a name ends at the first =");
    require(entry.value.find('\n') == std::string::npos, "an entry is one line");
    require(entry.group >= no_group && entry.group < groups, "every entry's group is known");
  }
  require(metadata.entries.size() <= input.size() / 3 + 1, "an entry needs three bytes");
}
