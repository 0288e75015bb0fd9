#pragma once

#include <span>

#include "checks/finding.hpp"

/// The findings of tables, which no schedule file gives, in the order of FindingKind.
std::span<const FindingInfo> table_finding_infos();
