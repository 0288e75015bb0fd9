#include "fuzz/whole_run_input.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <sstream>

#include "fuzz/fuzz_target.hpp"
#include "fuzz/scratch_folder.hpp"

namespace {

std::string_view take_part(std::string_view& rest) {
  constexpr std::string_view divider = "\n%%\n";
  const size_t end = std::min(rest.find(divider), rest.size());
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(std::min(end + divider.size(), rest.size()));
  return part;
}

/// The folder that holds the files of every run, the current one for good.
const ScratchFolder& media_folder() {
  static const ScratchFolder folder;
  static const bool is_ready = [] {
    std::filesystem::copy(NV8X_EXAMPLE_CLIP, folder.path() + "/clip.mp4");
    return chdir(folder.path().c_str()) == 0;
  }();
  require(is_ready, "the folder can be entered");
  return folder;
}

}  // namespace

WholeRunInput split_whole_run_input(std::string_view input) {
  WholeRunInput result;
  std::string words(take_part(input));
  std::ranges::replace(words, '\0', ' ');
  std::istringstream line(words);
  line >> result.zone;
  for (std::string word; line >> word;) {
    result.arguments.push_back(word);
  }
  result.schedule = take_part(input);
  result.play_log = take_part(input);
  result.sidecar = take_part(input);
  result.subschedule = take_part(input);
  return result;
}

void write_whole_run_files(const WholeRunInput& input) {
  const ScratchFolder& folder = media_folder();
  folder.write("channel.schedule", input.schedule);
  folder.write("play.log", input.play_log);
  folder.write("clip.mp4.metadata", input.sidecar);
  folder.write("inner.schedule", input.subschedule);
}

void set_whole_run_zone(const std::string& zone) {
  const bool is_path = zone.find("..") != std::string::npos || zone.find_first_of("/:") < 1;
  setenv("TZ", zone.empty() || is_path ? "UTC" : zone.c_str(), 1);
  tzset();
}
