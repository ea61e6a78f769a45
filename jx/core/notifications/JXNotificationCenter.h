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

/// Delivers notifications to observers on the thread that posts, in the order of their
/// registration. Thread-safe; an observer may post, register and unregister while it is called.
class JX_API JXNotificationCenter {
 public:
  /// Function that is called with each notification, on the thread that posts it.
  using Handler = std::function<void(const JXNotification&)>;

  /// Creates a center without observers, for use by the application.
  JXNotificationCenter();
  /// Returns the default center of the process; never destroyed.
  static const std::shared_ptr<JXNotificationCenter>& defaultCenter();

  /// Calls `handler` with each notification named `name`; null selects every notification.
  /// `observer` identifies the registration for `removeObserver` and is never dereferenced. An
  /// observer that registers several times is called once per registration.
  void addObserver(const void* observer, const JXString& name, Handler handler);
  /// Removes all registrations of the observer. None of its handlers is called afterwards, not even
  /// by a post in progress.
  void removeObserver(const void* observer);
  /// Removes the registrations of the observer for one name.
  void removeObserver_name(const void* observer, const JXString& name);

  /// Calls every handler registered for the notification's name. Exceptions of a handler are logged
  /// at level 3; they affect neither the poster nor the other handlers.
  void postNotification(const JXNotification& notification);

 private:
  friend class JXNotificationHub;
  struct Registration;
  using Registrations = std::vector<std::shared_ptr<Registration>>;

  /// As `addObserver`. `readsUserInfo` is false for the hub, which reads pending requests.
  void add(const void* observer, const JXString& name, Handler handler, bool readsUserInfo);
  template <typename Predicate>
  void removeWhere(Predicate predicate);

  std::mutex mutex_;
  // Replaced, never modified, so that a post can iterate over it without the lock.
  std::shared_ptr<const Registrations> registrations_;
};

}  // namespace jx
