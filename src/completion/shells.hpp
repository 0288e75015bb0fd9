#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "platform/syntax/command_line.hpp"

// The files by which shells complete the command line of a program. They hold all that they offer,
// so that completing starts no program.

std::string bash_completion(const ProgramInfo& program);
std::string zsh_completion(const ProgramInfo& program);
std::string fish_completion(const ProgramInfo& program);

/// Whether something of a program's command line is offered so.
bool has_offer(const ProgramInfo& program, Offer offer);

/// A template with each name replaced by its text, in their order.
std::string filled(std::string text,
                   std::initializer_list<std::pair<std::string_view, std::string_view>> names);
