// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace jx::soak {

/// A TCP port on 127.0.0.1 that takes connections and never says a word.
class NeverSpeaks {
 public:
  NeverSpeaks();
  ~NeverSpeaks();
  NeverSpeaks(const NeverSpeaks&) = delete;
  NeverSpeaks& operator=(const NeverSpeaks&) = delete;
  std::string host() const;

 private:
  int socket_ = -1;
};

/// A TCP port on 127.0.0.1 that answers no attempt to connect, as a host behind a firewall that
/// drops packets: the queue of its listening socket is full.
class BlackHole {
 public:
  BlackHole();
  ~BlackHole();
  BlackHole(const BlackHole&) = delete;
  BlackHole& operator=(const BlackHole&) = delete;
  std::string host() const;

 private:
  int socket_ = -1;
  std::vector<int> fillers_;
};

/// A TCP port on 127.0.0.1 that resets each connection as soon as it stands, and counts them.
class CountingResets {
 public:
  CountingResets();
  ~CountingResets();
  CountingResets(const CountingResets&) = delete;
  CountingResets& operator=(const CountingResets&) = delete;
  std::string host() const;
  /// Ends the port and tells how many connections came.
  std::uint64_t stop();

 private:
  int socket_ = -1;
  std::uint64_t count_ = 0;
  std::thread thread_;
};

/// Puts this process into network and mount namespaces of its own, in which the only name server is
/// a socket of this object that never answers. For a process that has one thread yet.
class SilentNames {
 public:
  SilentNames();
  ~SilentNames();
  SilentNames(const SilentNames&) = delete;
  SilentNames& operator=(const SilentNames&) = delete;

  /// Why the system does not allow it: an errno value, or 0.
  int error() const { return error_; }
  /// Waits up to 20 seconds until a question came, which proves that names are asked for here.
  bool waitForQuestion() const;

 private:
  int setUp();

  int socket_ = -1;
  int error_ = 0;
};

}  // namespace jx::soak
