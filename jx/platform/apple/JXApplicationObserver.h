// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>

namespace jx {

/// Observes the UIKit notifications that the application entered the background and returns to the
/// foreground, on the thread that posts them, the main thread. The destructor stops observing and
/// must not run while a notification is being delivered.
class JXApplicationObserver {
 public:
  /// Called with the UIApplication.
  using Callback = std::function<void(const void* application)>;

  JXApplicationObserver(Callback didEnterBackground, Callback willEnterForeground);
  ~JXApplicationObserver();
  JXApplicationObserver(const JXApplicationObserver&) = delete;
  JXApplicationObserver& operator=(const JXApplicationObserver&) = delete;

  void didEnterBackground(const void* application) const;
  void willEnterForeground(const void* application) const;

 private:
  struct Listener;

  const Callback didEnterBackground_;
  const Callback willEnterForeground_;
  const std::unique_ptr<Listener> listener_;
};

}  // namespace jx
