// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXState.h"

#include "jx/core/JXCoreConstants.h"
#include "jx/facade/JXState.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXDate.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXState;
using namespace jx::objc;

@implementation JXState

+ (JXState*)sharedInstance {
  static JXState* const instance = [] {
    JXState* const created = [[JXState alloc] init];
    addObject(created, &Core::sharedInstance());
    return created;
  }();
  return instance;
}

// The library observes the transitions itself. This object observes them for its hooks.
- (instancetype)init {
  self = [super init];
  if (self == nil) return nil;
  NSNotificationCenter* const center = [NSNotificationCenter defaultCenter];
  [center addObserver:self
             selector:@selector(jx_didEnterBackground:)
                 name:toFoundation(jx::JXString(jx::UIApplicationDidEnterBackgroundNotification))
               object:nil];
  [center addObserver:self
             selector:@selector(jx_willEnterForeground:)
                 name:toFoundation(jx::JXString(jx::UIApplicationWillEnterForegroundNotification))
               object:nil];
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  JX_SUPER_DEALLOC();
}

- (void)jx_didEnterBackground:(NSNotification*)notification {
  @try {
    [self didEnterBackground:[notification object]];
  } @catch (id thrown) {
    logObserverException(@"UIApplicationDidEnterBackgroundNotification", thrown);
  }
}

- (void)jx_willEnterForeground:(NSNotification*)notification {
  @try {
    [self willEnterForeground:[notification object]];
  } @catch (id thrown) {
    logObserverException(@"UIApplicationWillEnterForegroundNotification", thrown);
  }
}

- (instancetype)reinit {
  Core::sharedInstance().reinit();
  return self;
}

- (void)changeNotificationCenter:(NSNotificationCenter*)center {
  Core::sharedInstance().changeNotificationCenter(coreCenter(center));
}

- (void)applicationDidEnterBackground:(NSNotification*)notification {
  if (!isNilOr([NSNotification class], notification, "JXState")) return;
  [self jx_didEnterBackground:notification];
  Core::sharedInstance().applicationDidEnterBackground({});
}

- (void)applicationWillEnterForeground:(NSNotification*)notification {
  if (!isNilOr([NSNotification class], notification, "JXState")) return;
  [self jx_willEnterForeground:notification];
  Core::sharedInstance().applicationWillEnterForeground({});
}

- (void)didEnterBackground:(id)application {
  static_cast<void>(application);
}

- (void)willEnterForeground:(id)application {
  static_cast<void>(application);
}

- (NSDate*)date {
  return dateOf(Core::sharedInstance().date());
}

- (JXEventSender*)senderDelegate {
  return senderOf(Core::sharedInstance().senderDelegate());
}

- (void)setSenderDelegate:(JXEventSender*)value {
  if (!isNilOr([JXEventSender class], value, "JXState.senderDelegate")) return;
  Core::sharedInstance().setSenderDelegate(coreSender(value));
}

@end
