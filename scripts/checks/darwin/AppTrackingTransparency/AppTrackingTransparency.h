// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's AppTrackingTransparency, as far as the examples use it.
#pragma once

#import <Foundation/Foundation.h>

typedef NS_ENUM(NSUInteger, ATTrackingManagerAuthorizationStatus) {
  ATTrackingManagerAuthorizationStatusNotDetermined = 0,
  ATTrackingManagerAuthorizationStatusRestricted,
  ATTrackingManagerAuthorizationStatusDenied,
  ATTrackingManagerAuthorizationStatusAuthorized
};

__attribute__((availability(tvos, introduced = 14.0)))
@interface ATTrackingManager : NSObject
+ (void)requestTrackingAuthorizationWithCompletionHandler:
    (void (^_Nonnull)(ATTrackingManagerAuthorizationStatus status))completion;
@end
