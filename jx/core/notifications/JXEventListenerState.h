// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "jx/core/notifications/JXEventListener.h"

namespace jx {

/// What a listener shares with the centres and the hub, so that one that ends while a notification
/// is under way on another thread is either still whole or no longer called.
struct JXEventListener::State {
  // Recursive: a parent may post, and hear, while it is being called.
  std::recursive_mutex mutex;
  IJXEventListenerDelegate* parent = nullptr;
  std::shared_ptr<JXNotificationCenter> center;
  std::vector<JXString> names;

  void deliver(const JXNotification& notification) {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (parent != nullptr) parent->onNotificationReceived(notification);
  }

  /// For a notification that was posted on the centre `from`.
  void deliverFromElsewhere(const JXNotification& notification, const JXNotificationCenter* from) {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (parent == nullptr || center.get() == from) return;
    if (std::find(names.begin(), names.end(), notification.name) == names.end()) return;
    parent->onNotificationReceived(notification);
  }
};

}  // namespace jx
