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

/// Tells those who watch that something happened. An arrival is told by its row number only: who
/// wants to know more reads the store, at its own pace, so that a slow watcher costs no memory.
/// Thread-safe.
class EventBroadcaster {
 public:
  /// What a row number cannot tell.
  struct Signal {
    enum class Kind { Repeat, Reset, Faults };

    Kind kind = Kind::Repeat;
    std::int64_t id = 0;       ///< the event that was repeated; of a reset, the last one removed
    std::int64_t repeats = 0;  ///< how often, in all
    std::string text;          ///< of Faults: what is armed, as JSON
  };

  /// What happened since a watcher asked last.
  struct Updates {
    std::int64_t last = 0;  ///< the newest row number
    std::vector<Signal> signals;
    bool fellBehind = false;  ///< signals were lost because the watcher asked too late
  };

  /// One who watches; ends before the feed. Used by one thread.
  class Subscription {
   public:
    explicit Subscription(EventBroadcaster& feed);
    ~Subscription();
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    /// Becomes readable when there is updates; take() resets it.
    int fd() const { return fd_; }
    Updates take();

   private:
    friend class EventBroadcaster;

    EventBroadcaster& feed_;
    const int fd_;
    bool isCalled_ = false;   // guarded by the feed
    std::uint64_t next_ = 0;  // guarded by the feed
  };

  void arrived(std::int64_t id);
  void tell(Signal signal);

 private:
  static constexpr std::size_t kKeptSignals = 4096;

  void callSubscribers();

  std::mutex mutex_;
  std::int64_t last_ = 0;
  std::deque<Signal> signals_;
  std::uint64_t firstSignal_ = 0;  // number of the oldest one kept
  std::vector<Subscription*> subscriptions_;
};

}  // namespace jx
