// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import <UIKit/UIKit.h>

#include "tests/platform/apple/fakes/Fakes.h"

NSString* const UIApplicationDidEnterBackgroundNotification =
    @"UIApplicationDidEnterBackgroundNotification";
NSString* const UIApplicationWillEnterForegroundNotification =
    @"UIApplicationWillEnterForegroundNotification";

namespace {

NSString* text(const char* value) {
  return value == nullptr ? nil : [NSString stringWithUTF8String:value];
}

}  // namespace

@implementation UIDevice

+ (UIDevice*)currentDevice {
  return [[[UIDevice alloc] init] autorelease];
}

- (NSString*)model {
  return text(jx::test::fakeDevice().model);
}

- (NSString*)systemName {
  return text(jx::test::fakeDevice().systemName);
}

- (NSString*)systemVersion {
  return text(jx::test::fakeDevice().systemVersion);
}

- (NSUUID*)identifierForVendor {
  NSString* const identifier = text(jx::test::fakeDevice().vendorIdentifier);
  return identifier == nil ? nil : [[[NSUUID alloc] initWithUUIDString:identifier] autorelease];
}

@end

@implementation UIScreen

+ (UIScreen*)mainScreen {
  return jx::test::fakeDevice().hasScreen ? [[[UIScreen alloc] init] autorelease] : nil;
}

- (CGRect)bounds {
  return NSMakeRect(0, 0, jx::test::fakeDevice().width, jx::test::fakeDevice().height);
}

@end

namespace jx::test {

FakeDevice& fakeDevice() {
  static FakeDevice device;
  return device;
}

const void* fakeApplication() {
  static NSObject* const application = [[NSObject alloc] init];
  return application;
}

void postFakeDidEnterBackground() {
  @autoreleasepool {
    [[NSNotificationCenter defaultCenter]
        postNotificationName:UIApplicationDidEnterBackgroundNotification
                      object:static_cast<id>(const_cast<void*>(fakeApplication()))];
  }
}

void postFakeWillEnterForeground() {
  @autoreleasepool {
    [[NSNotificationCenter defaultCenter]
        postNotificationName:UIApplicationWillEnterForegroundNotification
                      object:static_cast<id>(const_cast<void*>(fakeApplication()))];
  }
}

}  // namespace jx::test
