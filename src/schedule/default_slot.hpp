#pragma once

#include <optional>
#include <string_view>

/// The slot of Schedule::defaults that a key of a defaults section names, by the schedule's type:
/// "day", a weekday, "dom5", "doi5", "m3d5" or "y2026m3d5". What follows a weekday's three letters
/// or the last number does not matter. Nothing when the key is not of the type's form or out of its
/// range.
std::optional<int> default_slot_of_key(std::string_view type, std::string_view name);
