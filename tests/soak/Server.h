// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

#include "tests/soak/Arguments.h"
#include "tests/support/ChildProcess.h"

namespace jx::soak {

/// A server on loopback in a process of its own, so that each socket write of this process is one
/// of the library. Throws std::runtime_error when it does not start or ends too early.
class ServerProcess {
 public:
  explicit ServerProcess(bool tls);

  int port() const { return port_; }
  /// Returns "http://127.0.0.1:PORT", with https for TLS.
  const std::string& host() const { return host_; }
  const std::string& caFile() const { return caFile_; }
  /// Ends the server and returns the number of different events that it received.
  std::size_t end();

 private:
  ChildProcess process_;
  int port_ = 0;
  std::string host_;
  std::string caFile_;
};

/// Runs the server in this process until its standard input is closed.
int server(Arguments& arguments);

}  // namespace jx::soak
