// What the publisher remembers of its last run: whole with any lines, and never read as another
// one.

#include <string>

#include "fuzz/fuzz_target.hpp"
#include "publish/publish_state.hpp"
#include "station/fingerprint.hpp"

namespace {

bool is_empty(const PublishState& state) {
  return state.counts.empty() && state.pages.empty();
}

/// The lines as a whole state, whose last line is right.
std::string whole_text(std::string_view lines) {
  std::string text = "nv8x_schedule_publish state 1\n" + std::string(lines);
  text += text.ends_with('\n') ? "" : "\n";
  Fingerprint fingerprint;
  fingerprint.add(text);
  char end[32];
  std::snprintf(end, sizeof(end), "end\t%016llx\n",
                static_cast<unsigned long long>(fingerprint.value()));
  return text + end;
}

void try_text(const std::string& text) {
  PublishState state;
  if (!parse_state(text, state)) {
    require(is_empty(state), "a state that is not whole is empty");
    return;
  }
  const std::string written = text_of_state(state);
  PublishState again;
  require(parse_state(written, again), "a state that is written is whole");
  require(text_of_state(again) == written, "and the same one");
}

}  // namespace

void run_target(std::string_view input) {
  try_text(std::string(input));
  try_text(whole_text(input));
}
