// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace jx {

/// Observes the UIKit notifications that the application entered the background and returns to the
/// foreground, on the thread that posts them, the main thread. The destructor stops observing and
/// must not run while a notification is being delivered.
class JXApplicationObserver {
 public:
  JXApplicationObserver(std::function<void()> didEnterBackground,
                        std::function<void()> willEnterForeground);
  ~JXApplicationObserver();
  JXApplicationObserver(const JXApplicationObserver&) = delete;
  JXApplicationObserver& operator=(const JXApplicationObserver&) = delete;

  void didEnterBackground() const;
  void willEnterForeground() const;

 private:
  const std::function<void()> didEnterBackground_;
  const std::function<void()> willEnterForeground_;
  void* listener_;  // an Objective-C object, owned
};

}  // namespace jx
