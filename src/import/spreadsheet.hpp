#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Whether the bytes are the file of a spreadsheet program: .xlsx, .ods or .xls.
bool is_spreadsheet(std::string_view bytes);

/// The sheet in front of such a file as a comma-separated table in UTF-8, with dates and times as
/// numbers of days. Gnumeric's ssconvert converts it, with limits, in a new folder that is removed
/// again. Nothing, with `error`, when it is not installed or fails.
std::optional<std::string> csv_of_spreadsheet(std::string_view bytes, std::string& error);
