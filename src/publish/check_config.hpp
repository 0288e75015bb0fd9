#pragma once

#include <string>
#include <vector>

#include "station/station_config.hpp"

/// Prints on standard error, with their lines, the ids that cannot be names of pages, and the pages
/// that would take the place of a schedule or a render-manager file. False when there is one.
bool print_page_mistakes(const std::string& config_file,
                         const std::vector<StationChannel>& channels);

/// The same for what the configuration names and this machine does not have: folders, schedules,
/// zones, web folders.
bool print_machine_mistakes(const std::string& config_file,
                            const std::vector<StationChannel>& channels);
