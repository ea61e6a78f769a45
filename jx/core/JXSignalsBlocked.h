// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pthread.h>
#include <signal.h>

namespace jx {

/// Blocks signals on the calling thread, and so on threads that it creates, during its lifetime.
/// The application handles signals on its own threads, and a peer that closes during a write
/// (SIGPIPE) must not end the process. Signals for errors of the thread itself, such as SIGSEGV,
/// stay deliverable.
class JXSignalsBlocked {
 public:
  JXSignalsBlocked() {
    sigset_t all;
    sigfillset(&all);
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS}) {
      sigdelset(&all, signal);
    }
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~JXSignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  JXSignalsBlocked(const JXSignalsBlocked&) = delete;
  JXSignalsBlocked& operator=(const JXSignalsBlocked&) = delete;

 private:
  sigset_t before_;
};

}  // namespace jx
