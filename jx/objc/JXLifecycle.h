// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXAdditionalProperties.h"

NS_ASSUME_NONNULL_BEGIN

/// The lifecycle block of each event: visits, sessions, times. Every object of this class is the
/// one block of the process. `refreshContent`, `getJsonObject` and each event replace the values.
/// Thread-safe.
JX_OBJC_SENDABLE_CLASS
@interface JXLifecycle : JXAdditionalProperties

/// Returns the object of this process.
+ (JXLifecycle*)sharedInstance JX_SWIFT_NAME("shared()");
/// Copies the current variables to the properties.
- (void)refreshContent;
/// Returns a new dictionary with the current values: the additional properties, overridden by those
/// of the block.
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");

/// A random UUID, created for each session.
@property(nonatomic, copy, nullable) NSString* sessionID;
/// True for the first event of a session.
@property(nonatomic) BOOL isNewSession;
/// Time since the start of the visit, plus the usage time carried over from earlier processes, in
/// ms. A decimal string.
@property(nonatomic, copy, nullable) NSString* sessionDuration;
/// Start of the session, ms since the Unix epoch. A decimal string.
@property(nonatomic, copy, nullable) NSString* currentSession;
/// Number of visits, including the current one. A decimal string.
@property(nonatomic, copy, nullable) NSString* visitNumber;
/// Start of the visit, ms since the Unix epoch. A decimal string.
@property(nonatomic, copy, nullable) NSString* currentVisit;
/// First visit with this version of the application, ms since the Unix epoch. Nil if no process
/// has had a version. A decimal string.
@property(nonatomic, copy, nullable) NSString* currentVersionFirstVisit;
/// Number of sessions, including the current one. A decimal string.
@property(nonatomic, copy, nullable) NSString* sessionNumber;
/// First visit of the installation: ms since the Unix epoch during that visit, seconds in all
/// later visits. A decimal string.
@property(nonatomic, copy, nullable) NSString* firstVisit;
/// Start of the last session of the previous visit, ms since the Unix epoch. In seconds if that
/// session was the first one of the first visit. During the first visit: its own start, in ms. A
/// decimal string.
@property(nonatomic, copy, nullable) NSString* lastVisit;
/// Time of the previous event, ms since the Unix epoch. For the first event of a process this is
/// the last event of an earlier process, or the event's own time if there was none. A decimal
/// string.
@property(nonatomic, copy, nullable) NSString* lastCall;
/// Start of an earlier measured session, ms since the Unix epoch. The stored start becomes this
/// value when a process starts more than 30 minutes after it; "0" until then. Sessions that begin
/// on a return from the background do not change it. A decimal string.
@property(nonatomic, copy, nullable) NSString* lastSessionStart;
/// Last event of the previous session, ms since the Unix epoch. "0" in the first process of the
/// installation; nil in a later process if no earlier process executed an event. After a new
/// session in the background: the last event of this process, or its start if there was none. A
/// decimal string.
@property(nonatomic, copy, nullable) NSString* lastSessionLastHit;
/// Number of times that the application was in the foreground in this process, from 1. A decimal
/// string.
@property(nonatomic, copy, nullable) NSString* foregroundTransitions;
/// Time in the foreground in this process, ms. A decimal string.
@property(nonatomic, copy, nullable) NSString* foregroundTime;
/// Time in the background in this process, ms. A decimal string.
@property(nonatomic, copy, nullable) NSString* backgroundTime;
/// True for the first event of the process.
@property(nonatomic) BOOL firstExecute;
/// True if no earlier process of this installation has stored the first visit of a version.
@property(nonatomic) BOOL isFirstVisit;

@end

NS_ASSUME_NONNULL_END
