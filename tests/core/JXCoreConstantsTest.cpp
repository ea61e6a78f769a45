// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreConstants.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(JXCoreConstants, DefineTheBlocksOfThePayload) {
  EXPECT_EQ(kJXCoreVersion, "1.0.0");
  EXPECT_EQ(JXE_CONTEXT, "context");
  EXPECT_EQ(JXE_USER, "user");
  EXPECT_EQ(JX_WAITING_FOR_CONSENT, "waiting_for_consent");
  EXPECT_EQ(JX_GCM_DEVELOPER_ID, "jx_serverside");
  EXPECT_EQ(STATIC_IDFA, "00000000-0000-0000-0000-000000000000");
}

TEST(JXCoreConstants, DefineTheKeysOfTheDeviceBlock) {
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

TEST(JXCoreConstants, DefineTheCoreVariables) {
  EXPECT_EQ(kJXPredefinedVariable_IDFA, "#JX_IDFA#");
  EXPECT_EQ(kJXPredefinedVariable_IDFV, "#JX_IDFV#");
  EXPECT_EQ(kJXPredefinedVariable_SDKID, "#JX_SDK_ID#");
  EXPECT_EQ(kJXPredefinedVariable_UniqueID, "#JX_UNIQUE_ID#");
  EXPECT_EQ(kJXPredefinedVariable_UserAgent, "#JX_USER_AGENT#");
  EXPECT_EQ(kJXPredefinedVariable_isTrackingEnabled, "#JX_IS_TRACKING_ENABLED#");
  EXPECT_EQ(JX_ConsentVersion, "#JX_CONSENT_VERSION#");
}

TEST(JXCoreConstants, DefineTheNotificationNames) {
  EXPECT_EQ(kJXNotification_HTTPRequest, "JXNotification: HTTP Request");
  EXPECT_EQ(kJXNotification_EnablingTheServerSide, "JXNotification: Enabling The Server Side");
  EXPECT_EQ(kJXNotification_StoppingTheServerSide, "JXNotification: Stopping The Server Side");
  EXPECT_EQ(kJXNotification_OnBackground, "JXNotification: On Background");
  EXPECT_EQ(kJXNotification_OnForeground, "JXNotification: On Foreground");
  EXPECT_EQ(kJXNotification_UserAgentAvailable, "JXNotification: User Agent Available");
  EXPECT_EQ(kJXNotification_HitSent, "JXNotification: Hit Sent");
  EXPECT_EQ(UIApplicationDidEnterBackgroundNotification,
            "UIApplicationDidEnterBackgroundNotification");
  EXPECT_EQ(UIApplicationWillEnterForegroundNotification,
            "UIApplicationWillEnterForegroundNotification");
}

TEST(JXCoreConstants, DefineDistinctUserInfoKeys) {
  EXPECT_NE(kJXUserInfo_URLKey, kJXUserInfo_POSTData);
  EXPECT_NE(kJXUserInfo_URLKey, kJXUserInfo_DataKey);
  EXPECT_NE(kJXUserInfo_POSTData, kJXUserInfo_DataKey);
}

}  // namespace
}  // namespace jx
