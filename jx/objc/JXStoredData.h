// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// The data that the library has stored on the device.
JX_OBJC_CLASS
@interface JXStoredData : NSObject

/// Erases everything that the library has stored: queued events, identifiers, counts and times. The
/// process then continues as after a first installation. Returns a line for each file that could
/// not be deleted; empty if nothing is left. May be called on any thread; blocks on disk I/O.
+ (NSArray<NSString*>*)eraseAll;
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
