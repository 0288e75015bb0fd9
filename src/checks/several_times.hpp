#pragma once

#include <optional>
#include <string_view>

#include "checks/time_advice.hpp"

/// Advice on a text with several days or with a start and an end, where one time should stand.
std::optional<TimeAdvice> advise_on_several(std::string_view text, const ScheduleType& type);
