// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include "jx/core/notifications/JXNotification.h"

/// A notification of the library. Its user information is converted when an observer first reads
/// it, because each event posts one that usually nobody observes.
@interface JXRelayedNotification : NSNotification {
  NSString* _jxName;
  id _jxObject;
  jx::JXJsonObject* _jxJson;
  NSDictionary* _jxUserInfo;
}
+ (JXRelayedNotification*)jx_notificationOf:(const jx::JXNotification&)notification
                                     object:(id)object;
@end
