// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A FAKE of AdSupport for tests on GNUstep: the declarations that the library uses, with values
// that tests set.
#pragma once

#import <Foundation/Foundation.h>

@interface ASIdentifierManager : NSObject
+ (ASIdentifierManager*)sharedManager;
- (NSUUID*)advertisingIdentifier;
- (BOOL)isAdvertisingTrackingEnabled;
@end
