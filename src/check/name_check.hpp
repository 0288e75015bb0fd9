#pragma once

#include <string>
#include <string_view>

#include "check/finding.hpp"
#include "platform/syntax/schedule_file.hpp"

/// What is wrong with a line outside of sections that is neither a global default nor a brace out
/// of place.
Finding finding_for_unused_name(const SchedulePart& part);

/// "; did you mean 'NAME'?" with the section that was probably meant, or nothing.
std::string did_you_mean_section(std::string_view name);
