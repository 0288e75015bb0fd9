#pragma once

#include <optional>
#include <string>
#include <vector>

#include "schedule/schedule.hpp"

/// The table of a schedule that was just read: a row for its type, each default, block and item.
/// What the table cannot say as it is written is in `warnings`.
std::string table_of(const Schedule& schedule, char separator, std::vector<std::string>& warnings);

/// A table with a header and two rows of examples for a type of schedule.
std::string example_table(const std::string& type, char separator);
