#pragma once

/// Ends the process by abort() after "nv8x_schedule_to_xml:LINE: FUNCTION: Assertion `TEXT'
/// failed." on standard error. These checks are part of all builds: a listing made from a broken
/// schedule would be on air before anyone noticed. The texts keep the original names of functions
/// and variables, even where the code has new ones, because monitoring looks for these words.
[[noreturn]] void fail_invariant(const char* text, const char* function, int line);

/// Checks an invariant of the enclosing function. The message shows its signature.
#define INVARIANT(holds, text) INVARIANT_OF(__PRETTY_FUNCTION__, holds, text)

/// The same in a helper; the message shows the signature of the given function.
#define INVARIANT_OF(function, holds, text) \
  ((holds) ? static_cast<void>(0) : fail_invariant(text, function, __LINE__))
