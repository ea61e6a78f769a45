// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXCoreConfiguration.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXLogger.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXCoreConfiguration;
using namespace jx::objc;

namespace {

constexpr double kLongestSeconds = 1e9;  // 31 years, beyond each limit

std::chrono::milliseconds millisecondsOf(NSTimeInterval seconds) {
  // A value that is not a number is not positive either.
  const double limited = seconds > 0 ? std::min(seconds, kLongestSeconds) : 0;
  return std::chrono::milliseconds(std::llround(limited * 1'000));
}

NSTimeInterval secondsOf(std::chrono::milliseconds time) {
  return static_cast<NSTimeInterval>(time.count()) / 1'000;
}

// Shared by the functions of a configuration.
struct Delegate {
  explicit Delegate(id delegate) : object(JX_RETAIN(delegate)) {}
  ~Delegate() { JX_RELEASE(object); }
  Delegate(const Delegate&) = delete;
  Delegate& operator=(const Delegate&) = delete;

  const id<IJXCoreConfigurationDelegate> object;
};

void logTo(const Delegate& delegate, int level, std::string_view message) {
  @autoreleasepool {
    @try {
      [delegate.object logMessage:toFoundation(jx::JXString(message)) withLevel:level];
    } @catch (id thrown) {
      static_cast<void>(thrown);  // It cannot be logged.
    }
  }
}

void report(const Delegate& delegate, const jx::JXDelivery& delivery) {
  @autoreleasepool {
    @try {
      [delegate.object onDelivery:static_cast<EJXDeliveryOutcome>(delivery.outcome)
                          eventId:toFoundation(delivery.eventId)
                           status:delivery.status
                           reason:toFoundation(delivery.reason)
                       dropReason:static_cast<EJXDropReason>(delivery.dropReason)];
    } @catch (id thrown) {
      jx::JXLogger::sharedInstance().logMessage_withLevel(
          "onDelivery:eventId:status:reason:dropReason: failed: " + reasonOf(thrown), 3);
    }
  }
}

}  // namespace

#define JX_SETTING(Type, name, setter, field, fromCore, toCore) \
  -(Type)name {                                                 \
    return fromCore(heldCore<Core>(self)->field);               \
  }                                                             \
  -(void)setter : (Type)value {                                 \
    heldCore<Core>(self)->field = toCore(value);                \
  }

#define JX_STRING_SETTING(name, setter)                    \
  -(NSString*)name {                                       \
    return toFoundation(heldCore<Core>(self)->name);       \
  }                                                        \
  -(void)setter : (NSString*)value {                       \
    constexpr char place[] = "JXCoreConfiguration." #name; \
    if (!isNilOr([NSString class], value, place)) return;  \
    heldCore<Core>(self)->name = toString(value, place);   \
  }

// The delegate of the current configuration, whose functions new objects copy.
static id currentDelegate = nil;

@implementation JXCoreConfiguration

- (instancetype)init {
  self = [super init];
  if (self == nil) return nil;
  @synchronized([JXCoreConfiguration class]) {
    _delegate = JX_RETAIN(currentDelegate);
  }
  return self;
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  return std::make_shared<Core>(Core::current());
}

- (void)dealloc {
  JX_RELEASE(_delegate);
  JX_SUPER_DEALLOC();
}

+ (BOOL)set:(JXCoreConfiguration*)configuration {
  if (!isOf([JXCoreConfiguration class], configuration, "JXCoreConfiguration.set:")) return NO;
  @synchronized([JXCoreConfiguration class]) {
    if (!Core::set(*heldCore<Core>(configuration))) return NO;
    JX_RELEASE(currentDelegate);
    currentDelegate = JX_RETAIN([configuration delegate]);
  }
  return YES;
}

- (NSArray*)pinnedPublicKeys {
  NSMutableArray* const keys = [NSMutableArray array];
  for (const std::string& key : heldCore<Core>(self)->pinnedPublicKeys)
    [keys addObject:toFoundation(jx::JXString(key))];
  return keys;
}

- (void)setPinnedPublicKeys:(NSArray*)value {
  if (!isNilOr([NSArray class], value, "JXCoreConfiguration.pinnedPublicKeys")) return;
  std::vector<std::string> keys;
  // An element that is not a string is kept as a key that matches none: without it, the list could
  // be empty, which permits every key.
  for (id key in value)
    keys.push_back(toString(key, "JXCoreConfiguration.pinnedPublicKeys").toStdString());
  heldCore<Core>(self)->pinnedPublicKeys = std::move(keys);
}

- (id<IJXCoreConfigurationDelegate>)delegate {
  return _delegate;
}

- (void)setDelegate:(id<IJXCoreConfigurationDelegate>)value {
  const auto shared = std::make_shared<Delegate>(value);
  JX_RELEASE(_delegate);
  _delegate = JX_RETAIN(value);
  const std::shared_ptr<Core> core = heldCore<Core>(self);
  core->logSink = nullptr;
  core->onDelivery = nullptr;
  if ([value respondsToSelector:@selector(logMessage:withLevel:)]) {
    core->logSink = [shared](int level, std::string_view message) {
      logTo(*shared, level, message);
    };
  }
  if ([value respondsToSelector:@selector(onDelivery:eventId:status:reason:dropReason:)]) {
    core->onDelivery = [shared](const jx::JXDelivery& delivery) { report(*shared, delivery); };
  }
}

JX_STRING_SETTING(storageFolder, setStorageFolder)
JX_STRING_SETTING(collectionHost, setCollectionHost)
JX_STRING_SETTING(caFile, setCaFile)
JX_STRING_SETTING(proxy, setProxy)
JX_STRING_SETTING(userAgent, setUserAgent)
JX_SETTING(BOOL, storesOnlyWithConsent, setStoresOnlyWithConsent, storesOnlyWithConsent,
           static_cast<BOOL>, static_cast<bool>)
JX_SETTING(BOOL, sendsQueueToCurrentHost, setSendsQueueToCurrentHost, sendsQueueToCurrentHost,
           static_cast<BOOL>, static_cast<bool>)
JX_SETTING(BOOL, dryRun, setDryRun, dryRun, static_cast<BOOL>, static_cast<bool>)
JX_SETTING(int32_t, logLevel, setLogLevel, logLevel, static_cast<int32_t>, static_cast<int>)
JX_SETTING(uint64_t, maxRequests, setMaxRequests, outboxBounds.maxRequests, static_cast<uint64_t>,
           static_cast<std::size_t>)
JX_SETTING(uint64_t, maxBytes, setMaxBytes, outboxBounds.maxBytes, static_cast<uint64_t>,
           static_cast<std::uint64_t>)
JX_SETTING(uint64_t, maxDeadLetters, setMaxDeadLetters, outboxBounds.maxDeadLetters,
           static_cast<uint64_t>, static_cast<std::size_t>)
JX_SETTING(uint64_t, maxInMemory, setMaxInMemory, outboxBounds.maxInMemory, static_cast<uint64_t>,
           static_cast<std::size_t>)
JX_SETTING(NSTimeInterval, maxAge, setMaxAge, outboxBounds.maxAge, secondsOf, millisecondsOf)
JX_SETTING(NSTimeInterval, initialBackoff, setInitialBackoff, retryTimings.initialBackoff,
           secondsOf, millisecondsOf)
JX_SETTING(NSTimeInterval, maxBackoff, setMaxBackoff, retryTimings.maxBackoff, secondsOf,
           millisecondsOf)
JX_SETTING(NSTimeInterval, maxRetryAfter, setMaxRetryAfter, retryTimings.maxRetryAfter, secondsOf,
           millisecondsOf)
JX_SETTING(NSTimeInterval, connectTimeout, setConnectTimeout, retryTimings.connectTimeout,
           secondsOf, millisecondsOf)
JX_SETTING(NSTimeInterval, requestTimeout, setRequestTimeout, retryTimings.requestTimeout,
           secondsOf, millisecondsOf)
JX_SETTING(NSTimeInterval, syncDelay, setSyncDelay, retryTimings.syncDelay, secondsOf,
           millisecondsOf)
JX_SETTING(NSTimeInterval, userAgentWait, setUserAgentWait, retryTimings.userAgentWait, secondsOf,
           millisecondsOf)

@end
