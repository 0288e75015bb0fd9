#pragma once

#include <string_view>

#include "platform/system/file.hpp"
#include "schedule/schedule.hpp"

/// Reads a schedule file: its type, default items, blocks and items, all times turned into
/// schedule seconds. `schedule` is a fresh record; of one that was used, type, items and default
/// slots are replaced, and blocks and the global default survive. What the file gets wrong is
/// skipped. False, with nothing changed, only when the file cannot be opened. A read error is
/// the end of the file, with a warning on standard error.
bool read_schedule_file(Schedule& schedule, const char* path, Links links = Links::followed);

/// The same of what was read of a file before; `name` is the file's in messages.
void read_schedule_content(Schedule& schedule, std::string_view content, const char* name);
