// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>

#include "jx/platform/JXApi.h"

namespace jx {

/// For the library: blocks the calling thread forever, after logging `message` at level 2.
[[noreturn]] void neverReturn(const char* message);

/// Receives log messages. Called on the thread that logs, the transfer thread included; several
/// threads may call it at once, and no lock of the library is held. `message` is valid during the
/// call. The sink may call the library. Exceptions thrown by the sink, and messages that it causes,
/// are discarded. The sink must not block, because an event waits for it.
using JXLogSink = std::function<void(int level, std::string_view message)>;

/// The log of the library. Thread-safe. Levels:
///
/// - 0: not used for messages; as the maximum level, it turns the log off
/// - 1: not used
/// - 2: lost or damaged data (a rejected event, a damaged file), inconsistent stored time
/// - 3: failures (network, storage, callback, conversion), invalid configuration or arguments
/// - 4: start-up information
/// - 5: state changes (activated, deactivated, delivery resumed), missing locale data
/// - 6: details of each event with its payload, repeated delivery failures
class JX_API JXLogger {
 public:
  /// Returns the logger of this process.
  static JXLogger& sharedInstance();

  /// Passes `message` to the sink when `printsLevel(level)` is true. Never throws.
  void logMessage_withLevel(std::string_view message, int level) noexcept;
  /// Returns whether messages of `level` are logged. Check it before building a costly message.
  bool printsLevel(int level) const noexcept {
    const int maxLevel = maxLevel_.load();
    return maxLevel > 0 && level <= maxLevel;
  }

  /// Sets the highest level that is logged; 0 turns the log off. The default is 3.
  void setMaxLevel(int maxLevel) noexcept { maxLevel_.store(maxLevel); }
  /// Replaces the sink. An empty `sink` restores the default, which writes each message to standard
  /// error.
  void setSink(JXLogSink sink);

 private:
  JXLogger() = default;
  friend void neverReturn(const char* message);
  friend class JXForkedChild;
  /// Logs although the calling thread defers its messages: for a thread that blocks forever.
  void logAtOnce(std::string_view message, int level) noexcept;
  /// Logs in a forked child process, where a thread of the parent may have left the logger locked.
  void logInForkedChild(std::string_view message, int level) noexcept;
  void write(std::string_view message, int level);
  static void write(const std::shared_ptr<const JXLogSink>& sink, std::string_view message,
                    int level);

  std::atomic<int> maxLevel_{3};
  std::mutex mutex_;
  std::shared_ptr<const JXLogSink> sink_;
};

}  // namespace jx
