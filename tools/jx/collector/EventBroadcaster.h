// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace jx {

/// Notifies subscribers of changes in the store. Publishes only the row ID of a new event:
/// subscribers read the event from the store at their own pace, so slow ones use no extra memory.
/// Thread-safe.
class EventBroadcaster {
 public:
  /// A change other than a new event.
  struct Signal {
    enum class Kind { Repeat, Reset, Faults };

    Kind kind = Kind::Repeat;
    std::int64_t id = 0;  ///< row ID of the repeated event; for Reset, of the last removed event
    std::int64_t repeats = 0;  ///< total number of repeats
    std::string text;          ///< for Faults: the armed fault as JSON
  };

  /// The changes since the previous call of take().
  struct Updates {
    std::int64_t last = 0;  ///< the newest row ID
    std::vector<Signal> signals;
    bool fellBehind = false;  ///< signals were lost because take() was called too late
  };

  /// A subscriber. The broadcaster must outlive it. Used by one thread.
  class Subscription {
   public:
    explicit Subscription(EventBroadcaster& broadcaster);
    ~Subscription();
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    /// Returns a descriptor that is readable while updates are pending. take() resets it.
    int fd() const { return fd_; }
    /// Returns the updates since the previous call, or since construction.
    Updates take();

   private:
    friend class EventBroadcaster;

    EventBroadcaster& broadcaster_;
    const int fd_;
    bool isNotified_ = false;  // guarded by the broadcaster
    std::uint64_t next_ = 0;   // guarded by the broadcaster
  };

  /// Publishes the row ID of a new event.
  void publishArrival(std::int64_t id);
  /// Publishes a signal. Keeps the last 4,096 for subscribers that have not read them.
  void publish(Signal signal);

 private:
  static constexpr std::size_t kKeptSignals = 4096;

  void notifySubscribers();

  std::mutex mutex_;
  std::int64_t last_ = 0;
  std::deque<Signal> signals_;
  std::uint64_t firstSignal_ = 0;  // sequence number of the oldest stored signal
  std::vector<Subscription*> subscriptions_;
};

}  // namespace jx
