#pragma once

/// Sets what a signal does from now on (a handler, SIG_DFL or SIG_IGN) and lets it through,
/// whatever the parent made of it. A handler is called once: in it, the signal already has its
/// default action again.
void set_signal_action(int signal, void (*action)(int));
