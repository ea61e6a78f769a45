// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"

namespace jx {

/// Reports foreground and background changes of the application to the library, on systems that do
/// not report them. Call both operations on one thread, the user interface thread.
class JX_API JXApplication {
 public:
  JXApplication() = delete;

  /// Posts `UIApplicationDidEnterBackgroundNotification` on the default center.
  static void applicationDidEnterBackground();
  /// Posts `UIApplicationWillEnterForegroundNotification` on the default center.
  static void applicationWillEnterForeground();
};

}  // namespace jx
