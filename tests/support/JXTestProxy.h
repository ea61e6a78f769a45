// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/JXTestConnection.h"

namespace jx::test {

/// A proxy on 127.0.0.1 that handles every CONNECT by connecting to one local port, so that any
/// host name resolves. Runs on its own threads, which the destructor stops. Thread-safe.
class JXTestProxy {
 public:
  /// Connects to `targetPort`. `port` is a port of a ReservedPort, or 0 for any free port.
  explicit JXTestProxy(int targetPort, int port = 0);
  ~JXTestProxy();
  JXTestProxy(const JXTestProxy&) = delete;
  JXTestProxy& operator=(const JXTestProxy&) = delete;

  /// Returns "http://127.0.0.1:PORT".
  std::string url() const;
  /// Sets the status of its responses; it connects only with 200, the initial value.
  void answer(int status) { status_ = status; }

  /// Returns the requests that it has read.
  std::vector<JXTestRequest> requests() const;
  int connections() const { return connections_; }

 private:
  void acceptConnections();
  void serve(int descriptor);
  void relay(int client);

  const int targetPort_;
  int port_ = 0;
  int socket_ = -1;
  int wakePipe_[2] = {-1, -1};
  std::atomic<int> status_{200};
  std::atomic<int> connections_{0};
  mutable std::mutex mutex_;
  bool stopping_ = false;
  std::vector<int> open_;
  std::vector<JXTestRequest> requests_;
  std::vector<std::thread> threads_;
  std::thread acceptor_;
};

}  // namespace jx::test
