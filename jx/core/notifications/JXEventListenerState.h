// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "jx/core/notifications/JXEventListener.h"

namespace jx {

/// State that a listener shares with the centers and the hub. A listener that is destroyed during a
/// notification on another thread is thus either still valid or no longer called.
struct JXEventListener::State {
  // Recursive: a parent may post and receive notifications while it is being called.
  std::recursive_mutex mutex;
  IJXEventListenerDelegate* parent = nullptr;
  std::shared_ptr<JXNotificationCenter> center;
  std::vector<JXString> names;

  void deliver(const JXNotification& notification) {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (parent != nullptr) parent->onNotificationReceived(notification);
  }

  /// Delivers a notification that was posted on the center `from`, unless it is the listener's own.
  void deliverFromElsewhere(const JXNotification& notification, const JXNotificationCenter* from) {
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (parent == nullptr || center.get() == from) return;
    if (std::find(names.begin(), names.end(), notification.name) == names.end()) return;
    parent->onNotificationReceived(notification);
  }
};

}  // namespace jx
