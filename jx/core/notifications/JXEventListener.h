// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <mutex>

#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXEventListener;

/// An object that owns a listener and receives its notifications.
class JX_API IJXEventListenerDelegate {
 public:
  virtual ~IJXEventListenerDelegate() = default;
  /// Called with each notification, on the thread that posts it.
  virtual void onNotificationReceived(const JXNotification& notification) = 0;
  /// Returns the listener that this object owns; null when it has none.
  virtual std::shared_ptr<JXEventListener> listenerDelegate() const = 0;
};

/// Passes notifications with the names it listens for to its parent: those posted on its own
/// center, and those that the hub forwards from other centers. Each notification is delivered once,
/// wherever it was posted. Destroying the listener ends the calls, and waits for a call that is in
/// progress on another thread.
class JX_API JXEventListener {
 public:
  /// Returns a new listener on the default center, without a parent or names. Never null.
  static std::shared_ptr<JXEventListener> init();
  ~JXEventListener();
  JXEventListener(const JXEventListener&) = delete;
  JXEventListener& operator=(const JXEventListener&) = delete;

  /// Sets the object to call; not owned, must outlive this listener. Null stops the calls.
  void setParent(IJXEventListenerDelegate* parent);
  /// Starts listening for notifications with `name`. A name that is already listened for, or null,
  /// is ignored.
  void listen(const JXString& name);
  /// Moves the listener with all its names to another center; null selects the default center.
  void setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);

 private:
  friend class JXNotificationHub;
  class State;

  JXEventListener();
  void observe(JXNotificationCenter& center, const JXString& name);

  std::shared_ptr<State> state_;
  std::mutex registering_;  ///< one change of names or center at a time
};

}  // namespace jx
