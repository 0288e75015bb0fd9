#pragma once

/// Sets what a run may cost at most, whatever it is given to read: 4 GiB of data in memory and ten
/// minutes of processor time, or less where the system already grants less. Memory is then refused
/// and the signal of the limit on processor time ends the run.
void limit_run();
