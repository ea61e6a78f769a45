// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXRelayedNotification.h"

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXOwnership.h"

@implementation JXRelayedNotification

// Without an initialiser, because that of the abstract base class must not be called.
+ (JXRelayedNotification*)jx_notificationOf:(const jx::JXNotification&)notification
                                     object:(id)object {
  JXRelayedNotification* const result = JX_AUTORELEASE([self alloc]);
  result->_jxName = JX_RETAIN(jx::objc::toFoundation(notification.name));
  result->_jxObject = JX_RETAIN(object);
  result->_jxJson = new jx::JXJsonObject(notification.userInfo);
  return result;
}

- (void)dealloc {
  JX_RELEASE(_jxName);
  JX_RELEASE(_jxObject);
  JX_RELEASE(_jxUserInfo);
  delete _jxJson;
  JX_SUPER_DEALLOC();
}

- (NSString*)name {
  return _jxName;
}

- (id)object {
  return _jxObject;
}

- (NSDictionary*)userInfo {
  @synchronized(self) {
    if (_jxUserInfo == nil) _jxUserInfo = JX_RETAIN(jx::objc::toFoundation(*_jxJson));
    return _jxUserInfo;
  }
}

- (id)copyWithZone:(NSZone*)zone {
  static_cast<void>(zone);
  return JX_RETAIN(self);
}

@end
