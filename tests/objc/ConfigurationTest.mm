// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUser.h"
#import "jx/objc/JXClassRegistry.h"
#import "jx/objc/JXCoreConfiguration.h"
#import "jx/objc/JXLogger.h"
#import "jx/objc/JXStoredData.h"
#import "jx/objc/JXUser.h"
#import "tests/objc/NotificationTest.h"

/// Keeps the messages that it receives.
@interface RecordingDelegate : NSObject <IJXCoreConfigurationDelegate> {
 @public
  NSMutableArray* _messages;
  BOOL _raises;
}
@end

@implementation RecordingDelegate
- (id)init {
  self = [super init];
  if (self != nil) _messages = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [_messages release];
  [super dealloc];
}
- (void)logMessage:(NSString*)message withLevel:(int32_t)level {
  [_messages addObject:[NSString stringWithFormat:@"%d %@", level, message]];
  if (_raises) [NSException raise:NSGenericException format:@"full"];
}
- (void)onDelivery:(EJXDeliveryOutcome)outcome
           eventId:(NSString*)eventId
            status:(int32_t)status
            reason:(NSString*)reason
        dropReason:(EJXDropReason)dropReason {
  [_messages addObject:[NSString stringWithFormat:@"%d %@ %d %@ %d", outcome, eventId, status,
                                                  reason, dropReason]];
  if (_raises) [NSException raise:NSGenericException format:@"full"];
}
@end

/// Logs a message for each message.
@interface CallingDelegate : NSObject <IJXCoreConfigurationDelegate> {
 @public
  int _count;
}
@end

@implementation CallingDelegate
- (void)logMessage:(NSString*)message withLevel:(int32_t)level {
  ++_count;
  [[JXLogger sharedInstance] logMessage:message withLevel:level];
}
@end

namespace jx::objc {
namespace {

class ObjectiveCConfiguration : public test::NotificationTest {};

TEST_F(ObjectiveCConfiguration, AppliesEverySetting) {
  ::JXCoreConfiguration* const settings = make<::JXCoreConfiguration>();
  settings.storageFolder = @"/folder";
  settings.storesOnlyWithConsent = YES;
  settings.collectionHost = @"collect.example.com";
  settings.sendsQueueToCurrentHost = YES;
  settings.caFile = @"/ca.pem";
  settings.pinnedPublicKeys = [NSArray arrayWithObjects:@"k1", @"k2", nil];
  settings.proxy = @"";
  settings.logLevel = 5;
  settings.dryRun = YES;
  settings.userAgent = @"agent";
  settings.maxRequests = 7;
  settings.maxBytes = 8;
  settings.maxAge = 1.5;
  settings.maxDeadLetters = 9;
  settings.maxInMemory = 10;
  settings.initialBackoff = 0.25;
  settings.maxBackoff = 2;
  settings.maxRetryAfter = 3;
  settings.connectTimeout = 4;
  settings.requestTimeout = 5;
  settings.syncDelay = 6;
  settings.userAgentWait = 7;
  EXPECT_TRUE([::JXCoreConfiguration set:settings]);
  const jx::JXCoreConfiguration core = jx::JXCoreConfiguration::current();
  EXPECT_EQ(core.storageFolder, JXString("/folder"));
  EXPECT_TRUE(core.storesOnlyWithConsent);
  EXPECT_EQ(core.collectionHost, JXString("collect.example.com"));
  EXPECT_TRUE(core.sendsQueueToCurrentHost);
  EXPECT_EQ(core.caFile, JXString("/ca.pem"));
  EXPECT_EQ(core.pinnedPublicKeys, (std::vector<std::string>{"k1", "k2"}));
  EXPECT_EQ(core.proxy, JXString(""));
  EXPECT_EQ(core.logLevel, 5);
  EXPECT_TRUE(core.dryRun);
  EXPECT_EQ(core.userAgent, JXString("agent"));
  EXPECT_EQ(core.outboxBounds.maxRequests, 7u);
  EXPECT_EQ(core.outboxBounds.maxBytes, 8u);
  EXPECT_EQ(core.outboxBounds.maxAge.count(), 1'500);
  EXPECT_EQ(core.outboxBounds.maxDeadLetters, 9u);
  EXPECT_EQ(core.outboxBounds.maxInMemory, 10u);
  EXPECT_EQ(core.retryTimings.initialBackoff.count(), 250);
  EXPECT_EQ(core.retryTimings.maxBackoff.count(), 2'000);
  EXPECT_EQ(core.retryTimings.maxRetryAfter.count(), 3'000);
  EXPECT_EQ(core.retryTimings.connectTimeout.count(), 4'000);
  EXPECT_EQ(core.retryTimings.requestTimeout.count(), 5'000);
  EXPECT_EQ(core.retryTimings.syncDelay.count(), 6'000);
  EXPECT_EQ(core.retryTimings.userAgentWait.count(), 7'000);
}

TEST_F(ObjectiveCConfiguration, BeginsWithTheCurrentSettings) {
  ::JXCoreConfiguration* const settings = [[::JXCoreConfiguration alloc] autorelease];
  EXPECT_EQ(settings.collectionHost, nil);
  EXPECT_EQ(settings.logLevel, 3);
  EXPECT_FALSE(settings.dryRun);
  EXPECT_EQ(settings.maxRequests, 10'000u);
  EXPECT_EQ(settings.maxAge, 30 * 24 * 3'600);
  EXPECT_EQ(settings.initialBackoff, 1);
  EXPECT_EQ([settings.pinnedPublicKeys count], 0u);
  EXPECT_EQ(settings.delegate, nil);
}

TEST_F(ObjectiveCConfiguration, LimitsTimesThatAreNotUsable) {
  ::JXCoreConfiguration* const settings = make<::JXCoreConfiguration>();
  for (const double none : {-1.0, static_cast<double>(NAN), static_cast<double>(-INFINITY)}) {
    settings.maxAge = none;
    EXPECT_EQ(settings.maxAge, 0);
  }
  settings.maxAge = INFINITY;
  EXPECT_EQ(settings.maxAge, 1e9);
}

TEST_F(ObjectiveCConfiguration, ChangesNothingOnceTheLibraryHasStarted) {
  create();
  ::JXCoreConfiguration* const settings = make<::JXCoreConfiguration>();
  settings.collectionHost = @"other.example.com";
  EXPECT_FALSE([::JXCoreConfiguration set:settings]);
  EXPECT_FALSE([::JXCoreConfiguration set:nil]);
  EXPECT_FALSE([::JXCoreConfiguration set:static_cast<id>(@"a string")]);
  EXPECT_NE(jx::JXCoreConfiguration::current().collectionHost, JXString("other.example.com"));
}

TEST_F(ObjectiveCConfiguration, AKeyThatIsNotAStringDoesNotPermitEveryKey) {
  start();
  ::JXCoreConfiguration* const settings = make<::JXCoreConfiguration>();
  settings.pinnedPublicKeys = [NSArray arrayWithObject:static_cast<id>([NSNull null])];
  EXPECT_TRUE([settings.pinnedPublicKeys isEqual:[NSArray arrayWithObject:@""]]);
  EXPECT_EQ(linesUpTo(3).size(), 1u);
  settings.pinnedPublicKeys = [NSArray arrayWithObject:@"k1"];
  settings.pinnedPublicKeys = static_cast<id>(@"k2");
  EXPECT_TRUE([settings.pinnedPublicKeys isEqual:[NSArray arrayWithObject:@"k1"]]);
  EXPECT_EQ(linesUpTo(3).size(), 2u);
  settings.pinnedPublicKeys = nil;
  EXPECT_EQ([settings.pinnedPublicKeys count], 0u);
}

TEST_F(ObjectiveCConfiguration, PassesMessagesAndOutcomesToTheDelegate) {
  RecordingDelegate* const delegate = make<RecordingDelegate>();
  @autoreleasepool {
    ::JXCoreConfiguration* const settings = make<::JXCoreConfiguration>();
    settings.delegate = delegate;
    EXPECT_EQ(settings.delegate, delegate);
    EXPECT_TRUE([::JXCoreConfiguration set:settings]);
    EXPECT_EQ(make<::JXCoreConfiguration>().delegate, delegate);
  }
  const jx::JXCoreConfiguration core = jx::JXCoreConfiguration::current();
  core.logSink(3, "a message");
  core.onDelivery({jx::JXDeliveryOutcome::Rejected, "id1", 400, "bad", jx::JXDropReason::None});
  core.onDelivery(
      {jx::JXDeliveryOutcome::Delivered, nullptr, 200, nullptr, jx::JXDropReason::None});
  core.onDelivery({jx::JXDeliveryOutcome::Dropped, "id3", 0, "old", jx::JXDropReason::TooOld});
  EXPECT_TRUE([delegate->_messages
      isEqual:([NSArray arrayWithObjects:@"3 a message", @"1 id1 400 bad 0",
                                         @"0 (null) 200 (null) 0", @"2 id3 0 old 3", nil])]);
  delegate->_raises = YES;
  core.logSink(1, "another");
  EXPECT_EQ([delegate->_messages count], 5u);
  forgetLines();
  core.onDelivery({jx::JXDeliveryOutcome::Rejected, "id2", 400, "bad", jx::JXDropReason::None});
  EXPECT_TRUE([[delegate->_messages lastObject]
      isEqual:@"3 onDelivery:eventId:status:reason:dropReason: failed: full"]);
}

TEST_F(ObjectiveCConfiguration, ADelegateWithoutTheMethodsReceivesNothing) {
  ::JXCoreConfiguration* const settings = make<::JXCoreConfiguration>();
  settings.delegate = make<RecordingDelegate>();
  settings.delegate = static_cast<id>(make<NSObject>());
  [::JXCoreConfiguration set:settings];
  EXPECT_FALSE(jx::JXCoreConfiguration::current().logSink);
  EXPECT_FALSE(jx::JXCoreConfiguration::current().onDelivery);
}

TEST_F(ObjectiveCConfiguration, ErasesTheStoredData) {
  configuration.storageFolder = storage().path();
  create();
  ::JXUser* const user = [::JXUser sharedInstance];
  const std::string before = text(user.anonymous_id);
  EXPECT_EQ([[::JXStoredData eraseAll] count], 0u);
  EXPECT_NE(text(user.anonymous_id), before);
}

TEST_F(ObjectiveCConfiguration, RegistersModules) {
  start();
  ::JXClassRegistry* const registry = [::JXClassRegistry sharedInstance];
  EXPECT_FALSE([registry hasClass:@"AModule"]);
  [registry registerClass:@"AModule"];
  [registry registerClass:nil];
  EXPECT_TRUE([registry hasClass:@"AModule"]);
  EXPECT_TRUE(jx::JXClassRegistry::sharedInstance().hasClass("AModule"));
  [registry unregisterClass:@"AModule"];
  EXPECT_FALSE([registry hasClass:@"AModule"]);
  EXPECT_TRUE([registry hasClass:@"NSObject"]);
  EXPECT_FALSE([registry hasClass:nil]);
}

TEST_F(ObjectiveCConfiguration, NumbersDropReasonsAsCppDoes) {
  using Reason = jx::JXDropReason;
  const std::pair<int, Reason> reasons[] = {
      {::EJXDropReason_NONE, Reason::None},
      {::EJXDropReason_TOO_MANY, Reason::TooMany},
      {::EJXDropReason_TOO_LARGE, Reason::TooLarge},
      {::EJXDropReason_TOO_OLD, Reason::TooOld},
      {::EJXDropReason_NO_STORAGE, Reason::NoStorage},
      {::EJXDropReason_UNREADABLE, Reason::Unreadable},
      {::EJXDropReason_PURGED, Reason::Purged},
      {::EJXDropReason_OUT_OF_MEMORY, Reason::OutOfMemory},
  };
  for (const auto& [number, reason] : reasons)
    EXPECT_EQ(number, static_cast<int>(reason));
}

TEST_F(ObjectiveCConfiguration, TheReceiverOfMessagesMayCallTheLibrary) {
  CallingDelegate* const delegate = make<CallingDelegate>();
  ::JXCoreConfiguration* const settings = make<::JXCoreConfiguration>();
  settings.delegate = delegate;
  settings.dryRun = YES;
  settings.logLevel = 3;
  EXPECT_TRUE([::JXCoreConfiguration set:settings]);
  jx::JXLogger::sharedInstance().setSink(jx::JXCoreConfiguration::current().logSink);
  [[::JXLogger sharedInstance] logMessage:@"first" withLevel:3];
  EXPECT_EQ(delegate->_count, 1);
}

}  // namespace
}  // namespace jx::objc
