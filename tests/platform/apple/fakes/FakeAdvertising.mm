// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import <AdSupport/AdSupport.h>

#include "tests/platform/apple/fakes/Fakes.h"

@implementation ASIdentifierManager

+ (ASIdentifierManager*)sharedManager {
  return [[[ASIdentifierManager alloc] init] autorelease];
}

- (NSUUID*)advertisingIdentifier {
  const char* const identifier = jx::test::fakeAdvertising().identifier;
  if (identifier == nullptr) return nil;
  NSString* const text = [NSString stringWithUTF8String:identifier];
  return [[[NSUUID alloc] initWithUUIDString:text] autorelease];
}

- (BOOL)isAdvertisingTrackingEnabled {
  return jx::test::fakeAdvertising().isTrackingEnabled ? YES : NO;
}

@end

// A FAKE of AppTrackingTransparency, which the library looks up only by name.
@interface ATTrackingManager : NSObject
+ (NSUInteger)trackingAuthorizationStatus;
@end

@implementation ATTrackingManager

+ (NSUInteger)trackingAuthorizationStatus {
  return jx::test::fakeAdvertising().authorisation;
}

@end

namespace jx::test {

FakeAdvertising& fakeAdvertising() {
  static FakeAdvertising advertising;
  return advertising;
}

}  // namespace jx::test
