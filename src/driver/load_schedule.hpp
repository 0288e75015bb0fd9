#pragma once

#include "schedule/schedule.hpp"

/// Reads the schedule file of the run, repairs and completes it and places its unit around the
/// report time. Ends the run with a fatal error when a step fails.
void load_schedule(Schedule& schedule);
