// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "jx/core/notifications/JXEventListener.h"
#include "jx/core/notifications/JXNotificationCenter.h"

namespace jx {

/// Stands between the centres: observes each one that a sender posts on, hands requests and state
/// changes to the network manager, and passes each notification on to the listeners that sit on
/// another centre. Everything happens on the thread that posts. Thread-safe; never destroyed.
class JXNotificationHub {
 public:
  static JXNotificationHub& sharedInstance();

  /// Observes the centre from now on; a centre that is observed already is left alone.
  void observe(const std::shared_ptr<JXNotificationCenter>& center);

 private:
  friend class JXEventListener;
  using Listeners = std::vector<std::shared_ptr<JXEventListener::State>>;

  JXNotificationHub();
  void add(const std::shared_ptr<JXEventListener::State>& listener);
  void remove(const std::shared_ptr<JXEventListener::State>& listener);
  void received(const JXNotification& notification, const JXNotificationCenter* from);
  static void handToNetworkManager(const JXNotification& notification);

  std::mutex mutex_;
  std::vector<std::weak_ptr<JXNotificationCenter>> centers_;
  // Replaced, never changed, so that a notification can be passed on without the lock.
  std::shared_ptr<const Listeners> listeners_;
};

}  // namespace jx
