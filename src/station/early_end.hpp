#pragma once

/// Sets what happens when the program ends early, whatever its parent has set. A lack of memory and
/// a failed run (messages.hpp) end it with a message after the program's name, and with the status.
/// TERM, INT and HUP end it as usual. In each case its draft is removed first. Signals from the
/// terminal that the parent ignores stay ignored. It can wait for its children, and alarms end it.
void prepare_for_early_end(const char* program, int status);
