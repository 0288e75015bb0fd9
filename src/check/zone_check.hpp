#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"

/// Checks the zone in TZ. A zone that the machine does not know counts as UTC.
std::vector<Finding> check_zone();
