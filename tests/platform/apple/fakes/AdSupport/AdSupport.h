// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A FAKE of AdSupport for tests on GNUstep: what the library names of it, with values that tests
// set.
#pragma once

#import <Foundation/Foundation.h>

@interface ASIdentifierManager : NSObject
+ (ASIdentifierManager*)sharedManager;
- (NSUUID*)advertisingIdentifier;
- (BOOL)isAdvertisingTrackingEnabled;
@end
