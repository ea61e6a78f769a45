// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXAdvertising.h"

#import <AdSupport/AdSupport.h>

#include <cstdlib>

#import "jx/platform/apple/JXFoundationString.h"

// The method of ATTrackingManager that is called. Declared here because SDKs before tvOS 14 do not
// have its header.
@protocol JXTrackingAuthorisation
+ (NSUInteger)trackingAuthorizationStatus;
@end

namespace jx {
namespace {

constexpr NSUInteger kAuthorised = 3;
constexpr int kFirstVersionThatAsks = 14;

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

bool isTrackingAllowed(const JXString& systemVersion, const JXClassLookup& classNamed) {
  @autoreleasepool {
    // "13.4.8" becomes 13, and an unknown version 0.
    const int major = std::atoi(systemVersion.toStdString().c_str());
    if (major != 0 && major < kFirstVersionThatAsks) {
      return [identifierManager(classNamed) isAdvertisingTrackingEnabled] != NO;
    }
    const Class<JXTrackingAuthorisation> manager =
        (__bridge Class<JXTrackingAuthorisation>)classNamed("ATTrackingManager");
    return [manager trackingAuthorizationStatus] == kAuthorised;
  }
}

JXString advertisingIdentifierString(const JXClassLookup& classNamed) {
  @autoreleasepool {
    return stringOf([[identifierManager(classNamed) advertisingIdentifier] UUIDString]);
  }
}

}  // namespace jx
