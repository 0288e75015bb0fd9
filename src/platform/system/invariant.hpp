#pragma once

/// Ends the process by abort() after "nv8x_schedule_to_xml:LINE: FUNCTION: Assertion `TEXT'
/// failed." on standard error. The promises a schedule makes to every pass are checked in all
/// builds: a listing made from a broken schedule would be on air before anyone saw the fault. The
/// texts name functions and variables as they were first called: monitoring looks for these very
/// words, so they stay where the code's own names have changed.
[[noreturn]] void fail_invariant(const char* text, const char* function, int line);

/// Checks a promise inside the function whose signature the message is to name.
#define INVARIANT(holds, text) INVARIANT_OF(__PRETTY_FUNCTION__, holds, text)

/// The same for a helper that checks on behalf of another function.
#define INVARIANT_OF(function, holds, text) \
  ((holds) ? static_cast<void>(0) : fail_invariant(text, function, __LINE__))
