#pragma once

#include <cstdio>
#include <string>

/// Asks for the channels on a terminal, each answer until it is sound, and writes the
/// configuration to the path. Without a channel it leaves alone what is there. False when the
/// questions end early or it cannot be written.
bool configure_guide(std::FILE* in, std::FILE* out, const std::string& path);
