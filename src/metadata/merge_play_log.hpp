#pragma once

#include <string>

#include "schedule/schedule.hpp"

/// Gives each item that aired in the schedule's current unit the metadata that the play log beside
/// the schedule file keeps of it: the item that starts exactly then, with the same path.
void merge_play_log(Schedule& schedule, const std::string& schedule_path);
