// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXDynamicStore.h"
#import "JXEventListener.h"
#import "JXSingleton.h"

NS_ASSUME_NONNULL_BEGIN

/// Time in the background, in seconds, after which a return to the foreground starts a new session:
/// 1800. Each start-up sets `visitDuration` to it, in milliseconds.
JX_OBJC_EXTERN const int64_t kJXVisitDurationDefaultValue;

/// The variables that describe the installation, the process and the device. Create a ServerSide
/// first. Thread-safe; no operation throws. Arguments of a wrong class are logged, and the call is
/// ignored. The single steps of the start-up are in JXPredefinedVariables+StartUp.h.
JX_OBJC_SENDABLE_CLASS
@interface JXPredefinedVariables : JXSingleton <IJXEventListenerDelegate> {
 @private
  id _Nullable _listener;  // The listener that was set or returned.
}

/// Returns the object of this process.
+ (JXPredefinedVariables*)sharedInstance JX_SWIFT_NAME("shared()");
/// Runs the start-up again: the store and the listener are replaced, counters and times are reset,
/// and the persisted counters advance. Each transition of the application is then counted once more
/// often than before. Returns this object.
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
/// Stores `time` seconds under `key` and the same in milliseconds under `keyMs`. The spelling is
/// historic. A nil key is ignored.
- (void)addTimestamp:(nullable NSString*)key
     andTimestampeMs:(nullable NSString*)keyMs
            withTime:(int64_t)time JX_SWIFT_NAME("addTimestamp(_:keyMs:time:)");

/// Marks the first event of the process with "TRUE" and every later one with "FALSE". The library
/// calls this before each event.
- (void)firstExecute;
/// Updates call times, session duration, foreground and background times to the current time. The
/// library calls this before each event.
- (void)computeTimeChangingVariables;
/// Clears the new-session mark. The library calls this after each event, so that only the first
/// event of a session carries the mark.
- (void)resetNewSession;
/// Stores the user agent of a `kJXNotification_UserAgentAvailable`. Called on the posting thread.
/// Nil and other notifications are ignored.
- (void)onNotificationReceived:(nullable NSNotification*)notification;

/// Uses the installation's unique identifier as the anonymous ID of the user block.
- (void)useLegacyUniqueIDForAnonymousID;
/// Uses the installation's unique identifier as the consent ID of the user block.
- (void)useLegacyUniqueIDForConsentID;
/// Moves the listener to another notification center; nil means the default one.
- (void)changeNotificationCenter:(nullable NSNotificationCenter*)center
    JX_SWIFT_NAME("changeNotificationCenter(_:)");
/// Returns the IPv4 address of the device in dotted notation; "" if there is none.
- (NSString*)findDeviceIP;
/// Reads the locale's currency code, stores it ("-" if there is none) and returns it as read.
- (nullable NSString*)currencyCode;
/// Reads the locale's currency symbol, stores it and returns it.
- (nullable NSString*)currencySymbol;
/// Returns the name of the system's default text encoding.
- (NSString*)getDefaultEncoding JX_SWIFT_NAME("defaultEncoding()");

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

/// The store of all variables. With nil every variable is nil, and values that are added are
/// ignored.
@property(nonatomic, strong, nullable) JXDynamicStore* dynamicStore;
/// Whether the application is in the background.
@property(nonatomic) BOOL isBackground;
/// Number of times that the application was in the foreground in this process, from 1.
@property(nonatomic) int32_t totalForegroundTransitions;
/// Time in the foreground in this process, in milliseconds.
@property(nonatomic) uint64_t totalForegroundTime;
/// Time in the foreground since the last event, in milliseconds.
@property(nonatomic) uint64_t deltaForeground;
/// Time in the background in this process, in milliseconds.
@property(nonatomic) uint64_t totalBackgroundTime;
/// Time in the background since the last event, or the last time in the background, in
/// milliseconds.
@property(nonatomic) uint64_t deltaBackground;
/// Time of the last event or transition, in milliseconds since the Unix epoch.
@property(nonatomic) uint64_t lastTime;
/// Usage time of earlier processes and of the start of this one, in milliseconds.
@property(nonatomic) uint64_t startUsage;
/// The process ID as a string; nil until the start-up has run.
@property(nonatomic, copy, nullable) NSString* pid;
/// Time in the background after which a return to the foreground starts a new session, in
/// milliseconds. Each start-up sets it to 30 minutes.
@property(nonatomic) uint64_t visitDuration;
/// The listener that receives the user agent. A new one is used unchanged, with the parent and the
/// names that were set.
@property(nonatomic, strong, nullable) JXEventListener* listenerDelegate;

@end

NS_ASSUME_NONNULL_END
