#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "platform/syntax/command_line.hpp"

// The files by which shells complete the command line of a program. They contain all that they
// offer, so completing a word starts no program.

std::string bash_completion(const ProgramInfo& program);
std::string zsh_completion(const ProgramInfo& program);
std::string fish_completion(const ProgramInfo& program);

/// Whether any value or operand of the program is completed in this way.
bool has_offer(const ProgramInfo& program, Offer offer);

/// A template with each name replaced by its text. The names are replaced one after the other.
std::string filled(std::string text,
                   std::initializer_list<std::pair<std::string_view, std::string_view>> names);
