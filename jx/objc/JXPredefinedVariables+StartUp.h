// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXPredefinedVariables.h"

NS_ASSUME_NONNULL_BEGIN

/// The single steps of the start-up, of each event and of each transition. The library calls them;
/// applications need them only to repeat a step.
///
/// Times are decimal strings, in milliseconds since the Unix epoch. A string that is not a number
/// counts as the integer at its start, or as 0. With nil, a variable that contains the time itself
/// is removed.
@interface JXPredefinedVariables (StartUp)

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
