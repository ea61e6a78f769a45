// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObject.h"

NS_ASSUME_NONNULL_BEGIN

/// Outcome of one request.
typedef NS_ENUM(int32_t, EJXDeliveryOutcome) {
  /// The server accepted it.
  EJXDeliveryOutcome_DELIVERED JX_SWIFT_NAME("delivered") = 0,
  /// The server rejected it permanently.
  EJXDeliveryOutcome_REJECTED JX_SWIFT_NAME("rejected") = 1,
  /// It was not sent, because of a limit or a purge.
  EJXDeliveryOutcome_DROPPED JX_SWIFT_NAME("dropped") = 2,
};

/// Reason why a request left the queue without a response. The limits are those of
/// JXCoreConfiguration.
typedef NS_ENUM(int32_t, EJXDropReason) {
  /// It was not dropped.
  EJXDropReason_NONE JX_SWIFT_NAME("notDropped") = 0,
  /// The queue exceeded `maxRequests`; the oldest request is dropped.
  EJXDropReason_TOO_MANY JX_SWIFT_NAME("tooMany") = 1,
  /// The queue, or the request alone, exceeded `maxBytes`.
  EJXDropReason_TOO_LARGE JX_SWIFT_NAME("tooLarge") = 2,
  /// It exceeded `maxAge`.
  EJXDropReason_TOO_OLD JX_SWIFT_NAME("tooOld") = 3,
  /// It could not be stored, and `maxInMemory` left no room for it.
  EJXDropReason_NO_STORAGE JX_SWIFT_NAME("noStorage") = 4,
  /// Its stored bytes are damaged.
  EJXDropReason_UNREADABLE JX_SWIFT_NAME("unreadable") = 5,
  /// It was removed by a purge.
  EJXDropReason_PURGED JX_SWIFT_NAME("purged") = 6,
  /// Memory was exhausted before the event was stored.
  EJXDropReason_OUT_OF_MEMORY JX_SWIFT_NAME("outOfMemory") = 7,
};

/// Receives log messages and outcomes. Exceptions are caught; those of `onDelivery` are logged.
@protocol IJXCoreConfigurationDelegate <NSObject>
@optional
/// Called with each log message, which is then not written to standard error. Called on the thread
/// that logs, the transfer thread included; several threads may call it at once. It may call the
/// library; messages that it causes are discarded. It must not block, because an event waits for
/// it.
- (void)logMessage:(NSString*)message withLevel:(int32_t)level;
/// Called with the outcome of each request, once, on the transfer thread, after the request has
/// left the queue. `eventId` is nil when the body contains none, `status` is the HTTP status, 0
/// without a response, and `reason` is a text for a log, nil for a delivered request. It may call
/// any method of JXNetworkManager; `flush:` does not wait then.
- (void)onDelivery:(EJXDeliveryOutcome)outcome
           eventId:(nullable NSString*)eventId
            status:(int32_t)status
            reason:(nullable NSString*)reason
        dropReason:(EJXDropReason)dropReason;
@end

/// The configuration of the library. Change an object and apply it with `set:` before the first
/// ServerSide is created. An object belongs to one thread at a time. Times are in seconds; one that
/// is not a number counts as 0.
JX_OBJC_CLASS
@interface JXCoreConfiguration : JXObject {
 @private
  id _Nullable _delegate;
}

/// Creates an object with the current configuration.
- (instancetype)init;
/// Replaces the current configuration with a copy and returns YES. Once the library has started,
/// and for nil, changes nothing and returns NO.
+ (BOOL)set:(nullable JXCoreConfiguration*)configuration JX_SWIFT_NAME("set(_:)");

/// Folder of the event queue and of the persisted variables. Nil: the folder of the system.
@property(nonatomic, copy, nullable) NSString* storageFolder;
/// Server that receives the events: a host name with an optional port, such as
/// "collect.example.com:8443". Nil: the host that was given to the build.
@property(nonatomic, copy, nullable) NSString* collectionHost;
/// Path of a file of PEM certificates to trust instead of those of the system, which nil selects.
@property(nonatomic, copy, nullable) NSString* caFile;
/// URL of the HTTP proxy; "" uses no proxy, nil the environment variables.
@property(nonatomic, copy, nullable) NSString* proxy;
/// User agent string of the device block. Nil: that of the system.
@property(nonatomic, copy, nullable) NSString* userAgent;
/// Whether nothing is stored on the device, and no identifier created, until the viewer consents.
@property(nonatomic) BOOL storesOnlyWithConsent;
/// Whether the queued events of other hosts are sent to the collection host too.
@property(nonatomic) BOOL sendsQueueToCurrentHost;
/// Whether requests are neither stored nor sent. Observers of `kJXNotification_HTTPRequest` still
/// receive them.
@property(nonatomic) BOOL dryRun;
/// Public keys that the collection host may present: SHA-256 hashes in Base64. Empty: any key.
/// An element that is not a string is logged, and matches no key.
@property(nonatomic, copy, null_resettable) NSArray<NSString*>* pinnedPublicKeys;
/// Highest level that is logged, from 0 (nothing) to 6 (everything). Default: 3.
@property(nonatomic) int32_t logLevel;
/// Maximum number of queued requests; the oldest are dropped. Default: 10,000.
@property(nonatomic) uint64_t maxRequests;
/// Maximum size of the queue in bytes. Default: 32 MiB.
@property(nonatomic) uint64_t maxBytes;
/// Maximum number of requests that the server rejected and that are kept. Default: 1,000.
@property(nonatomic) uint64_t maxDeadLetters;
/// Maximum number of requests in memory while writes to the disk fail. Default: 1,000.
@property(nonatomic) uint64_t maxInMemory;
/// Maximum age of a queued request. Default: 30 days.
@property(nonatomic) NSTimeInterval maxAge;
/// Longest backoff after the first failed attempt. Default: 1 second.
@property(nonatomic) NSTimeInterval initialBackoff;
/// Longest backoff that the library chooses. Default: 5 minutes.
@property(nonatomic) NSTimeInterval maxBackoff;
/// Longest Retry-After of the server that is honoured. Default: 24 hours.
@property(nonatomic) NSTimeInterval maxRetryAfter;
/// Time limit for establishing a connection. Default: 10 seconds.
@property(nonatomic) NSTimeInterval connectTimeout;
/// Time limit for one attempt. Default: 30 seconds.
@property(nonatomic) NSTimeInterval requestTimeout;
/// Longest time between a write and its sync to the disk. Default: 1 second.
@property(nonatomic) NSTimeInterval syncDelay;
/// Longest pause while the system determines its user agent. Default: 10 seconds.
@property(nonatomic) NSTimeInterval userAgentWait;
/// Receives log messages and outcomes. It is retained, as long as the process runs once it is
/// applied.
@property(nonatomic, strong, nullable) id<IJXCoreConfigurationDelegate> delegate;

@end

NS_ASSUME_NONNULL_END
