// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXApplePlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "jx/core/JXClassRegistry.h"
#include "tests/platform/apple/fakes/Fakes.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

class ApplePlatform : public ::testing::Test {
 protected:
  ApplePlatform() {
    fakeDevice() = {};
    fakeAdvertising() = {};
  }

  JXApplePlatform& platform() {
    if (!platform_) {
      platform_ = std::make_unique<JXApplePlatform>(
          overrides_, JXAppleSystem{root_.path(),
                                    [this](const char* name) -> void* {
                                      return name == missingClass_ ? nullptr : loadedClass(name);
                                    },
                                    [this] { return reading_; }});
    }
    return *platform_;
  }

  JXString userAgent() {
    JXString result("never called");
    platform().requestUserAgent([&result](const JXString& text) { result = text; });
    return result;
  }

  TemporaryFolder root_;
  JXHostOverrides overrides_;
  JXNetworkReading reading_;
  std::string missingClass_;  // a class that the run time does not have
  std::unique_ptr<JXApplePlatform> platform_;
};

TEST_F(ApplePlatform, ReturnsTheDeviceValuesOfUIKit) {
  EXPECT_EQ(platform().deviceModel(), JXString("Apple TV"));
  EXPECT_EQ(platform().systemName(), JXString("tvOS"));
  EXPECT_EQ(platform().systemVersion(), JXString("12.4"));
  EXPECT_EQ(platform().vendorIdentifier(), JXString("6F9619FF-8B86-D011-B42D-00C04FC964FF"));
}

TEST_F(ApplePlatform, ReturnsNullForValuesUnknownToUIKit) {
  fakeDevice().model = nullptr;
  fakeDevice().vendorIdentifier = nullptr;
  EXPECT_EQ(platform().deviceModel(), JXString());
  EXPECT_EQ(platform().vendorIdentifier(), JXString());
}

TEST_F(ApplePlatform, ReturnsTheMainScreenInPoints) {
  EXPECT_EQ(platform().screenBounds().width, 1920);
  EXPECT_EQ(platform().screenBounds().height, 1080);
}

TEST_F(ApplePlatform, ReturnsZeroBoundsWithoutAScreen) {
  fakeDevice().hasScreen = false;
  EXPECT_EQ(platform().screenBounds().width, 0);
  EXPECT_EQ(platform().screenBounds().height, 0);
}

TEST_F(ApplePlatform, IgnoresAConfiguredScreenWithoutHeight) {
  overrides_.screen = {640, 0};
  EXPECT_EQ(platform().screenBounds().width, 1920);
}

TEST_F(ApplePlatform, AllowsTrackingOnlyInAuthorisationStateThree) {
  fakeDevice().systemVersion = "14.0";
  fakeAdvertising().isTrackingEnabled = true;
  for (const unsigned long denied : {0UL, 1UL, 2UL, 4UL}) {
    fakeAdvertising().authorisation = denied;
    EXPECT_FALSE(platform().isAdvertisingTrackingAllowed()) << denied;
  }
  fakeAdvertising().authorisation = 3;
  EXPECT_TRUE(platform().isAdvertisingTrackingAllowed());
}

TEST_F(ApplePlatform, UsesTheAdSupportSettingBeforeTvOS14) {
  fakeDevice().systemVersion = "13.4.8";
  fakeAdvertising().authorisation = 3;
  fakeAdvertising().isTrackingEnabled = false;
  EXPECT_FALSE(platform().isAdvertisingTrackingAllowed());
  fakeAdvertising().isTrackingEnabled = true;
  fakeAdvertising().authorisation = 0;
  EXPECT_TRUE(platform().isAdvertisingTrackingAllowed());
}

TEST_F(ApplePlatform, RequiresAuthorisationFromTvOS14) {
  fakeAdvertising().isTrackingEnabled = true;
  for (const char* const version : {"14", "14.0", "18.2", "100.1", "unknown"}) {
    fakeDevice().systemVersion = version;
    fakeAdvertising().authorisation = 0;
    EXPECT_FALSE(platform().isAdvertisingTrackingAllowed()) << version;
    fakeAdvertising().authorisation = 3;
    EXPECT_TRUE(platform().isAdvertisingTrackingAllowed()) << version;
  }
}

TEST_F(ApplePlatform, DisallowsTrackingFromTvOS14WithoutItsFramework) {
  fakeDevice().systemVersion = "14.0";
  missingClass_ = "ATTrackingManager";
  fakeAdvertising().isTrackingEnabled = true;
  fakeAdvertising().authorisation = 3;
  EXPECT_FALSE(platform().isAdvertisingTrackingAllowed());
}

TEST_F(ApplePlatform, FindsModulesByTheNameOfTheirClass) {
  platform();
  EXPECT_TRUE(JXClassRegistry::sharedInstance().hasClass("NSObject"));
  EXPECT_FALSE(JXClassRegistry::sharedInstance().hasClass("JXMobileConsent"));
  EXPECT_FALSE(JXClassRegistry::sharedInstance().hasClass(nullptr));
}

TEST_F(ApplePlatform, ReturnsTheAdSupportIdentifier) {
  EXPECT_EQ(platform().advertisingIdentifier(), JXString("EA7583CD-A667-48BC-B806-42ECB2B48606"));
}

TEST_F(ApplePlatform, ReturnsNoAdvertisingIdentifierWithoutAdSupport) {
  missingClass_ = "ASIdentifierManager";
  EXPECT_EQ(platform().advertisingIdentifier(), JXString());
}

TEST_F(ApplePlatform, DisallowsTrackingWithoutFrameworks) {
  JXApplePlatform bare(overrides_, {root_.path(), [](const char*) -> void* { return nullptr; },
                                    [] { return JXNetworkReading{}; }});
  EXPECT_FALSE(bare.isAdvertisingTrackingAllowed());
  EXPECT_EQ(bare.advertisingIdentifier(), JXString());
}

TEST_F(ApplePlatform, ReportsAnUnmodifiedDevice) { EXPECT_FALSE(platform().isDeviceModified()); }

TEST_F(ApplePlatform, ReportsAModifiedDeviceForAPackageManager) {
  root_.makeFolder("etc/apt");
  EXPECT_TRUE(platform().isDeviceModified());
}

TEST_F(ApplePlatform, ReportsAModifiedDeviceForABrokenLink) {
  root_.link("private/var/jb", "/nowhere");
  EXPECT_TRUE(platform().isDeviceModified());
}

TEST_F(ApplePlatform, BuildsTheUserAgentFromSystemVersionAndMachine) {
  fakeDevice().systemName = "tv OS";
  const std::string machine = platform().machineName().toStdString();
  EXPECT_EQ(userAgent().toStdString().substr(0, 12), "tv-OS/12.4 (");
  EXPECT_EQ(userAgent().toStdString().substr(12, 3), machine.substr(0, 3));
}

TEST_F(ApplePlatform, ReturnsNoUserAgentWithoutASystemName) {
  fakeDevice().systemName = nullptr;
  EXPECT_EQ(userAgent(), JXString());
}

TEST_F(ApplePlatform, UsesTheCachesFolder) {
  EXPECT_EQ(platform().defaultStorageFolder(),
            JXString(std::string(std::getenv("JX_TEST_HOME")) + "/Library/Caches/jxserverside"));
}

TEST_F(ApplePlatform, IgnoresDefaultsWithoutAName) {
  JXPlatformDefaults& defaults = *platform().userDefaults();
  for (const JXString& key : {JXString(), JXString(""), JXString("\xFF")}) {
    defaults.setObject_forKey("text", key);
    EXPECT_EQ(defaults.objectForKey(key), JXString());
  }
}

}  // namespace
}  // namespace jx::test
