// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "tools/jx/Result.h"

namespace jx {

/// A TCP socket that waits for connections; closed when it goes.
class ListeningSocket {
 public:
  /// `address` is an IP address or a name; port 0 takes any that is free.
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
