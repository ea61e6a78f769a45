// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUser.h"
#import "jx/objc/JXPostData.h"
#import "jx/objc/JXPredefinedVariables.h"
#import "jx/objc/JXUserDefaults.h"
#import "jx/objc/JXUtils.h"
#import "jx/objc/NSString+JXServerSide.h"
#include "jx/session/JXPredefinedVariables.h"
#import "tests/objc/NotificationTest.h"

namespace jx::objc {
namespace {

class ObjectiveCVariables : public test::NotificationTest {};

TEST_F(ObjectiveCVariables, SetsReturnsAndRemovesVariables) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  [variables addData:@"a" withValue:@"x"];
  EXPECT_EQ(variable("a"), JXString("x"));
  [variables addData:@"a" withValue:static_cast<id>(decimal(@"1"))];
  EXPECT_EQ(text([variables getData:@"a"]), "x");
  EXPECT_EQ(text([variables removeData:@"a"]), "x");
  EXPECT_EQ([variables getData:@"a"], nil);
  ::JXDynamicStore* const store = make<::JXDynamicStore>();
  [store addData:@"b" withValue:@"y"];
  [variables addData:store];
  [variables addData:[NSDictionary dictionaryWithObject:@"z" forKey:@"c"]];
  [variables addData:nil];
  EXPECT_EQ(text([variables getData:@"b"]), "y");
  EXPECT_EQ(text([variables.dynamicStore getData:@"c"]), "z");
  [variables clearData];
  EXPECT_EQ([variables getData:@"b"], nil);
}

TEST_F(ObjectiveCVariables, ReturnsSingleVariables) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  EXPECT_EQ(text([variables navNumberVisit]), "1");
  EXPECT_EQ(text([variables numberSession]), "1");
  EXPECT_EQ(text([variables manufacturer]), "Apple");
  EXPECT_EQ(text([variables norvaneVersion]), "5.4.5");
  EXPECT_EQ(text([variables timestampCurrentVisitMs]), "1700000000000");
  EXPECT_EQ(text([variables nowMsString]), "1700000000000");
  EXPECT_EQ(text([variables nowString]), "1700000000");
  EXPECT_EQ([variables nowMs], 1'700'000'000'000);
  EXPECT_EQ([variables now], 1'700'000'000);
  EXPECT_GE([variables randomInt], 0);
  EXPECT_NE(text([variables randomString]), "(nil)");
  EXPECT_FALSE(variables.isBackground);
  EXPECT_EQ(variables.visitDuration, 1'800'000u);
  variables.visitDuration = 5;
  EXPECT_EQ(jx::JXPredefinedVariables::sharedInstance().visitDuration(), 5u);
}

TEST_F(ObjectiveCVariables, SetsProperties) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  EXPECT_EQ(variables.totalForegroundTransitions, 1);
  EXPECT_EQ(variables.lastTime, 1'700'000'000'000u);
  EXPECT_EQ(text(variables.pid), "4242");
  variables.isBackground = YES;
  variables.totalForegroundTransitions = -7;
  variables.totalForegroundTime = 1;
  variables.deltaForeground = 2;
  variables.totalBackgroundTime = 3;
  variables.deltaBackground = 4;
  variables.lastTime = 18'446'744'073'709'551'615u;
  variables.startUsage = 6;
  variables.pid = @"77";
  const auto& core = jx::JXPredefinedVariables::sharedInstance();
  EXPECT_TRUE(core.isBackground());
  EXPECT_EQ(core.totalForegroundTransitions(), -7);
  EXPECT_EQ(core.totalForegroundTime(), 1u);
  EXPECT_EQ(core.deltaForeground(), 2u);
  EXPECT_EQ(core.totalBackgroundTime(), 3u);
  EXPECT_EQ(core.deltaBackground(), 4u);
  EXPECT_EQ(core.lastTime(), 18'446'744'073'709'551'615u);
  EXPECT_EQ(core.startUsage(), 6u);
  EXPECT_EQ(core.pid(), JXString("77"));
  variables.pid = static_cast<id>(decimal(@"1"));
  EXPECT_EQ(text(variables.pid), "77");
  variables.pid = nil;
  EXPECT_EQ(variables.pid, nil);
}

TEST_F(ObjectiveCVariables, ReplacesTheStore) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  ::JXDynamicStore* const store = make<::JXDynamicStore>();
  [store addData:@"a" withValue:@"x"];
  variables.dynamicStore = store;
  EXPECT_TRUE([variables.dynamicStore isEqual:store]);
  EXPECT_EQ(text([variables getData:@"a"]), "x");
  variables.dynamicStore = static_cast<id>(@"a string");
  EXPECT_EQ(text([variables getData:@"a"]), "x");
  variables.dynamicStore = nil;
  [variables addData:@"a" withValue:@"x"];
  EXPECT_EQ([variables getData:@"a"], nil);
  EXPECT_EQ(variables.dynamicStore, nil);
}

TEST_F(ObjectiveCVariables, UpdatesTheVariablesOfEvents) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  [variables firstExecute];
  EXPECT_EQ(variable("#JX_FIRST_EXECUTE#"), JXString("TRUE"));
  [variables firstExecute];
  EXPECT_EQ(variable("#JX_FIRST_EXECUTE#"), JXString("FALSE"));
  clock->advance(2'000);
  [variables computeTimeChangingVariables];
  EXPECT_EQ(variable("#JX_FOREGROUND_TIME#"), JXString("2000"));
  EXPECT_EQ(variable("#JX_CURRENT_CALL_MS#"), JXString("1700000002000"));
  EXPECT_EQ(variable("#JX_NEW_SESSION#"), JXString("1"));
  [variables resetNewSession];
  EXPECT_EQ(variable("#JX_NEW_SESSION#"), JXString("0"));
}

TEST_F(ObjectiveCVariables, ReadsTheLocale) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  platform->currency = "EUR";
  platform->symbol = "€";
  platform->encoding = 5;
  EXPECT_EQ(text([variables currencyCode]), "EUR");
  EXPECT_EQ(variable("#JX_CURRENCY_CODE#"), JXString("EUR"));
  EXPECT_EQ(text([variables currencySymbol]), "€");
  EXPECT_EQ(variable("#JX_CURRENCY_SYMBOL#"), JXString("€"));
  EXPECT_EQ(text([variables getDefaultEncoding]), "ISO-8859-1");
  platform->currency = nullptr;
  EXPECT_EQ([variables currencyCode], nil);
  EXPECT_EQ(variable("#JX_CURRENCY_CODE#"), JXString("-"));
}

TEST_F(ObjectiveCVariables, StoresTimesInSecondsAndMilliseconds) {
  create();
  forgetLines();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  [variables addTimestamp:@"s" andTimestampeMs:@"ms" withTime:1'700'000'000];
  EXPECT_EQ(variable("s"), JXString("1700000000"));
  EXPECT_EQ(variable("ms"), JXString("1700000000000"));
  [variables addTimestamp:nil andTimestampeMs:@"ms" withTime:-3];
  EXPECT_EQ(variable("ms"), JXString("-3000"));
  [variables addTimestamp:@"s" andTimestampeMs:nil withTime:-3];
  EXPECT_EQ(variable("s"), JXString("-3"));
  [variables addTimestamp:@"s" andTimestampeMs:static_cast<id>([NSArray array]) withTime:9];
  [variables addTimestamp:static_cast<id>([NSArray array]) andTimestampeMs:@"ms" withTime:9];
  EXPECT_EQ(variable("s"), JXString("-3"));
  EXPECT_EQ(variable("ms"), JXString("-3000"));
  EXPECT_EQ(linesUpTo(3).size(), 2u);
}

TEST_F(ObjectiveCVariables, StoresTheUserAgentOfANotification) {
  create();
  forgetLines();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  const id<IJXEventListenerDelegate> delegate = variables;
  NSDictionary* const data = [NSDictionary dictionaryWithObject:@"Agent/2"
                                                         forKey: ::kJXUserInfo_DataKey];
  [delegate onNotificationReceived:[NSNotification
                                       notificationWithName: ::kJXNotification_UserAgentAvailable
                                                     object:nil
                                                   userInfo:data]];
  EXPECT_EQ(variable("#JX_USER_AGENT#"), JXString("Agent/2"));
  [delegate onNotificationReceived:[NSNotification notificationWithName:@"another"
                                                                 object:nil
                                                               userInfo:nil]];
  [variables onNotificationReceived:nil];
  [variables onNotificationReceived:static_cast<id>(@"a string")];
  EXPECT_EQ(variable("#JX_USER_AGENT#"), JXString("Agent/2"));
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ObjectiveCVariables, UsesTheListenerThatIsSet) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  NSDictionary* const data = [NSDictionary dictionaryWithObject:@"Agent/2"
                                                         forKey: ::kJXUserInfo_DataKey];
  @autoreleasepool {
    // The listener of the start-up ends when the pool does: until then it calls its parent.
    EXPECT_EQ(variables.listenerDelegate, variables.listenerDelegate);
    ::JXEventListener* const listener = make<::JXEventListener>();
    [listener setParent:variables];
    [listener listen: ::kJXNotification_UserAgentAvailable];
    variables.listenerDelegate = listener;
    EXPECT_EQ(variables.listenerDelegate, listener);
    variables.listenerDelegate = static_cast<id>(@"a string");
    EXPECT_EQ(variables.listenerDelegate, listener);
  }
  [defaultCenter() postNotificationName: ::kJXNotification_UserAgentAvailable
                                 object:nil
                               userInfo:data];
  EXPECT_EQ(variable("#JX_USER_AGENT#"), JXString("Agent/2"));
  variables.listenerDelegate = nil;
  EXPECT_EQ(variables.listenerDelegate, nil);
  [variables removeData:@"#JX_USER_AGENT#"];
  [defaultCenter() postNotificationName: ::kJXNotification_UserAgentAvailable
                                 object:nil
                               userInfo:data];
  EXPECT_EQ(variable("#JX_USER_AGENT#"), JXString());
}

TEST_F(ObjectiveCVariables, AStartUpReplacesTheListenerThatWasSet) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  ::JXEventListener* const listener = make<::JXEventListener>();
  variables.listenerDelegate = listener;
  const NSUInteger count = [listener retainCount];
  EXPECT_EQ([variables reinit], variables);
  EXPECT_FALSE([variables.listenerDelegate isEqual:listener]);
  EXPECT_EQ([listener retainCount], count - 1);
}

TEST_F(ObjectiveCVariables, UsesTheUniqueIdentifierForTheUser) {
  create();
  ::JXPredefinedVariables* const variables = [::JXPredefinedVariables sharedInstance];
  [variables useLegacyUniqueIDForAnonymousID];
  [variables useLegacyUniqueIDForConsentID];
  const std::string identifier = text([variables uniqueIdentifier]);
  EXPECT_EQ(identifier.size(), 36u);
  EXPECT_EQ(jx::JXUser::sharedInstance().anonymous_id(), JXString(identifier));
  EXPECT_EQ(jx::JXUser::sharedInstance().consentID(), JXString(identifier));
}

TEST_F(ObjectiveCVariables, PersistsStrings) {
  configuration.storageFolder = storage().path();
  create();
  [::JXUserDefaults saveInfoToUserDefaults:@"x" forLabel:@"a"];
  EXPECT_EQ(text([::JXUserDefaults retrieveInfoFromUserDefaults:@"a"]), "x");
  [::JXUserDefaults saveInfoToUserDefaults:static_cast<id>(decimal(@"1")) forLabel:@"a"];
  EXPECT_EQ(text([::JXUserDefaults retrieveInfoFromUserDefaults:@"a"]), "x");
  [::JXUserDefaults saveInfoToUserDefaults:nil forLabel:@"a"];
  [::JXUserDefaults saveInfoToUserDefaults:@"x" forLabel:nil];
  EXPECT_EQ([::JXUserDefaults retrieveInfoFromUserDefaults:@"a"], nil);
  EXPECT_EQ([::JXUserDefaults retrieveInfoFromUserDefaults:nil], nil);
}

TEST_F(ObjectiveCVariables, WritesValuesToDictionaries) {
  NSMutableDictionary* const dict = [NSMutableDictionary dictionary];
  NSMutableArray* const array = [NSMutableArray array];
  NSMutableDictionary* const nested = [NSMutableDictionary dictionary];
  [::JXUtils setString:@"" forKey:@"string" onDict:dict];
  [::JXUtils setFloat:decimal(@"0.10") forKey:@"float" onDict:dict];
  [::JXUtils setFloatFromString:@"+012.50" forKey:@"parsed" onDict:dict];
  [::JXUtils setBool:YES forKey:@"bool" onDict:dict];
  [::JXUtils setArray:array forKey:@"array" onDict:dict];
  [::JXUtils setJson:nested forKey:@"json" onDict:dict];
  EXPECT_EQ([dict count], 6u);
  EXPECT_EQ(text([dict objectForKey:@"string"]), "");
  EXPECT_EQ(text([[dict objectForKey:@"float"] description]), "0.1");
  EXPECT_EQ(text([[dict objectForKey:@"parsed"] description]), "12.5");
  EXPECT_TRUE([[dict objectForKey:@"bool"] boolValue]);
  EXPECT_EQ([dict objectForKey:@"array"], array);
  EXPECT_EQ([dict objectForKey:@"json"], nested);
}

TEST_F(ObjectiveCVariables, WritesNothingForValuesThatAreNotUsable) {
  start();
  NSMutableDictionary* const dict = [NSMutableDictionary dictionary];
  [::JXUtils setString:nil forKey:@"a" onDict:dict];
  [::JXUtils setString:@"x" forKey:nil onDict:dict];
  [::JXUtils setString:@"x" forKey:@"a" onDict:nil];
  [::JXUtils setFloat:nil forKey:@"a" onDict:dict];
  [::JXUtils setFloat:[NSNumber numberWithDouble:NAN] forKey:@"a" onDict:dict];
  [::JXUtils setFloatFromString:@"x" forKey:@"a" onDict:dict];
  [::JXUtils setArray:nil forKey:@"a" onDict:dict];
  [::JXUtils setJson:nil forKey:@"a" onDict:dict];
  EXPECT_TRUE(linesUpTo(3).empty());
  [::JXUtils setString:static_cast<id>([NSArray array]) forKey:@"a" onDict:dict];
  [::JXUtils setJson:static_cast<id>(@"x") forKey:@"a" onDict:dict];
  [::JXUtils setBool:YES forKey:@"a" onDict:static_cast<id>(@"x")];
  EXPECT_EQ([dict count], 0u);
  EXPECT_EQ(linesUpTo(3).size(), 3u);
}

TEST_F(ObjectiveCVariables, TestsStrings) {
  NSString* const none = nil;
  EXPECT_FALSE([none testString]);
  EXPECT_FALSE([@"" testString]);
  EXPECT_TRUE([@" " testString]);
  EXPECT_TRUE([[NSMutableString stringWithString:@"x"] testString]);
}

TEST_F(ObjectiveCVariables, ConvertsStringsAndDictionaries) {
  EXPECT_EQ([::JXUtils numberFromNSString:@" -12x"], -12);
  EXPECT_EQ([::JXUtils numberFromNSString:nil], 0);
  EXPECT_EQ(text([::JXUtils jsonDictionaryToString:[NSDictionary dictionaryWithObject:@"b"
                                                                               forKey:@"a"]]),
            "{\"a\":\"b\"}");
  EXPECT_EQ([::JXUtils jsonDictionaryToString:nil], nil);
}

TEST_F(ObjectiveCVariables, ReturnsTheBodyOfAnEvent) {
  create();
  ::JXEvent* const event = make<::JXEvent>();
  event.name = @"quiz";
  NSString* const body = [::JXPostData getPostParameters:event
                                     withServerSideState: ::EJXServerSideState_ENABLED];
  EXPECT_NE(text(body).find("\"event_name\": \"quiz\""), std::string::npos);
  EXPECT_EQ([::JXPostData getPostParameters:nil withServerSideState:1], nil);
  EXPECT_TRUE(requests().empty());
}

}  // namespace
}  // namespace jx::objc
