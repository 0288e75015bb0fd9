#pragma once

#include <csignal>

/// Holds back all signals while it lives. Those that came meanwhile are delivered at its end.
class SignalsHeldBack {
 public:
  SignalsHeldBack() {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before_);
  }
  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;
  ~SignalsHeldBack() { let_go(); }

  /// No longer holds them back, such as in a new process.
  void let_go() const { sigprocmask(SIG_SETMASK, &before_, nullptr); }

  /// Whether one waits that ends a run.
  static bool is_end_waiting() {
    sigset_t waiting;
    return sigpending(&waiting) == 0 &&
           (sigismember(&waiting, SIGTERM) == 1 || sigismember(&waiting, SIGINT) == 1 ||
            sigismember(&waiting, SIGHUP) == 1);
  }

 private:
  sigset_t before_{};
};
