// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pthread.h>
#include <signal.h>

#include <cerrno>
#include <ctime>

namespace jx {

/// While it exists, a write beyond the process's limit on the size of files returns EFBIG and has
/// no other effect: it also raises SIGXFSZ, which ends an application by default. A handler or a
/// pending signal of the application stays as it is.
class JXFileSizeSignal {
 public:
  JXFileSizeSignal() {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    wasPending_ = isPending();
    pthread_sigmask(SIG_BLOCK, &signal_, &before_);
  }
  ~JXFileSizeSignal() {
    const int error = errno;
    if (!wasPending_ && isPending()) consume();
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    errno = error;
  }
  JXFileSizeSignal(const JXFileSizeSignal&) = delete;
  JXFileSizeSignal& operator=(const JXFileSizeSignal&) = delete;

 private:
  static bool isPending() {
    sigset_t pending;
    return sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
  }
  void consume() const {
#if defined(__APPLE__)
    int signal = 0;
    sigwait(&signal_, &signal);
#else
    // Does not wait if another thread has consumed a signal that was sent to the process.
    const timespec now{};
    sigtimedwait(&signal_, nullptr, &now);
#endif
  }

  sigset_t signal_;
  sigset_t before_;
  bool wasPending_ = false;
};

}  // namespace jx
