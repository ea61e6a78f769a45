// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXSingleton.h"

NS_ASSUME_NONNULL_BEGIN

/// Names of the optional modules in this process. A module that is a class of Objective-C need not
/// be registered: it is found by the name of its class. Thread-safe.
JX_OBJC_SENDABLE_CLASS
@interface JXClassRegistry : JXSingleton

/// Returns the object of this process.
+ (JXClassRegistry*)sharedInstance JX_SWIFT_NAME("shared()");

/// Registers a name; nil and an empty name are ignored.
- (void)registerClass:(nullable NSString*)name;
/// Removes a name; one that is not registered is ignored.
- (void)unregisterClass:(nullable NSString*)name;
/// Returns whether the name is registered, or is the name of a class.
- (BOOL)hasClass:(nullable NSString*)name;

@end

NS_ASSUME_NONNULL_END
