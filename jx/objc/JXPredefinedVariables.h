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
/// ignored.
///
/// The library calls the steps of the start-up, of each event and of each transition; applications
/// need them only to repeat a step. Their times are decimal strings, in milliseconds since the Unix
/// epoch. A string that is not a number counts as the integer at its start, or as 0. With nil, a
/// variable that contains the time itself is removed.
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

// The steps of the start-up, of each event and of each transition.

/// Sets `kJXPredefinedVariable_IsFirstVisit`: "TRUE" if no earlier process has stored the first
/// visit of a version, "FALSE" otherwise.
- (void)initIsFirstVisit;
/// Sets the last hit of the previous session to the last event of an earlier process, if any.
- (void)initLastCallLastVisit;
/// Stores the call time and the unique identifier, which is created if there is none yet.
- (void)setVisitorIDCurrentCallUniqueID:(nullable NSString*)time;
/// Increments and persists the number of process starts.
- (void)initColdStartNumber;
/// Starts the first visit or the next one, or continues the visit of the same process.
- (void)setTimestamps:(nullable NSString*)time;
/// Starts visit and session 1. The dates persisted here are in seconds, because applications read
/// them.
- (void)setFirstVisitUserDefaults:(nullable NSString*)time;
/// Starts the next visit and its first session. `firstVisit` is used if no date of the previous
/// visit is stored.
- (void)newVisitUserDefaults:(nullable NSString*)firstVisit currentTime:(nullable NSString*)time;
/// Reads the current visit of this process. No counter changes, and the time is not read.
- (void)updateVisitUserDefaults:(nullable NSString*)time;
/// Starts the next session within the visit: sets number, start, identifier and new-session mark.
- (void)updateVariablesForNewSession:(nullable NSString*)time;
/// Stores the time since the start of the visit plus the usage time carried over from earlier
/// processes, in milliseconds. If the start of the visit is not set, logs at level 2 and stores
/// nothing.
- (void)setSessionDuration:(nullable NSString*)time;
/// Sets the last call to the previous event and the current call to this event.
- (void)initNavTimestampCalls:(nullable NSString*)time;

/// Adds the foreground time up to now and persists it for the next process. The notification is not
/// read and may be nil.
- (void)didEnterBackground:(nullable NSNotification*)notification;
/// Adds the background time, and starts a session if more than `visitDuration` has passed since the
/// last background notification or the last event, whichever is later. Ignored if the application
/// was not in the background. The notification is not read and may be nil.
- (void)willEnterForeground:(nullable NSNotification*)notification;
/// Sets the session identifier. Stores a new session start if the stored one is more than
/// `visitDuration` ago. Carries usage times over. Arithmetic is unsigned and wraps around if the
/// clock was set back, also in the next two operations.
- (void)initComScoreSession:(nullable NSString*)time;
/// Stores the time since an earlier process last went to the background; zeros if unknown.
- (void)computeDeltaSinceLastLaunch:(nullable NSString*)time;
/// Stores the usage time at the start of this process. `renewed` means that a new session was
/// started, so the unmeasured foreground time is not included.
- (void)computeStartUsageTime:(BOOL)renewed;

/// Stores the manufacturer's name, "Apple" on every system: servers identify the device family by
/// it.
- (void)setManufacturer;
/// Stores the version of this library.
- (void)setNorvaneVersion;
/// Stores the name of the system's default text encoding.
- (void)setLocalCharset;
/// Stores the width and height of the main screen in whole points; "0" without a display.
- (void)initScreenResolution;
/// Stores the build number if it is configured.
- (void)setApplicationBuild;
/// Stores the marketing model of the device.
- (void)setLocalModel;
/// Stores the operating system version.
- (void)setLocalSysVersion;
/// Stores the operating system name.
- (void)setLocalSysName;
/// Stores the first two parts of the preferred language tag; "-" for both if there are not two.
- (void)setLocalLanguage;
/// Stores the application's bundle identifier.
- (void)setBundleIdentifier;
/// Stores the application's name; "(unknown)" if it is not configured.
- (void)setApplicationName;
/// Stores the runtime name, "tvos" on every system: servers identify the device family by it.
- (void)setRuntimeName;
/// Stores the hardware machine identifier.
- (void)setModelAndVersion;
/// Stores "1" if the integrity check finds the device modified, "0" otherwise.
- (void)setIsJailBroken;
/// Stores the application version shown to users. After an update it also stores the previous
/// version and the first visit with the new one.
- (void)initApplicationVersion:(nullable NSString*)time;

@end

NS_ASSUME_NONNULL_END
