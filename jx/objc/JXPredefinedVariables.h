// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXDynamicStore.h"
#import "JXSingleton.h"

NS_ASSUME_NONNULL_BEGIN

/// The variables that describe the installation, the process and the device. Create a ServerSide
/// first. Thread-safe; no operation throws.
JX_OBJC_SENDABLE_CLASS
@interface JXPredefinedVariables : JXSingleton

/// Returns the object of this process.
+ (JXPredefinedVariables*)sharedInstance JX_SWIFT_NAME("shared()");
/// Runs the start-up again: the store is replaced, counters and times are reset, and the persisted
/// counters advance. Returns this object.
- (instancetype)reinit;

/// Sets or replaces a variable; nil removes it. A nil key is ignored.
- (void)addData:(nullable NSString*)key
      withValue:(nullable NSString*)value JX_SWIFT_NAME("addData(_:value:)");
/// Adds every entry of a JXDynamicStore, or of an NSDictionary with string keys; nil is ignored.
- (void)addData:(nullable id)entries JX_SWIFT_NAME("addData(_:)");
/// Returns the variable; nil if it is not set.
- (nullable NSString*)getData:(nullable NSString*)key JX_SWIFT_NAME("data(_:)");
/// Removes the variable and returns its value; nil if it was not set.
- (nullable NSString*)removeData:(nullable NSString*)key;
/// Removes every variable.
- (void)clearData;

/// Returns the seconds since the Unix epoch.
- (int64_t)now;
/// Returns the milliseconds since the Unix epoch.
- (int64_t)nowMs;
/// Returns the milliseconds since the Unix epoch as a decimal string.
- (NSString*)nowMsString;
/// Returns the seconds since the Unix epoch, rounded down, as a decimal string.
- (NSString*)nowString;
/// Returns a random number that is not negative.
- (int32_t)randomInt;
/// Returns a random number as a decimal string.
- (NSString*)randomString;

/// Uses the installation's unique identifier as the anonymous ID of the user block.
- (void)useLegacyUniqueIDForAnonymousID;
/// Uses the installation's unique identifier as the consent ID of the user block.
- (void)useLegacyUniqueIDForConsentID;
/// Moves the listener to another notification center; nil means the default one.
- (void)changeNotificationCenter:(nullable NSNotificationCenter*)center
    JX_SWIFT_NAME("changeNotificationCenter(_:)");
/// Returns the IPv4 address of the device in dotted notation; "" if there is none.
- (NSString*)findDeviceIP;

/// The hardware machine identifier; the name is historic.
- (nullable NSString*)phoneModel;
/// The operating system name.
- (nullable NSString*)systemName;
/// The operating system version.
- (nullable NSString*)systemVersion;
/// The version of this library.
- (nullable NSString*)norvaneVersion;
/// The application version shown to users; "" if it is not configured.
- (nullable NSString*)applicationVersion;
/// The build number.
- (nullable NSString*)applicationBuild;
/// The manufacturer's name.
- (nullable NSString*)manufacturer;
/// The first part of the preferred language tag; "-" if the tag has no second part.
- (nullable NSString*)language;
/// The name of the system's default text encoding.
- (nullable NSString*)charset;
/// A random UUID, created at the first start of the installation.
- (nullable NSString*)uniqueIdentifier;
/// Number of visits, including the current one.
- (nullable NSString*)navNumberVisit;
/// Number of sessions, including the current one.
- (nullable NSString*)numberSession;
/// Start of the current visit, ms since the Unix epoch.
- (nullable NSString*)nav_TimestampCurrentVisitMs;
/// Start of the current session, ms since the Unix epoch; the name is historic.
- (nullable NSString*)timestampCurrentVisitMs;
/// Time of the previous event, ms since the Unix epoch.
- (nullable NSString*)timestampLastCallMs;
/// The user agent.
- (nullable NSString*)userAgent;

/// The store of all variables.
@property(nonatomic, readonly, nullable) JXDynamicStore* dynamicStore;
/// Whether the application is in the background.
@property(nonatomic, readonly) BOOL isBackground;
/// Time in the background after which a return to the foreground starts a new session, in
/// milliseconds. Each start-up sets it to 30 minutes.
@property(nonatomic) uint64_t visitDuration;

@end

NS_ASSUME_NONNULL_END
