// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/StopSignal.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace jx {

StopSignal::StopSignal() : fd_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

StopSignal::~StopSignal() { ::close(fd_); }

void StopSignal::raise() {
  if (raised_.load()) return;
  raisedAt_ = std::chrono::steady_clock::now();
  raised_.store(true);
  ::eventfd_write(fd_, 1);
}

}  // namespace jx
