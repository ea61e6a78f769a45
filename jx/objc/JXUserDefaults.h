// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// The strings that the library persists. Thread-safe; no operation throws.
JX_OBJC_CLASS
@interface JXUserDefaults : NSObject

/// Returns the value of the key; nil when there is none.
+ (nullable NSString*)retrieveInfoFromUserDefaults:(nullable NSString*)key;
/// Stores a value at once; nil removes the entry. A nil label is ignored.
+ (void)saveInfoToUserDefaults:(nullable NSString*)value forLabel:(nullable NSString*)label;
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
