// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "jx/core/notifications/JXEventListener.h"
#include "jx/core/notifications/JXNotificationCenter.h"

namespace jx {

/// Connects the notification centers: observes each center that a sender posts on, passes requests
/// and state changes to the network manager, and forwards each notification to the listeners of
/// other centers. Runs on the thread that posts. Thread-safe; never destroyed.
class JXNotificationHub {
 public:
  static JXNotificationHub& sharedInstance();

  /// Starts observing `center`; a center that is already observed is ignored.
  void observe(const std::shared_ptr<JXNotificationCenter>& center);

 private:
  friend class JXEventListener;
  using Listeners = std::vector<std::shared_ptr<JXEventListener::State>>;

  JXNotificationHub();
  void add(const std::shared_ptr<JXEventListener::State>& listener);
  void remove(const std::shared_ptr<JXEventListener::State>& listener);
  void received(const JXNotification& notification, const JXNotificationCenter* from);
  static void handToNetworkManager(const JXNotification& notification);
  static void enqueue(const JXNotification& notification);

  std::mutex mutex_;
  std::vector<std::weak_ptr<JXNotificationCenter>> centers_;
  // Replaced, never modified, so that a notification can be forwarded without the lock.
  std::shared_ptr<const Listeners> listeners_;
};

}  // namespace jx
