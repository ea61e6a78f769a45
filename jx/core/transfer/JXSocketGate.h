// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <atomic>
#include <mutex>
#include <vector>

namespace jx {

/// Opens and closes the sockets of the transport, and makes all of them unusable from another
/// thread. Thread-safe.
class JXSocketGate {
 public:
  /// Opens a socket, as `socket` does. Returns -1 on failure and while the gate is closed.
  int open(int family, int type, int protocol) noexcept;
  /// Closes a socket that `open` returned.
  void close(int socket) noexcept;

  /// From its return until `reopen`, nothing can be written to a socket of the gate, and what the
  /// system has not sent yet is discarded when the socket is closed. Waits for a write that another
  /// thread has begun, which never waits for the network, because the sockets do not block.
  void shut() noexcept;
  void reopen() noexcept;
  bool isShut() const noexcept { return isShut_.load(); }

 private:
  struct Socket {
    int descriptor;
    ino_t inode;
  };

  std::mutex mutex_;  ///< also prevents that a descriptor is closed and reused while it is shut
  std::atomic<bool> isShut_{false};
  std::vector<Socket> sockets_;
};

}  // namespace jx
