#pragma once

#include "platform/file.hpp"
#include "schedule/schedule.hpp"

/// Reads a schedule file: its type, default items, blocks and items, all times turned into
/// schedule seconds. Items and default slots of `schedule` are replaced; what the file gets wrong
/// is skipped. False, with nothing changed, only when the file cannot be opened. A read error is
/// the end of the file, with a warning on standard error.
bool read_schedule_file(Schedule& schedule, const char* path, Links links = Links::followed);
