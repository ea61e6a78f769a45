// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXAdditionalProperties.h"

NS_ASSUME_NONNULL_BEGIN

/// The network block, inside the device block. Every object of this class is the one block of the
/// process. Thread-safe.
JX_OBJC_SENDABLE_CLASS
@interface JXNetwork : JXAdditionalProperties

/// Returns the object of this process.
+ (JXNetwork*)sharedInstance JX_SWIFT_NAME("shared()");
/// Reads the type of the current connection from the system.
- (void)refresh;
/// Returns a new dictionary with the current values: the additional properties, overridden by those
/// of the block.
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");

@end

NS_ASSUME_NONNULL_END
