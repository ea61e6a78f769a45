// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "jx/core/notifications/JXNotification.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Brings what is posted to those who observe it, on the thread that posts, in the order in which
/// they registered. Thread-safe; an observer may post, register and unregister while it is called.
class JX_API JXNotificationCenter {
 public:
  /// What is called with each notification, on the thread that posts.
  using Handler = std::function<void(const JXNotification&)>;

  /// A centre of the host's own, without observers.
  JXNotificationCenter();
  /// The process's own centre; never destroyed.
  static const std::shared_ptr<JXNotificationCenter>& defaultCenter();

  /// Calls `handler` with each notification of that name, or with every one when the name is
  /// absent. `observer` names the registration for `removeObserver` and is never followed. The same
  /// observer may register several times and is then called as often.
  void addObserver(const void* observer, const JXString& name, Handler handler);
  /// Ends all registrations of the observer: none of its handlers is begun any more, not even by a
  /// post that is under way.
  void removeObserver(const void* observer);
  /// Ends the registrations of the observer for one name.
  void removeObserver_name(const void* observer, const JXString& name);

  /// Calls every handler whose name fits. What a handler throws is logged at level 3 and does not
  /// reach the poster or the other handlers.
  void postNotification(const JXNotification& notification);

 private:
  struct Registration;
  using Registrations = std::vector<std::shared_ptr<Registration>>;

  template <typename Predicate>
  void removeWhere(Predicate predicate);

  std::mutex mutex_;
  // Replaced, never changed, so that a post can walk it without the lock.
  std::shared_ptr<const Registrations> registrations_;
};

}  // namespace jx
