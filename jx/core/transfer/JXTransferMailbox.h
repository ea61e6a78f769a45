// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "jx/platform/JXString.h"

namespace jx {

/// What other threads want of the transfer thread. The numbers only grow: a change is an order.
struct JXTransferCommands {
  bool stop = false;
  bool disabled = false;
  bool inBackground = false;
  std::optional<std::chrono::steady_clock::time_point> heldUntil;  ///< for the user agent
  std::uint64_t decisions = 0;  ///< how often it was said whether requests may leave
  std::uint64_t purges = 0;
  std::uint64_t flushes = 0;
  std::uint64_t storageChanges = 0;
  std::uint64_t rejectedByQueue = 0;  ///< requests that the queue did not take
};

/// Between the threads that give orders and the transfer thread, which is woken only when it sleeps
/// and the news matters to it.
class JXTransferMailbox {
 public:
  /// `wake` ends the transfer thread's sleep, or its next one; it may be called on any thread.
  explicit JXTransferMailbox(std::function<void()> wake) : wake_(std::move(wake)) {}

  /// Gives an order: `change` is applied to the orders, and the thread is woken.
  template <class Change>
  void order(Change&& change) {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      change(orders_);
    }
    ordered_.store(true);
    wakeIfSleeping();
  }
  /// Tells of an added request: two atomic operations, unless the thread sleeps and waits for one.
  void notifyAdded() {
    added_.store(true);
    if (sleepState_.load() == SleepState::SleepingUntilAny) wakeIfSleeping();
  }
  /// The orders as they stand.
  JXTransferCommands orders() const;

  // The rest is for the transfer thread.

  JXTransferCommands readOrders();
  bool readAdded() { return added_.exchange(false); }
  /// Announces that the thread goes to sleep; `ignoresAdditions` when an added request is no reason
  /// to wake it. False when there are news already, and it is not to sleep then.
  bool prepareToSleep(bool ignoresAdditions);
  void awake() { sleepState_.store(SleepState::Running); }

 private:
  enum class SleepState { Running, SleepingUntilCommand, SleepingUntilAny };

  void wakeIfSleeping() {
    if (sleepState_.exchange(SleepState::Running) != SleepState::Running) wake_();
  }

  const std::function<void()> wake_;
  mutable std::mutex mutex_;
  JXTransferCommands orders_;
  // Each side writes its own flag first and reads the other's then, in one order for all threads,
  // so that either the giver sees the sleeper or the sleeper sees the news.
  std::atomic<bool> ordered_{false};
  std::atomic<bool> added_{false};
  std::atomic<SleepState> sleepState_{SleepState::Running};
};

}  // namespace jx
