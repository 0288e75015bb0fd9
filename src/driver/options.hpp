#pragma once

#include "platform/syntax/command_line.hpp"

/// The program and its table of options.
ProgramInfo printer_program();

/// Reads the command line into `run_options`. A report time of 0 becomes the current time. False
/// when the run must end with status 1; the message or the usage text is then on standard error.
bool parse_options(int argc, char** argv);
