// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXApplication.h"

#include "jx/core/JXCoreConstants.h"
#include "jx/core/notifications/JXNotificationCenter.h"

namespace jx {

void JXApplication::applicationDidEnterBackground(const void* application) {
  JXNotificationCenter::defaultCenter()->postNotification(
      {UIApplicationDidEnterBackgroundNotification, application});
}

void JXApplication::applicationWillEnterForeground(const void* application) {
  JXNotificationCenter::defaultCenter()->postNotification(
      {UIApplicationWillEnterForegroundNotification, application});
}

}  // namespace jx
