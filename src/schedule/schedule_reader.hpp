#pragma once

#include "schedule/schedule.hpp"

/// Reads a schedule file: its type, default items, blocks and items, all times turned into
/// schedule seconds. Items and default slots of `schedule` are replaced; what the file gets wrong
/// is skipped. False, with nothing changed, only when the file cannot be opened.
///
/// A read error ends the file. `read_error`, when given, becomes its errno, or 0 when the file was
/// read to its end: a caller that goes on after an error shows half a schedule.
bool read_schedule_file(Schedule& schedule, const char* path, int* read_error = nullptr);
