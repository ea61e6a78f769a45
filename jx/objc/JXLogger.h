// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXSingleton.h"

NS_ASSUME_NONNULL_BEGIN

/// The log of the library. Thread-safe; no operation throws.
JX_OBJC_SENDABLE_CLASS
@interface JXLogger : JXSingleton

/// Returns the object of this process.
+ (JXLogger*)sharedInstance JX_SWIFT_NAME("shared()");

/// Logs a message if the level is at most the configured one: 1 to 3 for errors and warnings, up to
/// 6 for details. Nil is ignored.
- (void)logMessage:(nullable NSString*)message
         withLevel:(int32_t)level JX_SWIFT_NAME("logMessage(_:level:)");
/// Returns whether messages of the level are logged. Check it before building a costly message.
- (BOOL)printsLevel:(int32_t)level;
/// Sets the highest level that is logged; 0 turns the log off.
- (void)setMaxLevel:(int32_t)level;

@end

NS_ASSUME_NONNULL_END
