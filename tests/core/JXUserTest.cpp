// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUser.h"

#include <string>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreInitialisation.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/JXUtils.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "tests/core/JXCoreFixture.h"

namespace jx {
namespace {

template <typename Block>
std::string json(const Block& block) {
  return JXUtils::jsonDictionaryToString(block.getJsonObject()).toStdString();
}

class JXUserTest : public test::JXCoreFixture {
 protected:
  static JXUser& user() { return JXUser::sharedInstance(); }
};

TEST_F(JXUserTest, HasAnAnonymousIdFromTheStart) {
  EXPECT_EQ(json(user()), R"({"anonymous_id":"00000000-0000-4000-8000-000000000001"})");
  EXPECT_EQ(platform_->uuidCount(), 1);
}

TEST_F(JXUserTest, ReplacesTheAnonymousId) {
  user().setAnonymous_id("legacy");
  EXPECT_EQ(user().anonymous_id(), JXString("legacy"));
  user().setAnonymous_id(nullptr);
  user().setAnonymous_id("");
  EXPECT_EQ(json(user()), R"({"anonymous_id":"legacy"})");
}

TEST_F(JXUserTest, WritesTheConsentIdOnceItIsSet) {
  user().setAnonymous_id("a");
  user().setConsentID("c");
  EXPECT_EQ(json(user()), R"({"anonymous_id":"a","consent_id":"c"})");
  EXPECT_EQ(user().consentID(), JXString("c"));
  user().setConsentID(nullptr);
  EXPECT_EQ(json(user()), R"({"anonymous_id":"a"})");
}

TEST_F(JXUserTest, FieldsOverrideAdditionalProperties) {
  user().setAnonymous_id("own");
  user().addAdditionalProperty_withStringValue("plan", "gold");
  user().addAdditionalProperty_withStringValue("anonymous_id", "host");
  user().addAdditionalProperty_withStringValue("consent_id", "host");
  EXPECT_EQ(json(user()), R"({"plan":"gold","anonymous_id":"own","consent_id":"host"})");
}

TEST_F(JXUserTest, ReturnsANewObjectPerCall) {
  JXJsonObject block = user().getJsonObject();
  block.set("added", 1);
  EXPECT_FALSE(user().getJsonObject().contains("added"));
}

class JXNetworkTest : public test::JXCoreFixture {
 protected:
  static JXNetwork& network() { return JXNetwork::sharedInstance(); }
};

TEST_F(JXNetworkTest, WritesTheConnectionTypeAfterARefresh) {
  EXPECT_EQ(json(network()), R"({"connection_type":"ethernet"})");
  platform_->network = JXNetworkKind::Wifi;
  EXPECT_EQ(json(network()), R"({"connection_type":"ethernet"})")
      << "read from the system for each event";
  network().refresh();
  EXPECT_EQ(json(network()), R"({"connection_type":"wifi"})");
  platform_->network = JXNetworkKind::Cellular;
  network().refresh();
  EXPECT_EQ(json(network()), R"({"connection_type":"cellular"})");
  platform_->network = JXNetworkKind::None;
  network().refresh();
  EXPECT_EQ(json(network()), R"({"connection_type":"none"})");
}

TEST_F(JXNetworkTest, RefreshesWhenTheApplicationEntersTheForeground) {
  JXCoreInitialisation::init();
  platform_->network = JXNetworkKind::Wifi;
  EXPECT_EQ(json(JXNetwork::sharedInstance()), R"({"connection_type":"ethernet"})");
  JXNotificationCenter::defaultCenter()->postNotification(
      {kJXNotification_OnForeground, nullptr, nullptr});
  EXPECT_EQ(json(JXNetwork::sharedInstance()), R"({"connection_type":"wifi"})");
}

TEST_F(JXNetworkTest, FieldOverridesAdditionalProperties) {
  network().addAdditionalProperty_withStringValue("carrier", "none");
  network().addAdditionalProperty_withStringValue("connection_type", "pigeon");
  EXPECT_EQ(json(network()), R"({"carrier":"none","connection_type":"ethernet"})");
}

TEST_F(JXNetworkTest, WritesNoneForAnUnknownKind) {
  platform_->network = static_cast<JXNetworkKind>(77);
  EXPECT_EQ(json(network()), R"({"connection_type":"none"})");
}

class JXUserDefaultsTest : public test::JXCoreFixture {};

TEST_F(JXUserDefaultsTest, StoreStringsInThePlatformStore) {
  JXUserDefaults::saveInfoToUserDefaults_forLabel("1", "jx_number_sessions");
  EXPECT_EQ(JXUserDefaults::retrieveInfoFromUserDefaults("jx_number_sessions"), JXString("1"));
  EXPECT_EQ(platform_->defaults.entries().at("jx_number_sessions"), JXString("1"));
  JXUserDefaults::saveInfoToUserDefaults_forLabel("", "empty");
  EXPECT_EQ(JXUserDefaults::retrieveInfoFromUserDefaults("empty"), JXString(""));
  JXUserDefaults::saveInfoToUserDefaults_forLabel(nullptr, "jx_number_sessions");
  EXPECT_FALSE(JXUserDefaults::retrieveInfoFromUserDefaults("jx_number_sessions").isPresent());
}

TEST_F(JXUserDefaultsTest, IgnoreNullLabels) {
  JXUserDefaults::saveInfoToUserDefaults_forLabel("1", nullptr);
  EXPECT_EQ(platform_->defaults.setCount(), 0);
  EXPECT_FALSE(JXUserDefaults::retrieveInfoFromUserDefaults(nullptr).isPresent());
  EXPECT_FALSE(JXUserDefaults::retrieveInfoFromUserDefaults("unknown").isPresent());
  EXPECT_EQ(JXUserDefaults::standardUserDefaults(), &platform_->defaults);
}

class JXUserDefaultsWithoutStore : public test::JXCoreFixture {
 protected:
  void prepare() override {
    platform_->hasUserDefaults = false;
    configuration_.storageFolder = nullptr;
  }
};

TEST_F(JXUserDefaultsWithoutStore, DiscardsValuesWithoutAStoreAndAFolder) {
  EXPECT_EQ(JXUserDefaults::standardUserDefaults(), nullptr);
  JXUserDefaults::saveInfoToUserDefaults_forLabel("1", "label");
  EXPECT_FALSE(JXUserDefaults::retrieveInfoFromUserDefaults("label").isPresent());
  EXPECT_TRUE(JXUser::sharedInstance().anonymous_id().testString());
}

}  // namespace
}  // namespace jx
