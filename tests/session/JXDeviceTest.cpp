// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXDevice.h"

#include <gmock/gmock.h>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::ElementsAre;

class DeviceBlock : public ServerSideFixture {
 protected:
  // Returns the block without its lifecycle block, which has its own tests.
  static std::string json() {
    JXJsonObject block = JXDevice::sharedInstance().getJsonObject();
    block.remove("lifecycle");
    return JXJsonWriter::write(block, JXJsonStyle::Compact).text;
  }
  static JXJsonObject block() { return JXDevice::sharedInstance().getJsonObject(); }
  static JXPredefinedVariables& variables() { return JXPredefinedVariables::sharedInstance(); }
};

class BaselessDevice final : public JXDevice {
 protected:
  bool baseInit() override { return false; }
};

TEST_F(DeviceBlock, KeyConstantsMatchTheCore) {
  EXPECT_EQ(JXD_DEVICE, "device");
  EXPECT_EQ(JXD_ADTRACKING, "ad_tracking");
  EXPECT_EQ(JXD_IDFA, "idfa");
  EXPECT_EQ(JXD_IDFV, "idfv");
  EXPECT_EQ(JXD_LANGUAGE, "language");
  EXPECT_EQ(JXD_MANUFACTURER, "manufacturer");
  EXPECT_EQ(JXD_MODEL, "model");
  EXPECT_EQ(JXD_NAME, "name");
  EXPECT_EQ(JXD_NETWORK, "network");
  EXPECT_EQ(JXD_OS, "os");
  EXPECT_EQ(JXD_OS_NAME, "name");
  EXPECT_EQ(JXD_OS_VERSION, "version");
  EXPECT_EQ(JXD_REGION, "region");
  EXPECT_EQ(JXD_SCREEN, "screen");
  EXPECT_EQ(JXD_SCREEN_HEIGHT, "height");
  EXPECT_EQ(JXD_SCREEN_WIDTH, "width");
  EXPECT_EQ(JXD_SDK_ID, "sdk_id");
  EXPECT_EQ(JXD_TIMEZONE, "timezone");
  EXPECT_EQ(JXD_TYPE, "type");
  EXPECT_EQ(JXD_USER_AGENT, "user_agent");
}

TEST_F(DeviceBlock, WritesKeysInOrder) {
  platform->trackingAllowed = true;
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  JXCoreVariables::sharedInstance().addData_withValue(kJXPredefinedVariable_UserAgent, "Agent/1");
  EXPECT_EQ(json(),
            R"({"ad_tracking":true,"user_agent":"Agent/1",)"
            R"("idfa":"11111111-2222-4333-8444-555555555555",)"
            R"("idfv":"66666666-7777-4888-8999-AAAAAAAAAAAA",)"
            R"("sdk_id":"00000000-0000-4000-8000-000000000001","language":"en","region":"GB",)"
            R"("manufacturer":"Apple","model":"ExampleTV6,2","name":"Example Television",)"
            R"("type":"tvos","network":{"connection_type":"ethernet"},)"
            R"("os":{"name":"tvos","version":"17.4"},"screen":{"width":1920,"height":1080},)"
            R"("timezone":"Europe/London"})");
  const JXJsonObject whole = block();
  ASSERT_FALSE(whole.entries().empty());
  EXPECT_EQ(whole.entries().back().key, JXString("lifecycle"));
}

TEST_F(DeviceBlock, TypeAndOsNameAreIndependentFields) {
  const auto serverSide = make();
  JXDevice& device = JXDevice::sharedInstance();
  EXPECT_EQ(device.type(), JXString("tvos"));
  EXPECT_EQ(device.osName(), JXString("tvos"));
  device.setType("tv");
  EXPECT_EQ(inside(block(), {"os"}).get("name").string(), JXString("tvos"));
  EXPECT_EQ(block().get("type").string(), JXString("tv"));
}

TEST_F(DeviceBlock, ReportsTrackingOnlyForStringOne) {
  const auto serverSide = make();
  JXDevice& device = JXDevice::sharedInstance();
  EXPECT_FALSE(block().contains("ad_tracking")) << "no value";
  for (const char* value : {"0", "true", "TRUE", "True", "yes", "01", " 1", "10"}) {
    device.setAdTrackingEnabled(value);
    EXPECT_EQ(block().get("ad_tracking").kind(), JXJsonValue::Kind::Bool) << value;
    EXPECT_FALSE(block().get("ad_tracking").boolValue()) << value;
  }
  device.setAdTrackingEnabled("1");
  EXPECT_TRUE(block().get("ad_tracking").boolValue());
  device.setAdTrackingEnabled("");
  EXPECT_FALSE(block().contains("ad_tracking"));
  device.setAdTrackingEnabled(nullptr);
  EXPECT_FALSE(block().contains("ad_tracking"));
}

TEST_F(DeviceBlock, OmitsOnlyTheScreenWidthIfNotANumber) {
  for (const char* width : {"abc", "", "12px", " 1920"}) {
    EXPECT_EQ(inLaunch([&]() -> std::string {
                start();
                variables().addData_withValue(kJXPredefinedVariable_ScreenWidth, width);
                return JXJsonWriter::write(inside(block(), {"screen"}), JXJsonStyle::Compact).text;
              }),
              R"({"height":1080})")
        << width;
  }
}

TEST_F(DeviceBlock, OmitsOnlyTheScreenHeightIfNotSet) {
  start();
  variables().removeData(kJXPredefinedVariable_ScreenHeight);
  EXPECT_EQ(JXJsonWriter::write(inside(block(), {"screen"}), JXJsonStyle::Compact).text,
            R"({"width":1920})");
}

TEST_F(DeviceBlock, WritesScreenSizesExactly) {
  start();
  variables().addData_withValue(kJXPredefinedVariable_ScreenWidth, "1920.50");
  EXPECT_EQ(inside(block(), {"screen"}).get("width").numberString(), JXString("1920.50"));
  JXDevice::sharedInstance().setScreenWidth(std::nullopt);
  EXPECT_FALSE(inside(block(), {"screen"}).contains("width"));
}

TEST_F(DeviceBlock, ReinitKeepsSizeIfNewStringIsNotANumber) {
  const auto serverSide = make();
  JXDevice& device = JXDevice::sharedInstance();
  variables().addData_withValue(kJXPredefinedVariable_ScreenWidth, "abc");
  variables().addData_withValue(kJXPredefinedVariable_ScreenHeight, "720");
  device.reinit();
  EXPECT_EQ(device.screenWidth()->toString(), "1920");
  EXPECT_EQ(device.screenHeight()->toString(), "720");
}

TEST_F(DeviceBlock, ReinitReadsIdentityAgainAndKeepsOtherValues) {
  platform->trackingAllowed = true;
  const auto serverSide = make();
  JXDevice& device = JXDevice::sharedInstance();
  serverSide->addAdvertisingIDs();
  device.setUser_agent("Agent/1");
  device.addAdditionalProperty_withStringValue("room", "kitchen");
  device.getOsProperties()->addAdditionalProperty_withStringValue("kernel", "k");
  device.getScreenProperties()->addAdditionalProperty_withStringValue("panel", "p");
  EXPECT_TRUE(inside(block(), {"os"}).contains("kernel"));

  for (const auto key : {kJXPredefinedVariable_Language, kJXPredefinedVariable_Region,
                         kJXPredefinedVariable_Model, kJXPredefinedVariable_Manufacturer,
                         kJXPredefinedVariable_Device, kJXPredefinedVariable_RuntimeName,
                         kJXPredefinedVariable_SystemVersion, kJXPredefinedVariable_SDKID}) {
    variables().addData_withValue(key, "new");
  }
  platform->timeZone = "Asia/Tokyo";
  EXPECT_EQ(device.language(), JXString("en")) << "read once";
  EXPECT_EQ(device.reinit(), &device);
  EXPECT_EQ(json(),
            R"({"room":"kitchen","ad_tracking":true,"user_agent":"Agent/1",)"
            R"("idfa":"11111111-2222-4333-8444-555555555555",)"
            R"("idfv":"66666666-7777-4888-8999-AAAAAAAAAAAA",)"
            R"("sdk_id":"new","language":"new","region":"new","manufacturer":"new","model":"new",)"
            R"("name":"new","type":"new","network":{"connection_type":"ethernet"},)"
            R"("os":{"name":"new","version":"new"},"screen":{"width":1920,"height":1080},)"
            R"("timezone":"Asia/Tokyo"})");
}

TEST_F(DeviceBlock, SecondInitChangesNothing) {
  const auto serverSide = make();
  JXDevice& device = JXDevice::sharedInstance();
  variables().addData_withValue(kJXPredefinedVariable_Language, "fr");
  const auto os = device.getOsProperties();
  EXPECT_EQ(device.init(), &device);
  EXPECT_EQ(device.language(), JXString("en"));
  EXPECT_EQ(device.getOsProperties(), os);
  EXPECT_EQ(device.osProperties(), os);
  EXPECT_EQ(device.screenProperties(), device.getScreenProperties());
  EXPECT_NE(device.screenProperties(), nullptr);
}

TEST_F(DeviceBlock, InitLeavesSecondInstanceUnchanged) {
  const auto serverSide = make();
  JXDevice::sharedInstance();
  JXDevice other;
  EXPECT_EQ(other.init(), &other);
  EXPECT_FALSE(other.language().isPresent());
  EXPECT_FALSE(other.timezone().isPresent());
  EXPECT_FALSE(other.screenWidth().has_value());
  EXPECT_EQ(other.getOsProperties(), nullptr);
  EXPECT_TRUE(other.getJsonObject().get("os").object().isPresent());
}

TEST_F(DeviceBlock, InitReturnsNullAndBlocksLaterCallsIfBaseFails) {
  start();
  BaselessDevice device;
  EXPECT_TRUE(neverReturns([&] { ASSERT_EQ(device.init(), nullptr); }, [&] { device.init(); }));
}

TEST_F(DeviceBlock, OmitsSdkIdIfCreatedBeforeTheFirstServerSide) {
  start();
  JXDevice& device = JXDevice::sharedInstance();
  EXPECT_FALSE(device.sdkID().isPresent());
  const auto serverSide = make();
  EXPECT_FALSE(inside(execute(*serverSide).body, {"context", "device"}).contains("sdk_id"));
  device.reinit();
  EXPECT_EQ(inside(execute(*serverSide).body, {"context", "device"}).get("sdk_id").string(),
            JXString("00000000-0000-4000-8000-000000000001"));
}

TEST_F(DeviceBlock, ReadsUserAgentOnce) {
  const auto serverSide = make();
  JXCoreVariables& core = JXCoreVariables::sharedInstance();
  EXPECT_FALSE(block().contains("user_agent"));
  core.addData_withValue(kJXPredefinedVariable_UserAgent, "Agent/1");
  EXPECT_EQ(block().get("user_agent").string(), JXString("Agent/1"));
  core.addData_withValue(kJXPredefinedVariable_UserAgent, "Agent/2");
  EXPECT_EQ(block().get("user_agent").string(), JXString("Agent/1"));
}

TEST_F(DeviceBlock, KeepsEmptyUserAgent) {
  const auto serverSide = make();
  JXCoreVariables& core = JXCoreVariables::sharedInstance();
  core.addData_withValue(kJXPredefinedVariable_UserAgent, "");
  EXPECT_EQ(block().get("user_agent").string(), JXString(""));
  core.addData_withValue(kJXPredefinedVariable_UserAgent, "Agent/2");
  EXPECT_EQ(block().get("user_agent").string(), JXString(""));
}

TEST_F(DeviceBlock, FieldsOverrideAdditionalProperties) {
  const auto serverSide = make();
  JXDevice& device = JXDevice::sharedInstance();
  device.addAdditionalProperty_withStringValue("language", "forged");
  device.addAdditionalProperty_withStringValue("idfa", "kept, no field overrides it");
  device.getOsProperties()->addAdditionalProperty_withStringValue("name", "forged");
  device.getScreenProperties()->addAdditionalProperty_withStringValue("width", "forged");
  EXPECT_EQ(block().get("language").string(), JXString("en"));
  EXPECT_EQ(block().get("idfa").string(), JXString("kept, no field overrides it"));
  EXPECT_EQ(inside(block(), {"os"}).get("name").string(), JXString("tvos"));
  EXPECT_EQ(inside(block(), {"screen"}).get("width").numberString(), JXString("1920"));
}

TEST_F(DeviceBlock, AlwaysContainsLifecycleObject) {
  const auto serverSide = make();
  variables().clearData();
  const JXJsonObject lifecycle = block().get("lifecycle").object();
  ASSERT_TRUE(lifecycle.isPresent());
  EXPECT_EQ(JXJsonWriter::write(lifecycle, JXJsonStyle::Compact).text,
            R"({"new_session":false,"first_execute":false,"is_first_visit":false})");
}

TEST_F(DeviceBlock, CopiesAdvertisingValuesUnchanged) {
  const auto serverSide = make();
  JXCoreVariables& core = JXCoreVariables::sharedInstance();
  core.addData_withValue(kJXPredefinedVariable_isTrackingEnabled, "maybe");
  core.addData_withValue(kJXPredefinedVariable_IDFA, "");
  core.addData_withValue(kJXPredefinedVariable_IDFV, "v");
  JXDevice& device = JXDevice::sharedInstance();
  device.setAdvertisingIds();
  EXPECT_EQ(device.adTrackingEnabled(), JXString("maybe"));
  EXPECT_EQ(device.IDFA(), JXString(""));
  EXPECT_EQ(device.IDFV(), JXString("v"));
  core.addData_withValue(kJXPredefinedVariable_IDFV, nullptr);
  EXPECT_EQ(device.IDFV(), JXString("v"));
  device.setAdvertisingIds();
  EXPECT_FALSE(device.IDFV().isPresent());
}

TEST_F(DeviceBlock, ReturnsNewObjectOnEachCall) {
  const auto serverSide = make();
  JXJsonObject first = block();
  first.set("stray", true);
  first.get("os").object().set("stray", true);
  EXPECT_FALSE(block().contains("stray"));
  EXPECT_FALSE(inside(block(), {"os"}).contains("stray"));
}

TEST_F(DeviceBlock, GettersReturnWhatSettersStored) {
  start();
  JXDevice device;
  device.setSdkID("1");
  device.setLanguage("2");
  device.setRegion("3");
  device.setManufacturer("4");
  device.setModel("5");
  device.setName("6");
  device.setType("7");
  device.setTimezone("8");
  device.setIDFA("9");
  device.setIDFV("10");
  device.setAdTrackingEnabled("11");
  device.setUser_agent("12");
  device.setOsName("13");
  device.setOsVersion("14");
  device.setScreenWidth(JXDecimal(15));
  device.setScreenHeight(JXDecimal(16));
  EXPECT_THAT(
      (std::vector<JXString>{
          device.sdkID(), device.language(), device.region(), device.manufacturer(), device.model(),
          device.name(), device.type(), device.timezone(), device.IDFA(), device.IDFV(),
          device.adTrackingEnabled(), device.user_agent(), device.osName(), device.osVersion()}),
      ElementsAre("1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14"));
  EXPECT_EQ(device.screenWidth(), JXDecimal(15));
  EXPECT_EQ(device.screenHeight(), JXDecimal(16));
}

}  // namespace
}  // namespace jx::test
