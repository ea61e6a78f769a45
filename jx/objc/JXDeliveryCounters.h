// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObject.h"

NS_ASSUME_NONNULL_BEGIN

/// Counters since the start of this process, and the state of the delivery, read at one moment. An
/// object does not change. The limits that the comments name are those of JXCoreConfiguration.
JX_OBJC_SENDABLE_CLASS
@interface JXDeliveryCounters : JXObject

/// Unavailable, because `-[JXNetworkManager counters]` creates the objects.
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

/// Requests accepted by the queue.
@property(nonatomic, readonly) uint64_t added;
/// Requests that received a 2xx response.
@property(nonatomic, readonly) uint64_t delivered;
/// Requests that were permanently rejected.
@property(nonatomic, readonly) uint64_t rejected;
/// Oldest requests dropped because of `maxRequests`.
@property(nonatomic, readonly) uint64_t droppedTooMany;
/// Requests dropped or not queued because of `maxBytes`.
@property(nonatomic, readonly) uint64_t droppedTooLarge;
/// Requests dropped because of `maxAge`.
@property(nonatomic, readonly) uint64_t droppedTooOld;
/// Requests dropped because of `maxInMemory`.
@property(nonatomic, readonly) uint64_t droppedNoStorage;
/// Requests whose stored bytes were damaged.
@property(nonatomic, readonly) uint64_t droppedUnreadable;
/// Events that were not queued because memory was exhausted.
@property(nonatomic, readonly) uint64_t droppedOutOfMemory;
/// Requests removed by `purge`.
@property(nonatomic, readonly) uint64_t purged;
/// Failed writes, reads and syncs.
@property(nonatomic, readonly) uint64_t storageErrors;
/// Files of which a part was quarantined.
@property(nonatomic, readonly) uint64_t damaged;
/// Quarantined files deleted because of their number, size or age.
@property(nonatomic, readonly) uint64_t quarantinedDeleted;
/// Requests queued now, in flight ones included, dead letters not.
@property(nonatomic, readonly) uint64_t queued;
/// Sum of the bodies and URLs of the queued requests, in bytes.
@property(nonatomic, readonly) uint64_t queuedBytes;
/// Queued requests that are not stored on disk yet.
@property(nonatomic, readonly) uint64_t inMemory;
/// Attempts started.
@property(nonatomic, readonly) uint64_t attempts;
/// Attempts that ended without a final response.
@property(nonatomic, readonly) uint64_t failures;
/// Whether a stop, a start as disabled, the background or the user agent holds requests.
@property(nonatomic, readonly) BOOL paused;

@end

NS_ASSUME_NONNULL_END
