// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXDeliveryCounters.h"
#import "JXSingleton.h"

NS_ASSUME_NONNULL_BEGIN

/// Sends the queued events. Thread-safe; no operation throws.
JX_OBJC_SENDABLE_CLASS
@interface JXNetworkManager : JXSingleton

/// Returns the object of this process.
+ (JXNetworkManager*)sharedInstance JX_SWIFT_NAME("shared()");

/// Sets the manager state, for an application without a ServerSide. 0: not set, requests are sent.
/// 1: always enabled, stop requests are ignored. 2: disabled by default, requests are held until an
/// enabling. Other values count as 0.
- (void)setManagerState:(int32_t)state;
/// Returns the state set last, by `setManagerState:` or by a ServerSide at its start (1: always
/// enabled, 2: disabled by default); initially 0.
- (int32_t)managerState;
/// Enables sending, or stops it, for every ServerSide that is not always enabled.
- (void)changingSDKBehaviour:(BOOL)enabled;
/// Pauses delivery until the user agent is known, for 10 seconds at most.
- (void)waitForUserAgent;
/// Allows delivery while the application is in the background.
- (void)enableRunningInBackground;
/// Sets whether events are sent while the application is in the background; initially NO.
- (void)setRunningInBackground:(BOOL)enabled;
/// Waits until the queue is empty, for `seconds` at most; returns whether it is empty. Blocks the
/// calling thread: do not call it on the main thread.
- (BOOL)flush:(NSTimeInterval)seconds JX_REFINED_FOR_SWIFT;
/// Deletes all queued requests and dead letters; requests in flight are aborted.
- (void)purge;
/// Returns all counters, read at one moment.
- (JXDeliveryCounters*)counters;

@end

NS_ASSUME_NONNULL_END
