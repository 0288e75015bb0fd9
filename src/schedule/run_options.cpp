#include "schedule/run_options.hpp"

RunOptions run_options;
