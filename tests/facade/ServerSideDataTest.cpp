// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Permanent data and advertising identifiers.

#include <gmock/gmock.h>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/session/JXDevice.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class PermanentData : public ServerSideFixture {};

JXString core(std::string_view key) { return JXCoreVariables::sharedInstance().getData(key); }

TEST_F(PermanentData, IsAddedToEveryEventUntilRemoved) {
  const auto serverSide = make();
  serverSide->addPermanentData_withValue("store", "uk");
  EXPECT_EQ(serverSide->getPermanentData("store").string(), JXString("uk"));
  EXPECT_EQ(execute(*serverSide).body.get("store").string(), JXString("uk"));
  EXPECT_EQ(serverSide->removePermanentData("store").string(), JXString("uk"));
  EXPECT_FALSE(serverSide->getPermanentData("store").isPresent());
  EXPECT_FALSE(serverSide->removePermanentData("store").isPresent());
  EXPECT_FALSE(execute(*serverSide).body.contains("store"));
}

TEST_F(PermanentData, StaysOnTheExecutedEventObject) {
  const auto serverSide = make();
  const auto event = JXCustomEvent::initWithName("quiz");
  serverSide->addPermanentData_withValue("store", "uk");
  serverSide->execute(event);
  EXPECT_EQ(event->getAdditionalProperties().get("store").string(), JXString("uk"));
  serverSide->removePermanentData("store");
  serverSide->execute(event);
  EXPECT_EQ(requests().back().body.get("store").string(), JXString("uk"));
}

TEST_F(PermanentData, ReplacesValueOfAnEarlierExecute) {
  const auto serverSide = make();
  const auto event = JXCustomEvent::initWithName("quiz");
  serverSide->addPermanentData_withValue("store", "uk");
  serverSide->execute(event);
  serverSide->addPermanentData_withValue("store", "fr");
  serverSide->execute(event);
  EXPECT_EQ(requests().back().body.get("store").string(), JXString("fr"));
}

TEST_F(PermanentData, AcceptsAnyJsonValue) {
  const auto serverSide = make();
  JXJsonObject nested;
  nested.set("depth", 2);
  JXJsonArray list;
  list.append("a");
  list.append(JXJsonValue::null());
  serverSide->addPermanentData_withValue("object", nested);
  serverSide->addPermanentData_withValue("list", list);
  serverSide->addPermanentData_withValue("number", JXJsonValue::numberFromString("12.50"));
  serverSide->addPermanentData_withValue("flag", true);
  serverSide->addPermanentData_withValue("nothing", JXJsonValue::null());
  const JXJsonObject body = execute(*serverSide).body;
  EXPECT_EQ(body.get("object").object().get("depth").numberString(), JXString("2"));
  EXPECT_EQ(body.get("list").array().size(), 2u);
  EXPECT_EQ(body.get("number").numberString(), JXString("12.50"));
  EXPECT_TRUE(body.get("flag").boolValue());
  EXPECT_EQ(body.get("nothing").kind(), JXJsonValue::Kind::Null);
}

TEST_F(PermanentData, NullValueRemovesTheKey) {
  const auto serverSide = make();
  serverSide->addPermanentData_withValue("store", "uk");
  serverSide->addPermanentData_withValue("store", nullptr);
  EXPECT_FALSE(serverSide->getPermanentData("store").isPresent());
}

TEST_F(PermanentData, DistinguishesNullKeyFromEmptyKey) {
  const auto serverSide = make();
  serverSide->addPermanentData_withValue("", "empty key");
  serverSide->addPermanentData_withValue(nullptr, "null key");
  EXPECT_FALSE(serverSide->getPermanentData(nullptr).isPresent());
  EXPECT_FALSE(serverSide->removePermanentData(nullptr).isPresent());
  EXPECT_EQ(serverSide->getPermanentData("").string(), JXString("empty key"));
}

TEST_F(PermanentData, IsOverriddenByEventFields) {
  const auto serverSide = make();
  serverSide->addPermanentData_withValue("event_name", "forged");
  serverSide->addPermanentData_withValue("page_name", "permanent");
  EXPECT_EQ(execute(*serverSide, "true").body.get("event_name").string(), JXString("true"));
  EXPECT_EQ(requests().back().body.get("page_name").string(), JXString("permanent"));
}

TEST_F(PermanentData, BelongsToOneServerSide) {
  const auto first = make();
  const auto second = make();
  first->addPermanentData_withValue("store", "uk");
  EXPECT_FALSE(second->getPermanentData("store").isPresent());
  EXPECT_FALSE(execute(*second).body.contains("store"));
}

TEST_F(PermanentData, IsIgnoredWithoutAStore) {
  const auto serverSide = make();
  serverSide->setPermanentStore(nullptr);
  serverSide->addPermanentData_withValue("store", "uk");
  EXPECT_FALSE(serverSide->getPermanentData("store").isPresent());
  EXPECT_FALSE(serverSide->removePermanentData("store").isPresent());
  execute(*serverSide);
}

class AdvertisingIds : public ServerSideFixture {};

TEST_F(AdvertisingIds, StaticIdfaIsAllZeros) {
  EXPECT_EQ(STATIC_IDFA, "00000000-0000-0000-0000-000000000000");
}

TEST_F(AdvertisingIds, AreOmittedUntilAdded) {
  platform->trackingAllowed = true;
  const auto serverSide = make();
  EXPECT_FALSE(core(kJXPredefinedVariable_isTrackingEnabled).isPresent());
  EXPECT_FALSE(core(kJXPredefinedVariable_IDFA).isPresent());
  EXPECT_FALSE(core(kJXPredefinedVariable_IDFV).isPresent());
  const JXJsonObject device = inside(execute(*serverSide).body, {"context", "device"});
  EXPECT_FALSE(device.contains("ad_tracking"));
  EXPECT_FALSE(device.contains("idfa"));
  EXPECT_FALSE(device.contains("idfv"));
}

TEST_F(AdvertisingIds, AreWrittenIfTrackingIsAllowed) {
  platform->trackingAllowed = true;
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  EXPECT_EQ(core(kJXPredefinedVariable_isTrackingEnabled), JXString("1"));
  EXPECT_EQ(core(kJXPredefinedVariable_IDFA), JXString("11111111-2222-4333-8444-555555555555"));
  EXPECT_EQ(core(kJXPredefinedVariable_IDFV), JXString("66666666-7777-4888-8999-AAAAAAAAAAAA"));
  const JXJsonObject device = inside(execute(*serverSide).body, {"context", "device"});
  EXPECT_EQ(device.get("ad_tracking").kind(), JXJsonValue::Kind::Bool);
  EXPECT_TRUE(device.get("ad_tracking").boolValue());
  EXPECT_EQ(device.get("idfa").string(), JXString("11111111-2222-4333-8444-555555555555"));
  EXPECT_EQ(device.get("idfv").string(), JXString("66666666-7777-4888-8999-AAAAAAAAAAAA"));
}

TEST_F(AdvertisingIds, UseStaticIdfaIfTrackingIsDenied) {
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  EXPECT_EQ(core(kJXPredefinedVariable_isTrackingEnabled), JXString("0"));
  EXPECT_EQ(core(kJXPredefinedVariable_IDFA), JXString("00000000-0000-0000-0000-000000000000"));
  const JXJsonObject device = inside(execute(*serverSide).body, {"context", "device"});
  EXPECT_EQ(device.get("ad_tracking").kind(), JXJsonValue::Kind::Bool);
  EXPECT_FALSE(device.get("ad_tracking").boolValue());
  EXPECT_EQ(device.get("idfa").string(), JXString("00000000-0000-0000-0000-000000000000"));
}

TEST_F(AdvertisingIds, FollowChangedPermissionWhenAddedAgain) {
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  platform->trackingAllowed = true;
  serverSide->addAdvertisingIDs();
  EXPECT_EQ(JXDevice::sharedInstance().IDFA(), JXString("11111111-2222-4333-8444-555555555555"));
  EXPECT_EQ(JXDevice::sharedInstance().adTrackingEnabled(), JXString("1"));
}

TEST_F(AdvertisingIds, IdfaDependsOnStoredPermission) {
  platform->trackingAllowed = true;
  const auto serverSide = make();
  serverSide->setIDFA();
  EXPECT_EQ(core(kJXPredefinedVariable_IDFA), JXString("00000000-0000-0000-0000-000000000000"))
      << "the permission is not set";
  JXCoreVariables::sharedInstance().addData_withValue(kJXPredefinedVariable_isTrackingEnabled, "0");
  serverSide->setIDFA();
  EXPECT_EQ(core(kJXPredefinedVariable_IDFA), JXString("00000000-0000-0000-0000-000000000000"));
  JXCoreVariables::sharedInstance().addData_withValue(kJXPredefinedVariable_isTrackingEnabled, "1");
  platform->trackingAllowed = false;
  serverSide->setIDFA();
  EXPECT_EQ(core(kJXPredefinedVariable_IDFA), JXString("11111111-2222-4333-8444-555555555555"));
}

TEST_F(AdvertisingIds, SettingThePermissionKeepsTheIdfa) {
  platform->trackingAllowed = true;
  const auto serverSide = make();
  serverSide->setAdvertisingTrackingEnabled();
  EXPECT_EQ(core(kJXPredefinedVariable_isTrackingEnabled), JXString("1"));
  EXPECT_FALSE(core(kJXPredefinedVariable_IDFA).isPresent());
  EXPECT_FALSE(JXDevice::sharedInstance().adTrackingEnabled().isPresent());
}

TEST_F(AdvertisingIds, AreOmittedIfTheSystemHasNone) {
  platform->trackingAllowed = true;
  platform->advertisingId = nullptr;
  platform->vendorId = nullptr;
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  const JXJsonObject device = inside(execute(*serverSide).body, {"context", "device"});
  EXPECT_TRUE(device.get("ad_tracking").boolValue());
  EXPECT_FALSE(device.contains("idfa"));
  EXPECT_FALSE(device.contains("idfv"));
}

}  // namespace
}  // namespace jx::test
