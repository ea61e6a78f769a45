// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace jx {

class JXSendFilter;

/// Commands for the transfer thread. The counters are monotonic; a changed counter is a new
/// command.
struct JXTransferCommands {
  bool stop = false;
  std::shared_ptr<const JXSendFilter> filter;  ///< null: every request may be sent
  bool isConsentMissing = false;               ///< requests are held until an enabling
  bool inBackground = false;
  std::uint64_t backgroundFrom = 0;  ///< ID of the first request that was added in the background
  std::optional<std::chrono::steady_clock::time_point> pausedUntil;  ///< wait for the user agent
  std::uint64_t suspensions = 0;  ///< how often the transport was suspended
  std::uint64_t purges = 0;
  std::uint64_t flushes = 0;
  std::uint64_t storageChanges = 0;
  std::uint64_t rejectedByQueue = 0;  ///< requests that the queue did not accept
};

/// Passes commands from other threads to the transfer thread. Wakes it only when it sleeps and the
/// update is relevant to it.
class JXTransferMailbox {
 public:
  /// `wake` ends the transfer thread's current or next sleep; it must be callable on any thread.
  explicit JXTransferMailbox(std::function<void()> wake) : wake_(std::move(wake)) {}

  /// Applies `change` to the commands and wakes the thread.
  template <class Change>
  void send(Change&& change) {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      change(commands_);
    }
    hasCommand_.store(true);
    wakeIfSleeping();
  }
  /// Calls `use` with the current commands; they do not change meanwhile.
  template <class Use>
  void withCommands(Use&& use) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    use(commands_);
  }
  /// Reports an added request. Costs two atomic operations unless the thread must be woken.
  void notifyAdded() {
    added_.store(true);
    if (sleepState_.load() == SleepState::SleepingUntilAny) wakeIfSleeping();
  }
  /// Returns the current commands.
  JXTransferCommands commands() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return commands_;
  }

  // The following operations are for the transfer thread only.

  JXTransferCommands readCommands() {
    hasCommand_.store(false);
    return commands();
  }
  bool readAdded() { return added_.exchange(false); }
  /// Marks the thread as sleeping; with `ignoresAdditions`, added requests do not wake it. Returns
  /// false when there is an update already; the thread must not sleep then.
  bool prepareToSleep(bool ignoresAdditions) {
    sleepState_.store(ignoresAdditions ? SleepState::SleepingUntilCommand
                                       : SleepState::SleepingUntilAny);
    if (!hasCommand_.load() && (ignoresAdditions || !added_.load())) return true;
    awake();
    return false;
  }
  void awake() { sleepState_.store(SleepState::Running); }

 private:
  enum class SleepState { Running, SleepingUntilCommand, SleepingUntilAny };

  void wakeIfSleeping() {
    if (sleepState_.exchange(SleepState::Running) != SleepState::Running) wake_();
  }

  const std::function<void()> wake_;
  mutable std::mutex mutex_;
  JXTransferCommands commands_;
  // Each side first writes its own variable and then reads the other's, sequentially consistent, so
  // that either the sender sees the sleeper or the sleeper sees the update.
  std::atomic<bool> hasCommand_{false};
  std::atomic<bool> added_{false};
  std::atomic<SleepState> sleepState_{SleepState::Running};
};

}  // namespace jx
