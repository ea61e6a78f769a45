// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXDynamicStore.h"
#import "JXSingleton.h"

NS_ASSUME_NONNULL_BEGIN

/// The clock, and the values that the parts of the library share. Thread-safe; no operation throws.
JX_OBJC_SENDABLE_CLASS
@interface JXCoreVariables : JXSingleton

/// Returns the object of this process.
+ (JXCoreVariables*)sharedInstance JX_SWIFT_NAME("shared()");

/// Returns the string of the key; nil when it is not set.
- (nullable NSString*)getData:(nullable NSString*)key JX_SWIFT_NAME("data(_:)");
/// Stores a string, replacing any value with the same key; nil removes the key.
- (void)addData:(nullable NSString*)key
      withValue:(nullable NSString*)value JX_SWIFT_NAME("addData(_:value:)");
/// Returns the milliseconds since the Unix epoch, from the configured clock.
- (int64_t)nowMs;
/// Returns the current time, in whole milliseconds.
- (NSDate*)now;
/// Returns the milliseconds since the Unix epoch as a decimal string.
- (NSString*)nowMsString;
/// Returns the seconds since the Unix epoch, rounded down, as a decimal string.
- (NSString*)nowString;
/// Reads the vendor identifier and stores it under `kJXPredefinedVariable_IDFV`.
- (void)setIDFV;

/// The store of the values.
@property(nonatomic, readonly) JXDynamicStore* dynamicStore;
/// Whether events are sent while the application is in the background.
@property(nonatomic) BOOL enableSDKInBG;

@end

NS_ASSUME_NONNULL_END
