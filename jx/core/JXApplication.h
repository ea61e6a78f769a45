// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"

namespace jx {

/// How a host tells the library that its application changes between foreground and background, on
/// systems that do not tell it themselves. Call both on one thread, the one that the user interface
/// runs on.
class JX_API JXApplication {
 public:
  JXApplication() = delete;

  /// Posts `UIApplicationDidEnterBackgroundNotification` on the default centre.
  static void applicationDidEnterBackground();
  /// Posts `UIApplicationWillEnterForegroundNotification` on the default centre.
  static void applicationWillEnterForeground();
};

}  // namespace jx
