// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXApplicationObserver.h"

#import <Foundation/Foundation.h>
#import <UIKit/UIKit.h>

#include <utility>

#import "jx/platform/apple/JXOwnership.h"

// NSNotificationCenter calls methods of objects, not functions.
@interface JXApplicationListener : NSObject {
  const jx::JXApplicationObserver* observer_;
}
- (id)initWithObserver:(const jx::JXApplicationObserver*)observer;
- (void)applicationDidEnterBackground:(NSNotification*)notification;
- (void)applicationWillEnterForeground:(NSNotification*)notification;
@end

@implementation JXApplicationListener

- (id)initWithObserver:(const jx::JXApplicationObserver*)observer {
  self = [super init];
  if (self != nil) observer_ = observer;
  return self;
}

- (void)applicationDidEnterBackground:(NSNotification*)notification {
  observer_->didEnterBackground((__bridge const void*)[notification object]);
}

- (void)applicationWillEnterForeground:(NSNotification*)notification {
  observer_->willEnterForeground((__bridge const void*)[notification object]);
}

@end

namespace jx {

// The notification center does not retain its observers.
struct JXApplicationObserver::Listener {
  JXApplicationListener* const object;
};

JXApplicationObserver::JXApplicationObserver(Callback didEnterBackground,
                                             Callback willEnterForeground)
    : didEnterBackground_(std::move(didEnterBackground)),
      willEnterForeground_(std::move(willEnterForeground)),
      listener_(new Listener{[[JXApplicationListener alloc] initWithObserver:this]}) {
  @autoreleasepool {
    JXApplicationListener* const listener = listener_->object;
    NSNotificationCenter* const center = [NSNotificationCenter defaultCenter];
    [center addObserver:listener
               selector:@selector(applicationDidEnterBackground:)
                   name:UIApplicationDidEnterBackgroundNotification
                 object:nil];
    [center addObserver:listener
               selector:@selector(applicationWillEnterForeground:)
                   name:UIApplicationWillEnterForegroundNotification
                 object:nil];
  }
}

JXApplicationObserver::~JXApplicationObserver() {
  @autoreleasepool {
    [[NSNotificationCenter defaultCenter] removeObserver:listener_->object];
    JX_RELEASE(listener_->object);
  }
}

void JXApplicationObserver::didEnterBackground(const void* application) const {
  if (didEnterBackground_) didEnterBackground_(application);
}

void JXApplicationObserver::willEnterForeground(const void* application) const {
  if (willEnterForeground_) willEnterForeground_(application);
}

}  // namespace jx
