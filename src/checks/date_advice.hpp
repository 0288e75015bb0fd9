#pragma once

#include <optional>
#include <string_view>

#include "checks/time_advice.hpp"
#include "platform/time/written_time.hpp"

/// Advice on the date of a valid time, if a schedule of that type ignores a part of it, or airs it
/// on another date.
std::optional<TimeAdvice> advise_on_date(const WrittenDate& date, std::string_view text,
                                         const ScheduleType& type);
