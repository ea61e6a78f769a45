// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/ServerSide.h"

#include <objc/runtime.h>

#import "jx/objc/IJXFirebaseInstance.h"
#import "jx/objc/JXCoreConfiguration.h"
#import "jx/objc/JXCustomEvent.h"
#import "jx/objc/JXItem.h"
#import "jx/objc/JXPurchaseEvent.h"
#import "jx/objc/JXServerSideInitialisation.h"
#import "tests/objc/ObjectiveCTest.h"

/// Records what is mirrored to it.
@interface RecordingAnalytics : NSObject <IJXFirebaseInstance> {
  NSMutableArray* _calls;
}
@property(nonatomic, readonly) NSMutableArray* calls;
@end

@implementation RecordingAnalytics
@synthesize calls = _calls;
- (id)init {
  self = [super init];
  if (self != nil) _calls = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [_calls release];
  [super dealloc];
}
- (void)logEventWithName:(NSString*)name parameters:(NSDictionary*)parameters {
  [_calls addObject:[NSArray arrayWithObjects:name, parameters, nil]];
}
- (void)setDefaultEventParameters:(NSString*)name parameters:(NSString*)value {
  [_calls addObject:[NSArray arrayWithObjects:name, value, nil]];
}
@end

@interface FailingAnalytics : NSObject
- (void)logEventWithName:(NSString*)name parameters:(NSDictionary*)parameters;
@end

@implementation FailingAnalytics
- (void)logEventWithName:(NSString*)name parameters:(NSDictionary*)parameters {
  static_cast<void>(name);
  static_cast<void>(parameters);
  [NSException raise:NSGenericException format:@"not configured"];
}
@end

/// An event of an application, with a field of its own.
@interface QuizEvent : JXEvent {
  NSNumber* _score;
}
@property(nonatomic, copy) NSNumber* score;
@end

@implementation QuizEvent
@synthesize score = _score;
- (instancetype)init {
  self = [super init];
  if (self != nil) self.name = @"quiz";
  return self;
}
- (void)dealloc {
  [_score release];
  [super dealloc];
}
- (NSMutableDictionary*)getJsonObject {
  NSMutableDictionary* const object = [super getJsonObject];
  if (_score != nil) [object setObject:_score forKey:@"score"];
  return object;
}
@end

/// Passes its messages on to another object.
@interface ForwardingAnalytics : NSProxy {
 @public
  id _target;
}
@end

@implementation ForwardingAnalytics
- (BOOL)respondsToSelector:(SEL)selector {
  return [_target respondsToSelector:selector];
}
- (NSMethodSignature*)methodSignatureForSelector:(SEL)selector {
  return [_target methodSignatureForSelector:selector];
}
- (void)forwardInvocation:(NSInvocation*)invocation {
  [invocation invokeWithTarget:_target];
}
@end

@interface AnalyticsWithOtherParameters : NSObject
- (void)logEventWithName:(int)name parameters:(NSDictionary*)parameters;
@end

@implementation AnalyticsWithOtherParameters
- (void)logEventWithName:(int)name parameters:(NSDictionary*)parameters {
  static_cast<void>(name);
  static_cast<void>(parameters);
  FAIL() << "called with a wrong type";
}
@end

@interface ChapterItem : JXItem
@end

@implementation ChapterItem
- (NSMutableDictionary*)getJsonObject {
  NSMutableDictionary* const object = [super getJsonObject];
  [object setObject:[NSNumber numberWithInt:3] forKey:@"chapter"];
  return object;
}
@end

@interface EventWithoutJson : JXEvent
@end

@implementation EventWithoutJson
- (NSMutableDictionary*)getJsonObject {
  return nil;
}
@end

@interface EventWithTextAsJson : JXEvent
@end

@implementation EventWithTextAsJson
- (NSMutableDictionary*)getJsonObject {
  return static_cast<id>(@"a string");
}
@end

@interface EventWithoutAName : JXEvent
@end

@implementation EventWithoutAName
- (NSString*)name {
  @throw @"no name";
}
- (NSMutableDictionary*)getJsonObject {
  @throw @"no fields";
}
@end

@interface FailingEvent : JXEvent
@end

@implementation FailingEvent
- (NSMutableDictionary*)getJsonObject {
  [NSException raise:NSGenericException format:@"no score"];
  return nil;
}
@end

namespace jx::objc {
namespace {

class ObjectiveCServerSide : public test::ObjectiveCTest {
 protected:
  ::ServerSide* create(id firebase = nil) {
    start();
    return [[[::ServerSide alloc] initWithSiteID:1234
                                    andSourceKey:@"key"
                             andFirebaseInstance:firebase] autorelease];
  }
  template <typename Event>
  static Event* make() {
    return [[[Event alloc] init] autorelease];
  }
};

TEST_F(ObjectiveCServerSide, StartsTheLibraryAndSendsAnEvent) {
  ::ServerSide* const serverSide = create();
  EXPECT_EQ(serverSide.siteID, 1234);
  EXPECT_EQ(serverSide.serverSideState, EJXServerSideState_ENABLED);
  EXPECT_NE(text(serverSide.url).find("/events?jx_s=1234&token=key"), std::string::npos);
  ::JXPurchaseEvent* const event = make<::JXPurchaseEvent>();
  event.revenue = decimal(@"12.5");
  [serverSide execute:event];
  ASSERT_EQ(requests().size(), 1u);
  const JXJsonObject body = requests()[0].body;
  EXPECT_EQ(body.get("event_name").string(), JXString("purchase"));
  EXPECT_EQ(body.get("revenue").numberString(), JXString("12.5"));
}

TEST_F(ObjectiveCServerSide, AnObjectWithoutAnInitialiserIsLikeThatOfInit) {
  ::ServerSide* const serverSide = [[::ServerSide alloc] autorelease];
  EXPECT_EQ(serverSide.siteID, 0);
  EXPECT_EQ(serverSide.serverSideState, EJXServerSideState_ENABLED);
  [serverSide addPermanentData:@"plan" withValue:@"gold"];
  EXPECT_EQ(text([serverSide getPermanentData:@"plan"]), "gold");
}

TEST_F(ObjectiveCServerSide, AnObjectWithoutAnInitialiserEndsWithoutAStart) {
  [[::ServerSide alloc] release];
  // A configuration can be set until the library has started.
  EXPECT_TRUE([::JXCoreConfiguration set:[[[::JXCoreConfiguration alloc] init] autorelease]]);
}

TEST_F(ObjectiveCServerSide, LogsAndIgnoresWhatIsNoEvent) {
  ::ServerSide* const serverSide = create();
  forgetLines();
  [serverSide execute:nil];
  [serverSide execute:static_cast<id>(@"a string")];
  EXPECT_TRUE(requests().empty());
  EXPECT_EQ(linesUpTo(3).size(), 2u);
}

TEST_F(ObjectiveCServerSide, SendsTheFieldsOfAClassOfTheApplication) {
  ::ServerSide* const serverSide = create();
  [serverSide addPermanentData:@"screen" withValue:@"living room"];
  QuizEvent* const event = make<QuizEvent>();
  event.score = [NSNumber numberWithInt:7];
  [serverSide execute:event];
  ASSERT_EQ(requests().size(), 1u);
  const JXJsonObject body = requests()[0].body;
  EXPECT_EQ(body.get("event_name").string(), JXString("quiz"));
  EXPECT_EQ(body.get("score").numberString(), JXString("7"));
  EXPECT_EQ(body.get("screen").string(), JXString("living room"));
  EXPECT_TRUE(body.get("context").object().contains("device"));
}

TEST_F(ObjectiveCServerSide, AnEventWhoseJsonFailsIsSentWithItsInheritedFields) {
  ::ServerSide* const serverSide = create();
  forgetLines();
  FailingEvent* const event = make<FailingEvent>();
  event.name = @"quiz";
  [serverSide execute:event];
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_EQ(requests()[0].body.get("event_name").string(), JXString("quiz"));
  EXPECT_EQ(count({3, "getJsonObject of FailingEvent failed: no score"}), 1u);
}

TEST_F(ObjectiveCServerSide, SendsTheFieldsOfAnItemOfTheApplication) {
  ::ServerSide* const serverSide = create();
  [serverSide addPermanentData:@"plan" withValue:@"gold"];
  ::JXPurchaseEvent* const event = make<::JXPurchaseEvent>();
  event.revenue = decimal(@"12.5");
  [event.items addObject:make<::JXItem>()];
  [event.items addObject:make<ChapterItem>()];
  [serverSide execute:event];
  ASSERT_EQ(requests().size(), 1u);
  const JXJsonObject body = requests()[0].body;
  EXPECT_EQ(body.get("event_name").string(), JXString("purchase"));
  EXPECT_EQ(body.get("revenue").numberString(), JXString("12.5"));
  EXPECT_EQ(body.get("plan").string(), JXString("gold"));
  const JXJsonArray items = body.get("items").array();
  ASSERT_EQ(items.size(), 2u);
  EXPECT_FALSE(items.at(0).object().contains("chapter"));
  EXPECT_EQ(items.at(1).object().get("chapter").numberString(), JXString("3"));
}

TEST_F(ObjectiveCServerSide, AnEventWithoutJsonIsSentWithItsInheritedFields) {
  ::ServerSide* const serverSide = create();
  forgetLines();
  EventWithoutJson* const event = make<EventWithoutJson>();
  event.name = @"quiz";
  [serverSide execute:event];
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_EQ(requests()[0].body.get("event_name").string(), JXString("quiz"));
  EXPECT_EQ(count({3, "getJsonObject of EventWithoutJson failed: it returned no dictionary"}), 1u);
}

TEST_F(ObjectiveCServerSide, AnEventWhoseJsonIsNoDictionaryIsLoggedOnce) {
  ::ServerSide* const serverSide = create();
  EventWithTextAsJson* const event = make<EventWithTextAsJson>();
  event.name = @"quiz";
  forgetLines();
  [serverSide execute:event];
  EXPECT_EQ(requests().back().body.get("event_name").string(), JXString("quiz"));
  ASSERT_EQ(linesUpTo(3).size(), 1u);
  EXPECT_EQ(linesUpTo(3)[0].message,
            "getJsonObject of EventWithTextAsJson failed: it returned no dictionary");
}

TEST_F(ObjectiveCServerSide, WhatAnEventThrowsIsLogged) {
  ::ServerSide* const serverSide = create();
  forgetLines();
  [serverSide execute:make<EventWithoutAName>()];
  EXPECT_EQ(requests().size(), 1u);
  EXPECT_EQ(count({3, "name of EventWithoutAName failed: no name"}), 1u);
  EXPECT_EQ(count({3, "getJsonObject of EventWithoutAName failed: no fields"}), 1u);
}

TEST_F(ObjectiveCServerSide, MirrorsEventsThroughAnObjectThatForwards) {
  RecordingAnalytics* const analytics = make<RecordingAnalytics>();
  ForwardingAnalytics* const forwarding = [[ForwardingAnalytics alloc] autorelease];
  forwarding->_target = analytics;
  ::ServerSide* const serverSide = create(forwarding);
  [serverSide execute:make<::JXPurchaseEvent>()];
  ASSERT_EQ([analytics.calls count], 2u);
  EXPECT_TRUE([[[analytics.calls objectAtIndex:1] objectAtIndex:0] isEqual:@"purchase"]);
}

TEST_F(ObjectiveCServerSide, AnAnalyticsMethodWithOtherParametersIsNotCalled) {
  ::ServerSide* const serverSide = create(make<AnalyticsWithOtherParameters>());
  forgetLines();
  [serverSide execute:make<::JXPurchaseEvent>()];
  EXPECT_EQ(count({3, "logEventWithName:parameters: of the Firebase instance failed: its "
                      "parameters are not two objects"}),
            1u);
}

TEST_F(ObjectiveCServerSide, KeepsPermanentData) {
  ::ServerSide* const serverSide = create();
  [serverSide addPermanentData:@"a" withValue:[NSArray arrayWithObject:@"b"]];
  EXPECT_TRUE([[serverSide getPermanentData:@"a"] isEqual:[NSArray arrayWithObject:@"b"]]);
  EXPECT_TRUE([[serverSide removePermanentData:@"a"] isEqual:[NSArray arrayWithObject:@"b"]]);
  EXPECT_EQ([serverSide getPermanentData:@"a"], nil);
  EXPECT_EQ([serverSide getPermanentData:nil], nil);
}

TEST_F(ObjectiveCServerSide, MirrorsEventsToAnyObjectWithTheMethods) {
  RecordingAnalytics* const analytics = make<RecordingAnalytics>();
  ::ServerSide* const serverSide = create(analytics);
  EXPECT_EQ(serverSide.firebaseInstance, analytics);
  ASSERT_EQ([analytics.calls count], 1u);
  EXPECT_TRUE([[analytics.calls objectAtIndex:0]
      isEqual:([NSArray arrayWithObjects:@"developer_id", @"jx_serverside", nil])]);
  ::JXPurchaseEvent* const event = make<::JXPurchaseEvent>();
  event.revenue = decimal(@"12.5");
  [serverSide execute:event];
  ASSERT_EQ([analytics.calls count], 2u);
  NSArray* const call = [analytics.calls objectAtIndex:1];
  EXPECT_TRUE([[call objectAtIndex:0] isEqual:@"purchase"]);
  NSDictionary* const parameters = [call objectAtIndex:1];
  EXPECT_TRUE([[parameters objectForKey:@"revenue"] isEqual:decimal(@"12.5")]);
  EXPECT_EQ([parameters objectForKey:@"context"], nil);
}

TEST_F(ObjectiveCServerSide, AnAnalyticsObjectWithoutTheMethodsIsNotCalled) {
  ::ServerSide* const serverSide = create(@"any object");
  forgetLines();
  [serverSide execute:make<::JXPurchaseEvent>()];
  EXPECT_EQ(requests().size(), 1u);
  EXPECT_TRUE(linesUpTo(3).empty());
}

TEST_F(ObjectiveCServerSide, AnExceptionOfTheAnalyticsObjectIsLogged) {
  ::ServerSide* const serverSide = create(make<FailingAnalytics>());
  forgetLines();
  [serverSide execute:make<::JXPurchaseEvent>()];
  EXPECT_EQ(requests().size(), 1u);
  EXPECT_EQ(count({3, "logEventWithName:parameters: of the Firebase instance failed: "
                      "not configured"}),
            1u);
}

TEST_F(ObjectiveCServerSide, WaitsForConsentIfThereIsAConsentModule) {
  // At run time, because a class of the program would be a module in every test.
  const Class module = objc_allocateClassPair([NSObject class], "JXMobileConsent", 0);
  objc_registerClassPair(module);
  ::ServerSide* const serverSide = create();
  EXPECT_EQ(serverSide.serverSideState, EJXServerSideState_WAITING_FOR_CONSENT);
  [serverSide execute:make<::JXPurchaseEvent>()];
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_EQ(requests()[0].body.get("user").string(), JXString("waiting_for_consent"));
}

TEST_F(ObjectiveCServerSide, HoldsTheObjectThatStartedTheLibrary) {
  ::ServerSide* const serverSide = create();
  EXPECT_NE(serverSide.initialisation, nil);
  EXPECT_TRUE([serverSide.initialisation isEqual:serverSide.initialisation]);
  ::JXServerSideInitialisation* const other = make<::JXServerSideInitialisation>();
  EXPECT_FALSE([serverSide.initialisation isEqual:other]);
  serverSide.initialisation = other;
  EXPECT_TRUE([serverSide.initialisation isEqual:other]);
  forgetLines();
  serverSide.initialisation = static_cast<id>(@"a string");
  EXPECT_TRUE([serverSide.initialisation isEqual:other]);
  EXPECT_EQ(linesUpTo(3).size(), 1u);
  serverSide.initialisation = nil;
  EXPECT_EQ(serverSide.initialisation, nil);
  [serverSide execute:make<::JXPurchaseEvent>()];
  EXPECT_EQ(requests().size(), 1u);
}

TEST_F(ObjectiveCServerSide, AppliesStopsAndEnablings) {
  ::ServerSide* const serverSide = create();
  [serverSide disableServerSide];
  EXPECT_EQ(serverSide.serverSideState, EJXServerSideState_DISABLED);
  [serverSide execute:make<::JXPurchaseEvent>()];
  EXPECT_TRUE(requests().empty());
  [serverSide enableServerSide];
  EXPECT_EQ(serverSide.serverSideState, EJXServerSideState_ENABLED);
}

}  // namespace
}  // namespace jx::objc
