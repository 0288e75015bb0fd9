#pragma once

#include <string>

#include "schedule/schedule.hpp"

/// Aborts when `document`, which the run options ask for, breaks what every document of its format
/// keeps to: XML is well-formed and listings have even columns as long as no field that goes out as
/// it is can break them, JSON parses, a page holds one script.
void check_document(const std::string& document, const Schedule& schedule);
