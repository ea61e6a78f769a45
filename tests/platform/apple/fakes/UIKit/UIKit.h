// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A FAKE of UIKit for tests on GNUstep: the declarations that the library uses, with values that
// tests set.
#pragma once

#import <Foundation/Foundation.h>

typedef NSRect CGRect;

FOUNDATION_EXPORT NSString* const UIApplicationDidEnterBackgroundNotification;
FOUNDATION_EXPORT NSString* const UIApplicationWillEnterForegroundNotification;

@interface UIDevice : NSObject
+ (UIDevice*)currentDevice;
- (NSString*)model;
- (NSString*)systemName;
- (NSString*)systemVersion;
- (NSUUID*)identifierForVendor;
@end

@interface UIScreen : NSObject
+ (UIScreen*)mainScreen;
- (CGRect)bounds;
@end
