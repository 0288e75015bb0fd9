#include "fuzz/whole_run_input.hpp"

#include <algorithm>
#include <sstream>

namespace {

std::string_view take_part(std::string_view& rest) {
  constexpr std::string_view divider = "\n%%\n";
  const size_t end = std::min(rest.find(divider), rest.size());
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(std::min(end + divider.size(), rest.size()));
  return part;
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
