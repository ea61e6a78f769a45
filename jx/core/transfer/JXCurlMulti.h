// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace jx {

/// The multi handle of a transport, which is created with the first request, and its sleep. All
/// operations except `wakeUp` belong to one thread.
class JXCurlMulti {
 public:
  /// At most so many connections are open at a time, one for each request in flight, so that no
  /// host waits for another.
  static constexpr long kMaxConnections = 8;

  JXCurlMulti() = default;
  ~JXCurlMulti();
  JXCurlMulti(const JXCurlMulti&) = delete;
  JXCurlMulti& operator=(const JXCurlMulti&) = delete;

  /// Initialises libcurl and creates the handle, unless there is one. Throws std::runtime_error
  /// when that fails; the next call tries again.
  void open();
  /// Closes all connections: replaces the handle by a new one. No request may be added to it. Keeps
  /// the handle when memory is exhausted.
  void closeConnections() noexcept;
  /// The CURLM*; null before `open`.
  void* handle() const noexcept { return handle_; }

  /// Waits until a socket is ready, `wakeUp` is called or `timeout` has passed; null waits without
  /// limit. May return early.
  void wait(std::optional<std::chrono::milliseconds> timeout);
  /// Ends the current `wait`, or the next one. Thread-safe.
  void wakeUp() noexcept;

 private:
  std::mutex mutex_;  ///< for `wakeUp`; guards the other members
  void* handle_ = nullptr;
  std::condition_variable woken_;  ///< used while there is no handle
  bool isWoken_ = false;
};

}  // namespace jx
