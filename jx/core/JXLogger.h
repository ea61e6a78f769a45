// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string_view>

#include "jx/platform/JXApi.h"

namespace jx {

/// Receives log lines. Called on the thread that logs, the transfer thread included, one call at a
/// time; `message` is valid during the call. What it throws is dropped, and so is what it logs
/// itself. It must not block: an event waits for it. It must not call the library otherwise, since
/// a line may come while the object that it asks for is being made.
using JXLogSink = std::function<void(int level, std::string_view message)>;

/// The leveled log of the library: 2 for an inconsistent stored time or lost data, 3 for a caught
/// failure, 4 for start-up facts, 5 for state changes, 6 for per-event detail. Thread-safe.
class JX_API JXLogger {
 public:
  /// The one log of this process.
  static JXLogger& sharedInstance();

  /// Hands the line to the sink when its level is printed. Never throws.
  void logMessage_withLevel(std::string_view message, int level) noexcept;
  /// True when a line of this level is printed: asked before a costly text is built.
  bool printsLevel(int level) const noexcept {
    const int maxLevel = maxLevel_.load();
    return maxLevel > 0 && level <= maxLevel;
  }

  /// Prints lines up to `maxLevel`; 0 prints none. The default is 3.
  void setMaxLevel(int maxLevel) noexcept { maxLevel_.store(maxLevel); }
  /// Replaces the sink; an empty one restores the default, which writes a line to standard error.
  /// Not to be called by a sink.
  void setSink(JXLogSink sink);

 private:
  JXLogger() = default;

  std::atomic<int> maxLevel_{3};
  std::mutex mutex_;
  JXLogSink sink_;
};

}  // namespace jx
