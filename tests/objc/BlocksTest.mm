// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUser.h"
#import "jx/objc/JXApp.h"
#import "jx/objc/JXDevice.h"
#import "jx/objc/JXLifecycle.h"
#import "jx/objc/JXNetwork.h"
#import "jx/objc/JXUser.h"
#include "jx/session/JXDevice.h"
#import "tests/objc/NotificationTest.h"

namespace jx::objc {
namespace {

class ObjectiveCBlocks : public test::NotificationTest {
 protected:
  JXJsonObject contextAfter(::ServerSide* serverSide) {
    executeQuiz(serverSide);
    return context(requests().back());
  }
};

TEST_F(ObjectiveCBlocks, ReturnsOneObjectPerProcess) {
  create();
  EXPECT_EQ([::JXDevice sharedInstance], [::JXDevice sharedInstance]);
  EXPECT_EQ([::JXApp sharedInstance], [::JXApp sharedInstance]);
  EXPECT_EQ([::JXLifecycle sharedInstance], [::JXLifecycle sharedInstance]);
  EXPECT_EQ([::JXUser sharedInstance], [::JXUser sharedInstance]);
  EXPECT_EQ([::JXNetwork sharedInstance], [::JXNetwork sharedInstance]);
  EXPECT_TRUE([make<::JXDevice>() isEqual:[::JXDevice sharedInstance]]);
}

TEST_F(ObjectiveCBlocks, SetsTheFieldsOfTheDevice) {
  ::ServerSide* const serverSide = create();
  ::JXDevice* const device = [::JXDevice sharedInstance];
  device.model = @"TV9,9";
  device.screenWidth = decimal(@"1280.5");
  device.timezone = nil;
  EXPECT_EQ(text(device.model), "TV9,9");
  EXPECT_EQ(text([device.screenWidth description]), "1280.5");
  EXPECT_EQ(device.timezone, nil);
  EXPECT_EQ(jx::JXDevice::sharedInstance().model(), JXString("TV9,9"));
  const JXJsonObject block = contextAfter(serverSide).get("device").object();
  EXPECT_EQ(block.get("model").string(), JXString("TV9,9"));
  EXPECT_FALSE(block.contains("timezone"));
  EXPECT_EQ(block.get("screen").object().get("width").numberString(), JXString("1280.5"));
  [device reinit];
  EXPECT_NE(text(device.model), "TV9,9");
}

TEST_F(ObjectiveCBlocks, AddsPropertiesToTheDeviceAndItsParts) {
  ::ServerSide* const serverSide = create();
  ::JXDevice* const device = [::JXDevice sharedInstance];
  [device addAdditionalProperty:@"room" withStringValue:@"kitchen"];
  EXPECT_TRUE([[device getOsProperties] isEqual:device.osProperties]);
  EXPECT_TRUE([[device getScreenProperties] isEqual:device.screenProperties]);
  EXPECT_FALSE([[device getOsProperties] isEqual:[device getScreenProperties]]);
  [device.osProperties addAdditionalProperty:@"patch" withStringValue:@"7"];
  [device.screenProperties addAdditionalProperty:@"hdr"
                                 withNumberValue:[NSNumber numberWithBool:YES]];
  const JXJsonObject block = contextAfter(serverSide).get("device").object();
  EXPECT_EQ(block.get("room").string(), JXString("kitchen"));
  EXPECT_EQ(block.get("os").object().get("patch").string(), JXString("7"));
  EXPECT_TRUE(block.get("screen").object().get("hdr").boolValue());
  EXPECT_EQ(text([[device getJsonObject] objectForKey:@"room"]), "kitchen");
}

TEST_F(ObjectiveCBlocks, SetsTheFieldsOfTheApplication) {
  ::ServerSide* const serverSide = create();
  ::JXApp* const app = [::JXApp sharedInstance];
  EXPECT_EQ(text(app.name), "Example TV");
  app.version = @"9.9";
  EXPECT_EQ(contextAfter(serverSide).get("app").object().get("version").string(), JXString("9.9"));
  EXPECT_EQ(text([[app getJsonObject] objectForKey:@"version"]), "9.9");
  EXPECT_EQ([app reinit], app);
  EXPECT_NE(text(app.version), "9.9");
}

TEST_F(ObjectiveCBlocks, ReturnsTheLifecycle) {
  create();
  ::JXLifecycle* const lifecycle = [::JXLifecycle sharedInstance];
  [lifecycle refreshContent];
  EXPECT_EQ(text(lifecycle.visitNumber), "1");
  EXPECT_EQ(text(lifecycle.sessionNumber), "1");
  EXPECT_TRUE(lifecycle.isFirstVisit);
  lifecycle.isFirstVisit = NO;
  EXPECT_FALSE(lifecycle.isFirstVisit);
  NSDictionary* const block = [lifecycle getJsonObject];
  EXPECT_EQ(text([block objectForKey:@"session_id"]), text(lifecycle.sessionID));
}

TEST_F(ObjectiveCBlocks, SetsTheIdentifiersOfTheUser) {
  create();
  ::JXUser* const user = [::JXUser sharedInstance];
  EXPECT_EQ(user.consentID, nil);
  user.consentID = @"c1";
  [user setAnonymous_id:@"a1"];
  user.anonymous_id = nil;
  EXPECT_EQ(jx::JXUser::sharedInstance().anonymous_id(), JXString("a1"));
  EXPECT_EQ(text([[user getJsonObject] objectForKey:@"anonymous_id"]), "a1");
  EXPECT_EQ(text(user.consentID), "c1");
  user.consentID = nil;
  EXPECT_EQ(user.consentID, nil);
}

TEST_F(ObjectiveCBlocks, ReturnsTheTypeOfTheConnection) {
  create();
  ::JXNetwork* const network = [::JXNetwork sharedInstance];
  [network refresh];
  EXPECT_EQ(text([[network getJsonObject] objectForKey:@"connection_type"]), "ethernet");
}

TEST_F(ObjectiveCBlocks, AWrongClassIsLoggedAndIgnored) {
  create();
  ::JXDevice* const device = [::JXDevice sharedInstance];
  device.model = @"TV-1";
  forgetLines();
  device.model = static_cast<id>(decimal(@"1"));
  EXPECT_EQ(text(device.model), "TV-1");
  ASSERT_EQ(linesUpTo(3).size(), 1u);
  EXPECT_EQ(linesUpTo(3)[0].message.find("JXDevice.model: "), 0u);
}

}  // namespace
}  // namespace jx::objc
