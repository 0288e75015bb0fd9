#pragma once

#include <optional>
#include <string>

#include "check/finding.hpp"
#include "import/import_options.hpp"

/// The schedule that the table makes, as a text. What is wrong is in `findings`, at the table's
/// rows; with an error there is no schedule. When the table cannot be read, `error` says why.
std::optional<std::string> import_table(const ImportCommand& command, FileFindings& findings,
                                        std::string& error);
