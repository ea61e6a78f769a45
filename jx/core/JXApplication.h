// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"

namespace jx {

/// Reports foreground and background changes of the application to the library, on systems that do
/// not report them. Call both operations on one thread, the user interface thread. `application` is
/// the application object of the system, such as UIApplication. It becomes the notification's
/// object, is only compared, and may be null; Linux has none.
class JX_API JXApplication {
 public:
  JXApplication() = delete;

  /// Posts `UIApplicationDidEnterBackgroundNotification` on the default center.
  static void applicationDidEnterBackground(const void* application = nullptr);
  /// Posts `UIApplicationWillEnterForegroundNotification` on the default center.
  static void applicationWillEnterForeground(const void* application = nullptr);
};

}  // namespace jx
