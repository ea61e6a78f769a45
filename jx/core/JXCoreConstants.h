// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

inline constexpr std::string_view kJXCoreVersion = "1.0.0";

/// @name Blocks of the payload
/// @{
inline constexpr std::string_view JXE_CONTEXT = "context";
inline constexpr std::string_view JXE_USER = "user";
/// Replaces the user block while the viewer's consent is pending.
inline constexpr std::string_view JX_WAITING_FOR_CONSENT = "waiting_for_consent";
/// @}

/// @name Keys of the device block
/// @{
inline constexpr std::string_view JXD_DEVICE = "device";
inline constexpr std::string_view JXD_ADTRACKING = "ad_tracking";
inline constexpr std::string_view JXD_IDFA = "idfa";
inline constexpr std::string_view JXD_IDFV = "idfv";
inline constexpr std::string_view JXD_LANGUAGE = "language";
inline constexpr std::string_view JXD_MANUFACTURER = "manufacturer";
inline constexpr std::string_view JXD_MODEL = "model";
inline constexpr std::string_view JXD_NAME = "name";
inline constexpr std::string_view JXD_NETWORK = "network";
inline constexpr std::string_view JXD_OS = "os";
inline constexpr std::string_view JXD_OS_NAME = "name";
inline constexpr std::string_view JXD_OS_VERSION = "version";
inline constexpr std::string_view JXD_REGION = "region";
inline constexpr std::string_view JXD_SCREEN = "screen";
inline constexpr std::string_view JXD_SCREEN_HEIGHT = "height";
inline constexpr std::string_view JXD_SCREEN_WIDTH = "width";
inline constexpr std::string_view JXD_SDK_ID = "sdk_id";
inline constexpr std::string_view JXD_TIMEZONE = "timezone";
inline constexpr std::string_view JXD_TYPE = "type";
inline constexpr std::string_view JXD_USER_AGENT = "user_agent";
/// @}

/// @name Keys of the core's own variables
/// @{
inline constexpr std::string_view kJXPredefinedVariable_IDFA = "#JX_IDFA#";
inline constexpr std::string_view kJXPredefinedVariable_IDFV = "#JX_IDFV#";
inline constexpr std::string_view kJXPredefinedVariable_SDKID = "#JX_SDK_ID#";
inline constexpr std::string_view kJXPredefinedVariable_UniqueID = "#JX_UNIQUE_ID#";
inline constexpr std::string_view kJXPredefinedVariable_UserAgent = "#JX_USER_AGENT#";
inline constexpr std::string_view kJXPredefinedVariable_isTrackingEnabled =
    "#JX_IS_TRACKING_ENABLED#";
inline constexpr std::string_view JX_ConsentVersion = "#JX_CONSENT_VERSION#";

/// Advertising identifier of a viewer for whom tracking is off.
inline constexpr std::string_view STATIC_IDFA = "00000000-0000-0000-0000-000000000000";
/// Developer ID that is set on a Firebase instance.
inline constexpr std::string_view JX_GCM_DEVELOPER_ID = "jx_serverside";
/// @}

/// @name Names of notifications
/// @{
inline constexpr std::string_view kJXNotification_HTTPRequest = "JXNotification: HTTP Request";
inline constexpr std::string_view kJXNotification_EnablingTheServerSide =
    "JXNotification: Enabling The Server Side";
inline constexpr std::string_view kJXNotification_StoppingTheServerSide =
    "JXNotification: Stopping The Server Side";
inline constexpr std::string_view kJXNotification_OnBackground = "JXNotification: On Background";
inline constexpr std::string_view kJXNotification_OnForeground = "JXNotification: On Foreground";
inline constexpr std::string_view kJXNotification_UserAgentAvailable =
    "JXNotification: User Agent Available";
/// Reserved for applications; the library never posts it.
inline constexpr std::string_view kJXNotification_HitSent = "JXNotification: Hit Sent";
/// @}

/// @name Names of the system's application notifications
/// @{
inline constexpr std::string_view UIApplicationDidEnterBackgroundNotification =
    "UIApplicationDidEnterBackgroundNotification";
inline constexpr std::string_view UIApplicationWillEnterForegroundNotification =
    "UIApplicationWillEnterForegroundNotification";
/// @}

/// @name Keys of a notification's userInfo
/// @{
inline constexpr std::string_view kJXUserInfo_URLKey = "JXUserInfo: URL";
inline constexpr std::string_view kJXUserInfo_POSTData = "JXUserInfo: POST Data";
inline constexpr std::string_view kJXUserInfo_DataKey = "JXUserInfo: Data";
/// @}

}  // namespace jx
