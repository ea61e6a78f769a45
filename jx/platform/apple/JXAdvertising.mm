// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXAdvertising.h"

#import <AdSupport/AdSupport.h>

#import "jx/platform/apple/JXFoundationString.h"

// The method of ATTrackingManager that is called. Declared here because SDKs before tvOS 14 do not
// have its header.
@protocol JXTrackingAuthorisation
+ (NSUInteger)trackingAuthorizationStatus;
@end

namespace jx {
namespace {

constexpr NSUInteger kAuthorised = 3;

ASIdentifierManager* identifierManager(const JXClassLookup& classNamed) {
  const Class found = (__bridge Class)classNamed("ASIdentifierManager");
  return [found sharedManager];
}

}  // namespace

void* loadedClass(const char* name) {
  @autoreleasepool {
    return (__bridge void*)NSClassFromString([NSString stringWithUTF8String:name]);
  }
}

bool isTrackingAllowed(const JXClassLookup& classNamed) {
  @autoreleasepool {
    if (void* const found = classNamed("ATTrackingManager")) {
      const Class<JXTrackingAuthorisation> manager = (__bridge Class<JXTrackingAuthorisation>)found;
      return [manager trackingAuthorizationStatus] == kAuthorised;
    }
    return [identifierManager(classNamed) isAdvertisingTrackingEnabled] != NO;
  }
}

JXString advertisingIdentifierString(const JXClassLookup& classNamed) {
  @autoreleasepool {
    return stringOf([[identifierManager(classNamed) advertisingIdentifier] UUIDString]);
  }
}

}  // namespace jx
