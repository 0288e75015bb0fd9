#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"

/// What is wrong with the zone in TZ: one that the machine does not know counts as UTC.
std::vector<Finding> check_zone();
