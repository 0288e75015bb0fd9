#pragma once

#include <optional>
#include <string_view>

/// The index in Schedule::defaults that a key of a defaults section stands for. The form of the key
/// depends on the schedule's type: "day", a weekday, "dom5", "doi5", "m3d5" or "y2026m3d5". Text
/// after a weekday's three letters or after the last number is ignored. Nothing when the key has
/// another form or is out of range.
std::optional<int> default_slot_of_key(std::string_view type, std::string_view name);
