// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "tools/jx/Result.h"

namespace jx {

/// A listening TCP socket. The destructor closes it.
class ListeningSocket {
 public:
  /// Binds and listens. `address` is an IP address or a host name. Port 0 selects a free port.
  static Result<ListeningSocket> open(const std::string& address, int port);

  ListeningSocket(ListeningSocket&& other) noexcept;
  ListeningSocket& operator=(ListeningSocket&& other) noexcept;
  ~ListeningSocket();

  int fd() const { return fd_; }
  int port() const { return port_; }

 private:
  ListeningSocket(int fd, int port) : fd_(fd), port_(port) {}

  int fd_;
  int port_;
};

}  // namespace jx
