// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXEventListener;

/// An object that owns a listener and receives what it hears.
class JX_API IJXEventListenerDelegate {
 public:
  virtual ~IJXEventListenerDelegate() = default;
  /// Called on the thread that posts.
  virtual void onNotificationReceived(const JXNotification& notification) = 0;
  /// The listener that this object owns; null when it has none.
  virtual std::shared_ptr<JXEventListener> listenerDelegate() const = 0;
};

/// Calls its parent with the notifications of the names it listens for: those posted on its own
/// centre, and those that the hub brings from other centres. Each is heard once, wherever it was
/// posted. Ending the listener ends the calls, and waits for one that is under way on another
/// thread.
class JX_API JXEventListener {
 public:
  /// A new listener on the default centre, without a parent and without names.
  static std::shared_ptr<JXEventListener> init();
  ~JXEventListener();
  JXEventListener(const JXEventListener&) = delete;
  JXEventListener& operator=(const JXEventListener&) = delete;

  /// The object to call; not owned, and must outlive this listener. Null calls nobody.
  void setParent(IJXEventListenerDelegate* parent);
  /// From now on the parent hears notifications of this name. Naming it twice has no effect beyond
  /// naming it once; an absent name is ignored.
  void listen(const JXString& name);
  /// Moves the listener with all its names to another centre; null is the default one.
  void setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);

 private:
  friend class JXNotificationHub;
  struct State;

  JXEventListener();
  void observe(const JXString& name);

  std::shared_ptr<State> state_;
};

}  // namespace jx
