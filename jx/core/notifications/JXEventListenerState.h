// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "jx/core/notifications/JXEventListener.h"
#include "jx/core/notifications/JXPendingRequest.h"

namespace jx {

/// State that a listener shares with the notification centers and the hub. Each delivery copies
/// what it needs and calls the parent without a lock, so that the application may use locks of its
/// own in its listeners. A listener that ends or changes its parent waits for the calls that are
/// running on other threads.
class JXEventListener::State {
 public:
  /// Calls the parent, whatever the name is.
  void deliver(const JXNotification& notification) {
    if (IJXEventListenerDelegate* const parent = begin()) callAndEnd(parent, notification);
  }

  /// Calls the parent when the listener listens for the name and sits on another center than
  /// `from`, where the notification was posted.
  void deliverFromElsewhere(const JXNotification& notification, const JXNotificationCenter* from) {
    if (!listensElsewhere(notification.name, from)) return;
    JXPendingRequest::createUserInfo(notification);
    deliver(notification);
  }

  /// Replaces the parent. Returns when no other thread is in a call of the previous parent.
  void setParent(IJXEventListenerDelegate* parent) {
    std::unique_lock<std::mutex> lock(mutex_);
    const IJXEventListenerDelegate* const previous = std::exchange(parent_, parent);
    if (previous == parent) return;
    const std::thread::id self = std::this_thread::get_id();
    callEnded_.wait(lock, [&] {
      return std::none_of(calls_.begin(), calls_.end(), [&](const Call& call) {
        return call.parent == previous && call.thread != self;
      });
    });
  }

  /// Adds a name. False when the listener listens for it already.
  bool addName(const JXString& name) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (std::find(names_.begin(), names_.end(), name) != names_.end()) return false;
    names_.push_back(name);
    return true;
  }

  std::vector<JXString> names() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return names_;
  }
  std::shared_ptr<JXNotificationCenter> center() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return center_;
  }
  /// Replaces the center and returns the previous one.
  std::shared_ptr<JXNotificationCenter> setCenter(std::shared_ptr<JXNotificationCenter> center) {
    const std::lock_guard<std::mutex> lock(mutex_);
    return std::exchange(center_, std::move(center));
  }

 private:
  struct Call {
    std::thread::id thread;
    const IJXEventListenerDelegate* parent;
  };

  bool listensElsewhere(const JXString& name, const JXNotificationCenter* from) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return center_.get() != from && std::find(names_.begin(), names_.end(), name) != names_.end();
  }

  IJXEventListenerDelegate* begin() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (parent_ != nullptr) calls_.push_back({std::this_thread::get_id(), parent_});
    return parent_;
  }

  void callAndEnd(IJXEventListenerDelegate* parent, const JXNotification& notification) {
    // Ends the call also when the parent throws.
    struct Ending {
      State& state;
      const IJXEventListenerDelegate* parent;
      ~Ending() { state.end(parent); }
    } const ending{*this, parent};
    parent->onNotificationReceived(notification);
  }

  void end(const IJXEventListenerDelegate* parent) {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      const std::thread::id self = std::this_thread::get_id();
      // A parent may post and be called again on the same thread: one entry for each call.
      calls_.erase(std::find_if(calls_.begin(), calls_.end(), [&](const Call& call) {
        return call.thread == self && call.parent == parent;
      }));
    }
    callEnded_.notify_all();
  }

  mutable std::mutex mutex_;
  std::condition_variable callEnded_;
  IJXEventListenerDelegate* parent_ = nullptr;
  std::vector<Call> calls_;  ///< the calls that are running
  std::shared_ptr<JXNotificationCenter> center_;
  std::vector<JXString> names_;
};

}  // namespace jx
