#pragma once

/// Sets what happens when the grabber ends early, whatever its parent has set. A lack of memory
/// ends it with a message; TERM, INT and HUP end it as usual. In each case its draft is removed
/// first. Signals from the terminal that the parent ignores stay ignored. It can wait for its
/// children, and alarms end it.
void prepare_for_early_end();
