// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/TerminationSignals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace jx {
namespace {

sigset_t terminationSet() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGINT);
  sigaddset(&set, SIGTERM);
  return set;
}

}  // namespace

TerminationSignals::TerminationSignals() {
  const sigset_t set = terminationSet();
  ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
  fd_ = ::signalfd(-1, &set, SFD_CLOEXEC);
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "signalfd");
}

TerminationSignals::~TerminationSignals() { ::close(fd_); }

void TerminationSignals::wait() const {
  signalfd_siginfo info{};
  while (::read(fd_, &info, sizeof info) < 0 && errno == EINTR) {
  }
}

}  // namespace jx
