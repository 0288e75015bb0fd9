#pragma once

#include <cstdint>
#include <ctime>
#include <map>
#include <string>
#include <string_view>

#include "publish/channel_pages.hpp"

/// What was published into a web folder, for the next run.
struct PublishState {
  std::map<std::string, LastCount> counts;  ///< by channel
  std::map<std::string, uint64_t> pages;    ///< fingerprint of each page, by name
};

/// The name of the state's file in the web folder.
inline constexpr const char* state_file = ".nv8x-publish.state";

/// The state as a text. Its last line has the fingerprint of the lines before.
std::string text_of_state(const PublishState& state);

/// False when the text is not whole; the state is then empty.
bool parse_state(std::string_view text, PublishState& state);
