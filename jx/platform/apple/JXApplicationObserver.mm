// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXApplicationObserver.h"

#import <Foundation/Foundation.h>
#import <UIKit/UIKit.h>

#include <utility>

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
  observer_->didEnterBackground(static_cast<const void*>([notification object]));
}

- (void)applicationWillEnterForeground:(NSNotification*)notification {
  observer_->willEnterForeground(static_cast<const void*>([notification object]));
}

@end

namespace jx {

JXApplicationObserver::JXApplicationObserver(Callback didEnterBackground,
                                             Callback willEnterForeground)
    : didEnterBackground_(std::move(didEnterBackground)),
      willEnterForeground_(std::move(willEnterForeground)) {
  @autoreleasepool {
    JXApplicationListener* const listener = [[JXApplicationListener alloc] initWithObserver:this];
    NSNotificationCenter* const center = [NSNotificationCenter defaultCenter];
    [center addObserver:listener
               selector:@selector(applicationDidEnterBackground:)
                   name:UIApplicationDidEnterBackgroundNotification
                 object:nil];
    [center addObserver:listener
               selector:@selector(applicationWillEnterForeground:)
                   name:UIApplicationWillEnterForegroundNotification
                 object:nil];
    listener_ = listener;
  }
}

JXApplicationObserver::~JXApplicationObserver() {
  @autoreleasepool {
    JXApplicationListener* const listener = static_cast<JXApplicationListener*>(listener_);
    [[NSNotificationCenter defaultCenter] removeObserver:listener];
    [listener release];
  }
}

void JXApplicationObserver::didEnterBackground(const void* application) const {
  if (didEnterBackground_) didEnterBackground_(application);
}

void JXApplicationObserver::willEnterForeground(const void* application) const {
  if (willEnterForeground_) willEnterForeground_(application);
}

}  // namespace jx
