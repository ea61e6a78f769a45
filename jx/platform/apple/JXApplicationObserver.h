// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace jx {

/// Hears UIKit's notifications that the application went to the background and comes back, on the
/// thread that posts them, the main thread. Stops hearing when it ends; it must not end while a
/// notification is being delivered.
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
  void* listener_;  // an object of the run time, owned
};

}  // namespace jx
