// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace jx::soak {

/// A TCP port on 127.0.0.1 that accepts connections and never sends data.
class SilentServer {
 public:
  SilentServer();
  ~SilentServer();
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;
  std::string url() const;

 private:
  int socket_ = -1;
};

/// A TCP port on 127.0.0.1 that does not respond to connection attempts, like a server behind a
/// firewall that drops packets: the backlog of its socket is full.
class BlackHole {
 public:
  BlackHole();
  ~BlackHole();
  BlackHole(const BlackHole&) = delete;
  BlackHole& operator=(const BlackHole&) = delete;
  std::string url() const;

 private:
  int socket_ = -1;
  std::vector<int> fillers_;
};

/// A TCP port on 127.0.0.1 that counts connections and resets each one immediately.
class ResettingServer {
 public:
  ResettingServer();
  ~ResettingServer();
  ResettingServer(const ResettingServer&) = delete;
  ResettingServer& operator=(const ResettingServer&) = delete;
  std::string url() const;
  /// Closes the port and returns the number of connections.
  std::uint64_t stop();

 private:
  int socket_ = -1;
  std::uint64_t count_ = 0;
  std::thread thread_;
};

/// Moves this process to new network and mount namespaces, in which the only name server is a
/// socket of this object that never responds. Only for a process that still has one thread.
class SilentNameServer {
 public:
  SilentNameServer();
  ~SilentNameServer();
  SilentNameServer(const SilentNameServer&) = delete;
  SilentNameServer& operator=(const SilentNameServer&) = delete;

  /// Returns an errno value if the system does not permit it, else 0.
  int error() const { return error_; }
  /// Waits up to 20 seconds for a query, which shows that this name server is used.
  bool waitForQuery() const;

 private:
  int setUp();

  int socket_ = -1;
  int error_ = 0;
};

}  // namespace jx::soak
