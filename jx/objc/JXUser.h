// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXAdditionalProperties.h"

NS_ASSUME_NONNULL_BEGIN

/// The user block of each event. Every object of this class is the one block of the process.
/// Thread-safe.
JX_OBJC_SENDABLE_CLASS
@interface JXUser : JXAdditionalProperties

/// Returns the object of this process.
+ (JXUser*)sharedInstance JX_SWIFT_NAME("shared()");
/// Returns a new dictionary with the current values: the additional properties, overridden by those
/// of the block.
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");

/// The random UUID of this installation, or its replacement. Setting it replaces the identifier for
/// this and all later launches; nil and an empty ID are ignored.
@property(nonatomic, copy, nullable) NSString* anonymous_id;
/// The consent ID; nil omits the key. It is not persisted: the consent module sets it at each
/// start.
@property(nonatomic, copy, nullable) NSString* consentID;

@end

NS_ASSUME_NONNULL_END
