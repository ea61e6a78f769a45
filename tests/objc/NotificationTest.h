// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import "jx/objc/JXEvent.h"
#import "jx/objc/JXEventListener.h"
#import "jx/objc/JXEventSender.h"
#import "jx/objc/JXNames.h"
#import "jx/objc/ServerSide.h"
#import "tests/objc/ObjectiveCTest.h"

/// Keeps the notifications that it receives, and posts one itself or raises an exception.
@interface NotificationRecorder : NSObject <IJXEventListenerDelegate> {
 @public
  NSMutableArray* _received;
  NSString* _nextName;
  BOOL _raises;
}
- (void)observe:(NSString*)name on:(NSNotificationCenter*)center;
- (NSUInteger)count:(NSString*)name;
@end

namespace jx::test {

class NotificationTest : public ObjectiveCTest {
 protected:
  template <typename Class>
  static Class* make() {
    return [[[Class alloc] init] autorelease];
  }
  static NSNotificationCenter* defaultCenter() { return [NSNotificationCenter defaultCenter]; }
  static NotificationRecorder* recorder(NSString* name,
                                        NSNotificationCenter* center = defaultCenter()) {
    NotificationRecorder* const result = make<NotificationRecorder>();
    [result observe:name on:center];
    return result;
  }
  static void post(NSString* name, NSNotificationCenter* center = defaultCenter()) {
    [center postNotificationName:name object:nil];
  }
  ::ServerSide* create(NSNotificationCenter* center = nil,
                       ::EJXDefaultBehaviour behaviour = ::EJXDefaultBehaviour_DEFAULT) {
    configuration.logLevel = 6;
    start();
    return [[[::ServerSide alloc] initWithSiteID:1234
                                    andSourceKey:@"key"
                              notificationCenter:center
                             andDefaultBehaviour:behaviour
                             andFirebaseInstance:nil] autorelease];
  }
  static void executeQuiz(::ServerSide* serverSide) {
    ::JXEvent* const event = make<::JXEvent>();
    event.name = @"quiz";
    [serverSide execute:event];
  }
};

}  // namespace jx::test
