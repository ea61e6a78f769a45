// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUser.h"
#import "jx/objc/JXPostData.h"
#import "jx/objc/JXPredefinedVariables.h"
#import "jx/objc/JXUserDefaults.h"
#import "jx/objc/JXUtils.h"
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
