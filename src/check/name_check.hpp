#pragma once

#include <string>
#include <string_view>

#include "check/finding.hpp"
#include "platform/syntax/schedule_file.hpp"

/// The finding for a line outside sections that is neither a global default nor a misplaced brace.
Finding finding_for_unused_name(const SchedulePart& part);

/// "; did you mean 'NAME'?" with the section that was probably meant, or nothing.
std::string did_you_mean_section(std::string_view name);
