#include "platform/signals.hpp"

#include <csignal>

void set_signal_action(int signal, void (*action)(int)) {
  struct sigaction wanted {};
  wanted.sa_handler = action;
  wanted.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
  sigemptyset(&wanted.sa_mask);
  sigaction(signal, &wanted, nullptr);
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, signal);
  sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}
