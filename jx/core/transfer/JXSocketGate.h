// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <vector>

namespace jx {

/// Opens and closes the sockets of the transport, and makes all of them unusable from another
/// thread. Thread-safe.
class JXSocketGate {
 public:
  JXSocketGate() = default;
  ~JXSocketGate();
  JXSocketGate(const JXSocketGate&) = delete;
  JXSocketGate& operator=(const JXSocketGate&) = delete;

  /// Opens a socket, as `socket` does. Returns -1 and sets `errno` on failure, also while the gate
  /// is shut, and with EMFILE if it would not be the only socket and would leave too few
  /// descriptors for the files of the storage.
  int open(int family, int type, int protocol) noexcept;
  /// Returns the number of sockets that are not closed.
  std::size_t count() const noexcept;
  /// Closes a socket that `open` returned.
  void close(int socket) noexcept;
  /// Forgets the sockets without a connection. libcurl closes a socket without `close` if the
  /// connection was not established. Call it when no connection is being established.
  void forgetUnconnected() noexcept;

  /// Lets the system hold back small writes until `sendHeldBack`, so that those of several requests
  /// are sent together; the system itself sends them after 200 ms. Affects the sockets that are
  /// open. Does nothing where the system has no such option.
  void holdBack() noexcept;
  void sendHeldBack() noexcept;

  /// From its return until `reopen`, nothing can be written to a socket of the gate, and what the
  /// system has not sent yet is discarded when the socket is closed. Waits for a write that another
  /// thread has begun, which never waits for the network, because the sockets do not block.
  void shut() noexcept;
  void reopen() noexcept;
  bool isShut() const noexcept { return isShut_.load(); }

 private:
  struct Socket {
    int descriptor;
    /// The same socket: whoever closes `descriptor`, this one cannot become that of another file.
    int duplicate;
  };
  void setHoldingBack(bool holdsBack) noexcept;
  template <class Predicate>
  void forgetIf(Predicate predicate) noexcept;

  mutable std::mutex mutex_;
  std::atomic<bool> isShut_{false};
  [[maybe_unused]] bool holdsBack_ = false;  // only where the system has the option
  std::vector<Socket> sockets_;
};

}  // namespace jx
