// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXUserDefaults.h"
#include "tests/platform/apple/fakes/Fakes.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

// The library as an application starts it, with the default platform.
class WholeLibrary : public ServerSideFixture {
 protected:
  WholeLibrary() {
    configuration.platform = nullptr;
    setFakePath({true, 3});
  }
};

TEST_F(WholeLibrary, WritesTheAppleDevice) {
  const auto serverSide = make();
  const JXJsonObject device = inside(context(execute(*serverSide)), {"device"});
  EXPECT_EQ(device.get("name").string(), JXString("Apple TV"));
  EXPECT_EQ(device.get("manufacturer").string(), JXString("Apple"));
  EXPECT_EQ(device.get("type").string(), JXString("tvos"));
  EXPECT_EQ(inside(device, {"os"}).get("version").string(), JXString("12.4"));
  EXPECT_EQ(inside(device, {"screen"}).get("width").decimal(), JXDecimal(1920));
  EXPECT_EQ(inside(device, {"network"}).get("connection_type").string(), JXString("ethernet"));
}

TEST_F(WholeLibrary, WritesTheApplicationBundle) {
  const auto serverSide = make();
  const JXJsonObject app = inside(context(execute(*serverSide)), {"app"});
  EXPECT_EQ(app.get("name").string(), JXString("Bundle TV"));
  EXPECT_EQ(variable("#JX_BUNDLE_IDENTIFIER#"), JXString("com.example.bundle"));
  EXPECT_EQ(variable("#JX_APPLICATION_VERSION#"), JXString("7.0"));
  EXPECT_EQ(variable("#JX_APPLICATION_BUILD#"), JXString("77"));
}

TEST_F(WholeLibrary, SendsTheIdentifierWithAuthorisation) {
  fakeDevice().systemVersion = "14.0";
  fakeAdvertising().authorisation = 3;
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  const JXJsonObject device = inside(context(execute(*serverSide)), {"device"});
  EXPECT_TRUE(device.get("ad_tracking").boolValue());
  EXPECT_EQ(device.get("idfa").string(), JXString("EA7583CD-A667-48BC-B806-42ECB2B48606"));
  EXPECT_EQ(device.get("idfv").string(), JXString("6F9619FF-8B86-D011-B42D-00C04FC964FF"));
}

TEST_F(WholeLibrary, DoesNotSendTheIdentifierWithoutAuthorisation) {
  fakeDevice().systemVersion = "14.0";
  fakeAdvertising().authorisation = 2;
  fakeAdvertising().isTrackingEnabled = true;
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  const Request request = execute(*serverSide);
  const JXJsonObject device = inside(context(request), {"device"});
  EXPECT_FALSE(device.get("ad_tracking").boolValue());
  EXPECT_EQ(device.get("idfa").string(), JXString("00000000-0000-0000-0000-000000000000"));
  EXPECT_EQ(request.text.find("EA7583CD"), std::string::npos);
}

TEST_F(WholeLibrary, ObservesTransitionsOfTheSystem) {
  make();
  postFakeDidEnterBackground();
  EXPECT_EQ(posted(kJXNotification_OnBackground).size(), 1U);
  EXPECT_EQ(posted(kJXNotification_OnForeground).size(), 0U);
  postFakeWillEnterForeground();
  EXPECT_EQ(posted(kJXNotification_OnForeground).size(), 1U);
}

TEST_F(WholeLibrary, PostsTransitionsWithTheApplicationObject) {
  make();
  postFakeDidEnterBackground();
  postFakeWillEnterForeground();
  const auto entered = posted(UIApplicationDidEnterBackgroundNotification);
  const auto left = posted(UIApplicationWillEnterForegroundNotification);
  ASSERT_EQ(entered.size(), 1U);
  ASSERT_EQ(left.size(), 1U);
  ASSERT_NE(fakeApplication(), nullptr);
  EXPECT_EQ(entered[0].object, fakeApplication());
  EXPECT_EQ(left[0].object, fakeApplication());
}

TEST_F(WholeLibrary, StoresTheIdentifierInTheUserDefaults) {
  make();
  const JXString stored = JXUserDefaults::retrieveInfoFromUserDefaults("jx_unique_id");
  EXPECT_EQ(stored.size(), 36U);
  EXPECT_EQ(stored, variable(kJXPredefinedVariable_UniqueID));
}

}  // namespace
}  // namespace jx::test
