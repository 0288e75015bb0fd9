#pragma once

#include <cstdio>
#include <string>

/// Asks for the channels on a terminal and writes the configuration to the path. Each question is
/// repeated until its answer is valid. Without a channel, an existing file stays unchanged. False
/// when the input ends early or the configuration cannot be written.
bool configure_guide(std::FILE* in, std::FILE* out, const std::string& path);
