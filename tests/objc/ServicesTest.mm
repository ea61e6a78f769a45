// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreVariables.h"
#include "jx/core/transfer/JXNetworkManager.h"
#import "jx/objc/JXCoreVariables.h"
#import "jx/objc/JXLogger.h"
#import "jx/objc/JXNetworkManager.h"
#import "jx/objc/JXState.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "tests/objc/NotificationTest.h"

/// Keeps the application objects of the transitions.
@interface RecordingState : JXState {
 @public
  NSMutableArray* _entered;
  BOOL _raises;
}
@end

@implementation RecordingState
- (instancetype)init {
  self = [super init];
  if (self != nil) _entered = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [_entered release];
  [super dealloc];
}
- (void)didEnterBackground:(id)application {
  if (_raises) [NSException raise:NSGenericException format:@"no screen"];
  [_entered addObject:@"background"];
  if (application != nil) [_entered addObject:application];
}
- (void)willEnterForeground:(id)application {
  [_entered addObject:@"foreground"];
  if (application != nil) [_entered addObject:application];
}
@end

namespace jx::objc {
namespace {

class ObjectiveCServices : public test::NotificationTest {};

TEST_F(ObjectiveCServices, LogsMessages) {
  configuration.logLevel = 3;
  start();
  ::JXLogger* const logger = [::JXLogger sharedInstance];
  EXPECT_EQ(logger, [::JXLogger sharedInstance]);
  [logger logMessage:@"shown" withLevel:3];
  [logger logMessage:@"too detailed" withLevel:4];
  [logger logMessage:nil withLevel:1];
  EXPECT_EQ(lines(), (std::vector<test::LogLine>{{3, "shown"}}));
  [logger setMaxLevel:4];
  [logger logMessage:@"detailed" withLevel:4];
  EXPECT_EQ(count({4, "detailed"}), 1u);
  EXPECT_TRUE([logger printsLevel:4]);
  EXPECT_FALSE([logger printsLevel:5]);
  [logger logMessage:static_cast<id>(decimal(@"1")) withLevel:1];
  EXPECT_EQ(linesUpTo(3).size(), 2u);
}

TEST_F(ObjectiveCServices, SharesTheVariables) {
  start();
  ::JXCoreVariables* const variables = [::JXCoreVariables sharedInstance];
  [variables addData:@"a" withValue:@"x"];
  EXPECT_EQ(text([variables getData:@"a"]), "x");
  EXPECT_EQ(jx::JXCoreVariables::sharedInstance().getData("a"), JXString("x"));
  EXPECT_EQ(text([variables.dynamicStore getData:@"a"]), "x");
  [variables addData:@"a" withValue:static_cast<id>(decimal(@"1"))];
  EXPECT_EQ(text([variables getData:@"a"]), "x");
  [variables addData:@"a" withValue:nil];
  EXPECT_EQ([variables getData:@"a"], nil);
  EXPECT_EQ([variables getData:nil], nil);
}

TEST_F(ObjectiveCServices, ReturnsTheTimeOfTheConfiguredClock) {
  clock->set(1'700'000'000'987);
  start();
  ::JXCoreVariables* const variables = [::JXCoreVariables sharedInstance];
  EXPECT_EQ([variables nowMs], 1'700'000'000'987);
  EXPECT_EQ(text([variables nowMsString]), "1700000000987");
  EXPECT_EQ(text([variables nowString]), "1700000000");
  EXPECT_NEAR([[variables now] timeIntervalSince1970], 1'700'000'000.987, 0.000'5);
  EXPECT_NEAR([[[::JXState sharedInstance] date] timeIntervalSince1970], 1'700'000'000.987,
              0.000'5);
}

TEST_F(ObjectiveCServices, StoresTheVendorIdentifierAndTheBackgroundMode) {
  start();
  ::JXCoreVariables* const variables = [::JXCoreVariables sharedInstance];
  EXPECT_FALSE(variables.enableSDKInBG);
  variables.enableSDKInBG = YES;
  EXPECT_TRUE(jx::JXCoreVariables::sharedInstance().enableSDKInBG());
  [variables setIDFV];
  EXPECT_EQ(JXString(text([variables getData:@"#JX_IDFV#"])), platform->vendorIdentifier());
}

TEST_F(ObjectiveCServices, ControlsTheNetworkManager) {
  start();
  ::JXNetworkManager* const manager = [::JXNetworkManager sharedInstance];
  [manager setManagerState:2];
  EXPECT_EQ(jx::JXNetworkManager::sharedInstance().managerState(), 2);
  [manager setManagerState:7];
  EXPECT_EQ(jx::JXNetworkManager::sharedInstance().managerState(), 0);
  EXPECT_EQ([manager managerState], 0);
  [manager changingSDKBehaviour:NO];
  [manager changingSDKBehaviour:YES];
  [manager enableRunningInBackground];
  EXPECT_TRUE([manager flush:0]);
  EXPECT_TRUE([manager flush:-1]);
  EXPECT_TRUE([manager flush:NAN]);
  EXPECT_TRUE([manager flush:INFINITY]);
}

TEST_F(ObjectiveCServices, PurgesTheQueue) {
  queueForReal();
  ::ServerSide* const serverSide = create();
  executeQuiz(serverSide);
  ::JXNetworkManager* const manager = [::JXNetworkManager sharedInstance];
  EXPECT_FALSE([manager flush:0]);
  [manager purge];
  EXPECT_TRUE([manager flush:0]);
}

TEST_F(ObjectiveCServices, CountsRequests) {
  queueForReal();
  ::ServerSide* const serverSide = create();
  ::JXNetworkManager* const manager = [::JXNetworkManager sharedInstance];
  ::JXDeliveryCounters* const before = [manager counters];
  executeQuiz(serverSide);
  EXPECT_EQ([manager counters].added, 1u);
  EXPECT_EQ([manager counters].queued, 1u);
  EXPECT_GT([manager counters].queuedBytes, 0u);
  [manager purge];
  EXPECT_EQ([manager counters].purged, 1u);
  EXPECT_EQ([manager counters].queued, 0u);
  EXPECT_EQ(before.added, 0u) << "read at one moment";
}

TEST_F(ObjectiveCServices, ReturnsEachCounter) {
  const auto core = std::make_shared<jx::JXDeliveryCounters>();
  jx::JXOutboxCounters& outbox = core->outbox;
  outbox.added = 1;
  outbox.delivered = 2;
  outbox.rejected = 3;
  outbox.droppedTooMany = 4;
  outbox.droppedTooLarge = 5;
  outbox.droppedTooOld = 6;
  outbox.droppedNoStorage = 7;
  outbox.droppedUnreadable = 8;
  outbox.droppedOutOfMemory = 9;
  outbox.purged = 10;
  outbox.storageErrors = 11;
  outbox.damaged = 12;
  outbox.quarantinedDeleted = 13;
  outbox.queued = 14;
  outbox.queuedBytes = 15;
  outbox.inMemory = 16;
  core->attempts = 17;
  core->failures = 18;
  core->paused = true;
  ::JXDeliveryCounters* const counters =
      [[[::JXDeliveryCounters alloc] jx_initWithHeldCore:core] autorelease];
  NSArray* const names = [@"added delivered rejected droppedTooMany droppedTooLarge droppedTooOld "
                          @"droppedNoStorage droppedUnreadable droppedOutOfMemory purged "
                          @"storageErrors damaged quarantinedDeleted queued queuedBytes inMemory "
                          @"attempts failures" componentsSeparatedByString:@" "];
  unsigned expected = 0;
  for (NSString* name in names)
    EXPECT_EQ([[counters valueForKey:name] unsignedIntValue], ++expected) << text(name);
  EXPECT_EQ(expected, 18u);
  EXPECT_TRUE(counters.paused);
  EXPECT_EQ([[::JXDeliveryCounters alloc] autorelease].added, 0u);
}

TEST_F(ObjectiveCServices, HoldsRequestsInTheBackgroundUnlessItIsAllowed) {
  queueForReal();
  create();
  ::JXNetworkManager* const manager = [::JXNetworkManager sharedInstance];
  [[::JXState sharedInstance] applicationDidEnterBackground:nil];
  EXPECT_TRUE([manager counters].paused);
  [manager setRunningInBackground:YES];
  EXPECT_FALSE([manager counters].paused);
  [manager setRunningInBackground:NO];
  EXPECT_TRUE([manager counters].paused);
}

TEST_F(ObjectiveCServices, ReturnsTheStateThatAServerSideSets) {
  create(nil, ::EJXDefaultBehaviour_ALWAYS_ENABLED);
  EXPECT_EQ([[::JXNetworkManager sharedInstance] managerState], 1);
}

TEST_F(ObjectiveCServices, PassesTheApplicationObjectToTheHooks) {
  start();
  RecordingState* const state = make<RecordingState>();
  [defaultCenter() postNotificationName:@"UIApplicationDidEnterBackgroundNotification"
                                 object:@"the application"];
  [defaultCenter() postNotificationName:@"UIApplicationWillEnterForegroundNotification"
                                 object:@"the application"];
  EXPECT_TRUE([state->_entered
      isEqual:([NSArray arrayWithObjects:@"background", @"the application", @"foreground",
                                         @"the application", nil])]);
}

TEST_F(ObjectiveCServices, AnExceptionOfAHookIsLogged) {
  create();
  RecordingState* const state = make<RecordingState>();
  state->_raises = YES;
  NotificationRecorder* const observer = recorder(::kJXNotification_OnBackground);
  [state applicationDidEnterBackground:nil];
  EXPECT_EQ([observer->_received count], 1u) << "the library is notified";
  [defaultCenter() postNotificationName:@"UIApplicationDidEnterBackgroundNotification" object:nil];
  EXPECT_EQ(count({3, "Observer of \"UIApplicationDidEnterBackgroundNotification\" threw an "
                      "exception: no screen; ignored"}),
            2u);
}

TEST_F(ObjectiveCServices, AStateThatIsReleasedObservesNothing) {
  start();
  @autoreleasepool {
    make<RecordingState>();
  }
  [defaultCenter() postNotificationName:@"UIApplicationDidEnterBackgroundNotification" object:nil];
  EXPECT_TRUE(linesUpTo(3).empty());
}

TEST_F(ObjectiveCServices, PostsTransitionsWithTheStateAsTheirObject) {
  create();
  NotificationRecorder* const observer = recorder(::kJXNotification_OnBackground);
  [observer observe: ::kJXNotification_OnForeground on:defaultCenter()];
  RecordingState* const state = make<RecordingState>();
  [state applicationDidEnterBackground:[NSNotification notificationWithName:@"any"
                                                                     object:@"the application"]];
  [state applicationWillEnterForeground:nil];
  ASSERT_EQ([observer->_received count], 2u);
  EXPECT_EQ([observer count: ::kJXNotification_OnBackground], 1u);
  EXPECT_EQ([[observer->_received objectAtIndex:0] object], [::JXState sharedInstance]);
  EXPECT_TRUE([state->_entered
      isEqual:([NSArray arrayWithObjects:@"background", @"the application", @"foreground", nil])]);
}

TEST_F(ObjectiveCServices, MovesTheTransitionsToAnotherCenter) {
  create();
  ::JXState* const state = [::JXState sharedInstance];
  NSNotificationCenter* const center = make<NSNotificationCenter>();
  NotificationRecorder* const own = recorder(::kJXNotification_OnBackground, center);
  [state changeNotificationCenter:center];
  [state applicationDidEnterBackground:nil];
  EXPECT_EQ([own->_received count], 1u);
  EXPECT_TRUE([state.senderDelegate isEqual:state.senderDelegate]);
  state.senderDelegate = nil;
  EXPECT_EQ(state.senderDelegate, nil);
  [state applicationDidEnterBackground:nil];
  EXPECT_EQ([own->_received count], 1u);
  [center removeObserver:own];
}

}  // namespace
}  // namespace jx::objc
