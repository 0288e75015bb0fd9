#pragma once

/// How a program ends when it cannot go on.
struct EarlyEnd {
  const char* program;             ///< its name, in front of the message on standard error
  int status;                      ///< exit status
  void (*first_step)() = nullptr;  ///< called before the message; must not allocate memory
};

/// From now on, a failed run and a lack of memory (messages.hpp) end the program in this way.
void set_early_end(const EarlyEnd& end);

/// After set_early_end: SIGALRM ends the program in the same way, even if the parent process
/// ignores or blocks it. The message names the limit, in seconds, and what the run was doing.
void end_early_at_alarm(unsigned limit);
