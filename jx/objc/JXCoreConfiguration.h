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

/// Receives log messages and outcomes, on any thread. An exception is ignored.
@protocol IJXCoreConfigurationDelegate <NSObject>
@optional
/// Called with each log message, which is then not written to standard error. It must not call the
/// library.
- (void)logMessage:(NSString*)message withLevel:(int32_t)level;
/// Called with the outcome of each request. `eventId` is nil when the body contains none, `status`
/// is the HTTP status, 0 without a response, and `reason` is nil for a delivered request.
- (void)onDelivery:(EJXDeliveryOutcome)outcome
           eventId:(nullable NSString*)eventId
            status:(int32_t)status
            reason:(nullable NSString*)reason;
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
