// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue by scripts/catalogue. Do not edit.
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

// Values of the enumerations are numbered from 0. A value outside the enumeration has no string.

/// The modes of JXVideoPlaybackEvent; the string of a mode is the event name.
typedef NS_ENUM(int32_t, EJXVideoPlaybackMode) {
  /// "video_start"
  EJXVideoPlaybackMode_START JX_SWIFT_NAME("start") = 0,
  /// "video_pause"
  EJXVideoPlaybackMode_PAUSE JX_SWIFT_NAME("pause") = 1,
  /// "video_error"
  EJXVideoPlaybackMode_ERROR JX_SWIFT_NAME("error") = 2,
  /// "video_buffer_start"
  EJXVideoPlaybackMode_BUFFER_START JX_SWIFT_NAME("bufferStart") = 3,
  /// "video_buffer_complete"
  EJXVideoPlaybackMode_BUFFER_COMPLETE JX_SWIFT_NAME("bufferComplete") = 4,
  /// "video_seek_start"
  EJXVideoPlaybackMode_SEEK_START JX_SWIFT_NAME("seekStart") = 5,
  /// "video_seek_complete"
  EJXVideoPlaybackMode_SEEK_COMPLETE JX_SWIFT_NAME("seekComplete") = 6,
  /// "video_resume"
  EJXVideoPlaybackMode_RESUME JX_SWIFT_NAME("resume") = 7,
  /// "video_complete"
  EJXVideoPlaybackMode_COMPLETE JX_SWIFT_NAME("complete") = 8,
};
/// The JSON string of each value.
JX_OBJC_EXTERN NSString* const _Nonnull EJXVideoPlaybackMode_toString[9];

/// The modes of JXVideoAdEvent; the string of a mode is the event name.
typedef NS_ENUM(int32_t, EJXVideoAdMode) {
  /// "video_ad_start"
  EJXVideoAdMode_START JX_SWIFT_NAME("start") = 0,
  /// "video_ad_playing"
  EJXVideoAdMode_PLAYING JX_SWIFT_NAME("playing") = 1,
  /// "video_ad_stop"
  EJXVideoAdMode_STOP JX_SWIFT_NAME("stop") = 2,
  /// "video_ad_complete"
  EJXVideoAdMode_COMPLETE JX_SWIFT_NAME("complete") = 3,
  /// "video_ad_skip"
  EJXVideoAdMode_SKIP JX_SWIFT_NAME("skip") = 4,
  /// "video_ad_break_start"
  EJXVideoAdMode_BREAK_START JX_SWIFT_NAME("breakStart") = 5,
  /// "video_ad_break_complete"
  EJXVideoAdMode_BREAK_COMPLETE JX_SWIFT_NAME("breakComplete") = 6,
  /// "video_ad_click"
  EJXVideoAdMode_CLICK JX_SWIFT_NAME("click") = 7,
};
/// The JSON string of each value.
JX_OBJC_EXTERN NSString* const _Nonnull EJXVideoAdMode_toString[8];

/// The modes of JXVideoContentEvent; the string of a mode is the event name.
typedef NS_ENUM(int32_t, EJXVideoContentMode) {
  /// "video_content_start"
  EJXVideoContentMode_START JX_SWIFT_NAME("start") = 0,
  /// "video_content_playing"
  EJXVideoContentMode_PLAYING JX_SWIFT_NAME("playing") = 1,
  /// "video_content_quarter_reached"
  EJXVideoContentMode_QUARTER_REACHED JX_SWIFT_NAME("quarterReached") = 2,
  /// "video_content_complete"
  EJXVideoContentMode_COMPLETE JX_SWIFT_NAME("complete") = 3,
};
/// The JSON string of each value.
JX_OBJC_EXTERN NSString* const _Nonnull EJXVideoContentMode_toString[4];

/// The modes of JXVideoSettingEvent; the string of a mode is the event name.
typedef NS_ENUM(int32_t, EJXVideoSettingMode) {
  /// "video_volume"
  EJXVideoSettingMode_VOLUME JX_SWIFT_NAME("volume") = 0,
  /// "video_speed"
  EJXVideoSettingMode_SPEED JX_SWIFT_NAME("speed") = 1,
  /// "video_subtitle_on"
  EJXVideoSettingMode_SUBTITLE_ON JX_SWIFT_NAME("subtitleOn") = 2,
  /// "video_subtitle_off"
  EJXVideoSettingMode_SUBTITLE_OFF JX_SWIFT_NAME("subtitleOff") = 3,
  /// "video_fullscreen_on"
  EJXVideoSettingMode_FULLSCREEN_ON JX_SWIFT_NAME("fullscreenOn") = 4,
  /// "video_fullscreen_off"
  EJXVideoSettingMode_FULLSCREEN_OFF JX_SWIFT_NAME("fullscreenOff") = 5,
  /// "video_quality"
  EJXVideoSettingMode_QUALITY JX_SWIFT_NAME("quality") = 6,
  /// "video_share"
  EJXVideoSettingMode_SHARE JX_SWIFT_NAME("share") = 7,
};
/// The JSON string of each value.
JX_OBJC_EXTERN NSString* const _Nonnull EJXVideoSettingMode_toString[8];

/// The position of an advertisement in the video. Unlike all other strings of the video events,
/// these contain hyphens.
typedef NS_ENUM(int32_t, EJXAdType) {
  /// "pre-roll"
  EJXAdType_PRE_ROLL JX_SWIFT_NAME("preRoll") = 0,
  /// "mid-roll"
  EJXAdType_MID_ROLL JX_SWIFT_NAME("midRoll") = 1,
  /// "post-roll"
  EJXAdType_POST_ROLL JX_SWIFT_NAME("postRoll") = 2,
};
/// The JSON string of each value.
JX_OBJC_EXTERN NSString* const _Nonnull EJXAdType_toString[3];

/// The way an advertisement is loaded.
typedef NS_ENUM(int32_t, EJXAdLoadType) {
  /// "dynamic"
  EJXAdLoadType_DYNAMIC JX_SWIFT_NAME("dynamic") = 0,
  /// "linear"
  EJXAdLoadType_LINEAR JX_SWIFT_NAME("linear") = 1,
};
/// The JSON string of each value.
JX_OBJC_EXTERN NSString* const _Nonnull EJXAdLoadType_toString[2];

/// The class that the key constants belong to. It has no members.
JX_OBJC_CLASS
@interface JXEventPropertiesNames : NSObject
@end

/// @name Keys shared by several blocks
/// @{
JX_OBJC_EXTERN NSString* const JX_ID;              ///< "id"
JX_OBJC_EXTERN NSString* const JX_EVENTTIMESTAMP;  ///< "event_timestamp"
/// @}

/// @name Event keys
/// JXE_NAME, JXP_NAME and JXA_NAME are all "name", on purpose.
/// @{
JX_OBJC_EXTERN NSString* const JXE_EVENT;           ///< "event_name"
JX_OBJC_EXTERN NSString* const JXE_EVENTID;         ///< "event_id"
JX_OBJC_EXTERN NSString* const JXE_PAYMENTMETHOD;   ///< "payment_method"
JX_OBJC_EXTERN NSString* const JXE_COUPON;          ///< "coupon"
JX_OBJC_EXTERN NSString* const JXE_CURRENCY;        ///< "currency"
JX_OBJC_EXTERN NSString* const JXE_REVENUE;         ///< "revenue"
JX_OBJC_EXTERN NSString* const JXE_VALUE;           ///< "value"
JX_OBJC_EXTERN NSString* const JXE_ITEMS;           ///< "items"
JX_OBJC_EXTERN NSString* const JXE_SHIPPINGTIER;    ///< "shipping_tier"
JX_OBJC_EXTERN NSString* const JXE_SHIPPINGAMOUNT;  ///< "shipping_amount"
JX_OBJC_EXTERN NSString* const JXE_TAXAMOUNT;       ///< "tax_amount"
JX_OBJC_EXTERN NSString* const JXE_METHOD;          ///< "method"
JX_OBJC_EXTERN NSString* const JXE_TYPE;            ///< "type"
JX_OBJC_EXTERN NSString* const JXE_NAME;            ///< "name"
JX_OBJC_EXTERN NSString* const JXE_TITLE;           ///< "title"
JX_OBJC_EXTERN NSString* const JXE_URL;             ///< "url"
JX_OBJC_EXTERN NSString* const JXE_PATH;            ///< "path"
JX_OBJC_EXTERN NSString* const JXE_REFERRER;        ///< "referrer"
JX_OBJC_EXTERN NSString* const JXE_STATUS;          ///< "status"
JX_OBJC_EXTERN NSString* const JXE_SEARCHTERM;      ///< "search_term"
JX_OBJC_EXTERN NSString* const JXE_CONTENTTYPE;     ///< "content_type"
JX_OBJC_EXTERN NSString* const JXE_ITEMID;          ///< "item_id"
JX_OBJC_EXTERN NSString* const JXE_ITEMLISTNAME;    ///< "item_list_name"
JX_OBJC_EXTERN NSString* const JXE_PAGENAME;        ///< "page_name"
JX_OBJC_EXTERN NSString* const JXE_PAGETYPE;        ///< "page_type"
/// @}

/// @name Item keys
/// @{
JX_OBJC_EXTERN NSString* const JXI_PRODUCT;       ///< "product"
JX_OBJC_EXTERN NSString* const JXI_VARIANT;       ///< "variant"
JX_OBJC_EXTERN NSString* const JXI_LISTPOSITION;  ///< "list_position"
JX_OBJC_EXTERN NSString* const JXI_DISCOUNT;      ///< "discount"
JX_OBJC_EXTERN NSString* const JXI_QUANTITY;      ///< "quantity"
JX_OBJC_EXTERN NSString* const JXI_AFFILIATION;   ///< "affiliation"
/// @}

/// @name Product keys
/// The key of a product's category is JXP_CATEGORY_N followed by its number, from 1.
/// @{
JX_OBJC_EXTERN NSString* const JXP_PRICE;       ///< "price"
JX_OBJC_EXTERN NSString* const JXP_BRAND;       ///< "brand"
JX_OBJC_EXTERN NSString* const JXP_NAME;        ///< "name"
JX_OBJC_EXTERN NSString* const JXP_COLORS;      ///< "colors"
JX_OBJC_EXTERN NSString* const JXP_SIZE;        ///< "size"
JX_OBJC_EXTERN NSString* const JXP_CATEGORY_N;  ///< "category_"
/// @}

/// @name Lifecycle keys
/// @{
JX_OBJC_EXTERN NSString* const JXL_LIFECYCLE;               ///< "lifecycle"
JX_OBJC_EXTERN NSString* const JXL_SESSION_ID;              ///< "session_id"
JX_OBJC_EXTERN NSString* const JXL_NEW_SESSION;             ///< "new_session"
JX_OBJC_EXTERN NSString* const JXL_SESSION_DURATION;        ///< "session_duration"
JX_OBJC_EXTERN NSString* const JXL_CURRENT_SESSION;         ///< "current_session"
JX_OBJC_EXTERN NSString* const JXL_VISIT_NUMBER;            ///< "visit_number"
JX_OBJC_EXTERN NSString* const JXL_CURRENT_VISIT;           ///< "current_visit"
JX_OBJC_EXTERN NSString* const JXL_CUR_VER_FIRST_VISIT;     ///< "current_version_first_visit"
JX_OBJC_EXTERN NSString* const JXL_SESSION_NUMBER;          ///< "session_number"
JX_OBJC_EXTERN NSString* const JXL_FIRST_VISIT;             ///< "first_visit"
JX_OBJC_EXTERN NSString* const JXL_LAST_VISIT;              ///< "last_visit"
JX_OBJC_EXTERN NSString* const JXL_LAST_CALL;               ///< "last_call"
JX_OBJC_EXTERN NSString* const JXL_LAST_SESSION_START;      ///< "last_session_start"
JX_OBJC_EXTERN NSString* const JXL_LAST_SESSION_LAST_HIT;   ///< "last_session_last_hit"
JX_OBJC_EXTERN NSString* const JXL_FOREGROUND_TRANSITIONS;  ///< "foreground_transitions"
JX_OBJC_EXTERN NSString* const JXL_FOREGROUND_TIME;         ///< "foreground_time"
JX_OBJC_EXTERN NSString* const JXL_BACKGROUND_TIME;         ///< "background_time"
JX_OBJC_EXTERN NSString* const JXL_FIRST_EXECUTE;           ///< "first_execute"
JX_OBJC_EXTERN NSString* const JXL_IS_FIRST_VISIT;          ///< "is_first_visit"
/// @}

/// @name Application keys
/// @{
JX_OBJC_EXTERN NSString* const JXA_APP;                ///< "app"
JX_OBJC_EXTERN NSString* const JXA_NAME;               ///< "name"
JX_OBJC_EXTERN NSString* const JXA_VERSION;            ///< "version"
JX_OBJC_EXTERN NSString* const JXA_BUILD;              ///< "build"
JX_OBJC_EXTERN NSString* const JXA_NAMESPACE;          ///< "namespace"
JX_OBJC_EXTERN NSString* const JXA_COREVERSION;        ///< "core_version"
JX_OBJC_EXTERN NSString* const JXA_SERVERSIDEVERSION;  ///< "serverside_version"
JX_OBJC_EXTERN NSString* const JXA_CONSENTVERSION;     ///< "consent_version"
/// @}

/// @name Video keys
/// @{
JX_OBJC_EXTERN NSString* const JXV_VIDEO_SESSION_ID;     ///< "video_session_id"
JX_OBJC_EXTERN NSString* const JXV_CONTENT_ASSET_ID;     ///< "content_asset_id"
JX_OBJC_EXTERN NSString* const JXV_CONTENT_POD_ID;       ///< "content_pod_id"
JX_OBJC_EXTERN NSString* const JXV_AD_ASSET_ID;          ///< "ad_asset_id"
JX_OBJC_EXTERN NSString* const JXV_AD_POD_ID;            ///< "ad_pod_id"
JX_OBJC_EXTERN NSString* const JXV_AD_TYPE;              ///< "ad_type"
JX_OBJC_EXTERN NSString* const JXV_POD_POSITION;         ///< "pod_position"
JX_OBJC_EXTERN NSString* const JXV_CURSOR_POSITION;      ///< "cursor_position"
JX_OBJC_EXTERN NSString* const JXV_SEEK_POSITION;        ///< "seek_position"
JX_OBJC_EXTERN NSString* const JXV_TOTAL_LENGTH;         ///< "total_length"
JX_OBJC_EXTERN NSString* const JXV_POD_LENGTH;           ///< "pod_length"
JX_OBJC_EXTERN NSString* const JXV_BITRATE;              ///< "bitrate"
JX_OBJC_EXTERN NSString* const JXV_FRAMERATE;            ///< "framerate"
JX_OBJC_EXTERN NSString* const JXV_VIDEO_PLAYER;         ///< "video_player"
JX_OBJC_EXTERN NSString* const JXV_SOUND;                ///< "sound"
JX_OBJC_EXTERN NSString* const JXV_FULL_SCREEN;          ///< "full_screen"
JX_OBJC_EXTERN NSString* const JXV_AD_ENABLED;           ///< "ad_enabled"
JX_OBJC_EXTERN NSString* const JXV_IMAGE_QUALITY;        ///< "image_quality"
JX_OBJC_EXTERN NSString* const JXV_INTERRUPTION_METHOD;  ///< "interruption_method"
JX_OBJC_EXTERN NSString* const JXV_LIVESTREAM;           ///< "livestream"
JX_OBJC_EXTERN NSString* const JXV_VIDEO_TITLE;          ///< "video_title"
JX_OBJC_EXTERN NSString* const JXV_VIDEO_DESCRIPTION;    ///< "video_description"
JX_OBJC_EXTERN NSString* const JXV_KEYWORDS;             ///< "keywords"
JX_OBJC_EXTERN NSString* const JXV_SEASON;               ///< "season"
JX_OBJC_EXTERN NSString* const JXV_EPISODE;              ///< "episode"
JX_OBJC_EXTERN NSString* const JXV_VIDEO_CATEGORY;       ///< "video_category"
JX_OBJC_EXTERN NSString* const JXV_PROGRAM;              ///< "program"
JX_OBJC_EXTERN NSString* const JXV_PUBLISHER;            ///< "publisher"
JX_OBJC_EXTERN NSString* const JXV_CHANNEL;              ///< "channel"
JX_OBJC_EXTERN NSString* const JXV_FULL_EPISODE;         ///< "full_episode"
JX_OBJC_EXTERN NSString* const JXV_AIRDATE;              ///< "airdate"
JX_OBJC_EXTERN NSString* const JXV_LOAD_TYPE;            ///< "load_type"
JX_OBJC_EXTERN NSString* const JXV_AD_QUARTILE;          ///< "ad_quartile"
/// @}

/// @name Keys of the context blocks
/// @{
JX_OBJC_EXTERN NSString* const JXE_CONTEXT;        ///< "context"
JX_OBJC_EXTERN NSString* const JXE_USER;           ///< "user"
JX_OBJC_EXTERN NSString* const JXD_DEVICE;         ///< "device"
JX_OBJC_EXTERN NSString* const JXD_ADTRACKING;     ///< "ad_tracking"
JX_OBJC_EXTERN NSString* const JXD_IDFA;           ///< "idfa"
JX_OBJC_EXTERN NSString* const JXD_IDFV;           ///< "idfv"
JX_OBJC_EXTERN NSString* const JXD_LANGUAGE;       ///< "language"
JX_OBJC_EXTERN NSString* const JXD_MANUFACTURER;   ///< "manufacturer"
JX_OBJC_EXTERN NSString* const JXD_MODEL;          ///< "model"
JX_OBJC_EXTERN NSString* const JXD_NAME;           ///< "name"
JX_OBJC_EXTERN NSString* const JXD_NETWORK;        ///< "network"
JX_OBJC_EXTERN NSString* const JXD_OS;             ///< "os"
JX_OBJC_EXTERN NSString* const JXD_OS_NAME;        ///< "name"
JX_OBJC_EXTERN NSString* const JXD_OS_VERSION;     ///< "version"
JX_OBJC_EXTERN NSString* const JXD_REGION;         ///< "region"
JX_OBJC_EXTERN NSString* const JXD_SCREEN;         ///< "screen"
JX_OBJC_EXTERN NSString* const JXD_SCREEN_HEIGHT;  ///< "height"
JX_OBJC_EXTERN NSString* const JXD_SCREEN_WIDTH;   ///< "width"
JX_OBJC_EXTERN NSString* const JXD_SDK_ID;         ///< "sdk_id"
JX_OBJC_EXTERN NSString* const JXD_TIMEZONE;       ///< "timezone"
JX_OBJC_EXTERN NSString* const JXD_TYPE;           ///< "type"
JX_OBJC_EXTERN NSString* const JXD_USER_AGENT;     ///< "user_agent"
/// @}

/// @name Names of notifications, and keys of their data
/// @{
JX_OBJC_EXTERN NSString* const kJXNotification_HTTPRequest;  ///< "JXNotification: HTTP Request"
JX_OBJC_EXTERN NSString* const
    kJXNotification_EnablingTheServerSide;  ///< "JXNotification: Enabling The Server Side"
JX_OBJC_EXTERN NSString* const
    kJXNotification_StoppingTheServerSide;  ///< "JXNotification: Stopping The Server Side"
JX_OBJC_EXTERN NSString* const kJXNotification_OnBackground;  ///< "JXNotification: On Background"
JX_OBJC_EXTERN NSString* const kJXNotification_OnForeground;  ///< "JXNotification: On Foreground"
JX_OBJC_EXTERN NSString* const
    kJXNotification_UserAgentAvailable;                  ///< "JXNotification: User Agent Available"
JX_OBJC_EXTERN NSString* const kJXNotification_HitSent;  ///< "JXNotification: Hit Sent"
JX_OBJC_EXTERN NSString* const kJXUserInfo_URLKey;       ///< "JXUserInfo: URL"
JX_OBJC_EXTERN NSString* const kJXUserInfo_POSTData;     ///< "JXUserInfo: POST Data"
JX_OBJC_EXTERN NSString* const kJXUserInfo_DataKey;      ///< "JXUserInfo: Data"
/// @}

/// @name Names of the core variables, for `-[JXCoreVariables getData:]`
/// @{
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_IDFA;       ///< "#JX_IDFA#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_IDFV;       ///< "#JX_IDFV#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_SDKID;      ///< "#JX_SDK_ID#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_UniqueID;   ///< "#JX_UNIQUE_ID#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_UserAgent;  ///< "#JX_USER_AGENT#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_isTrackingEnabled;       ///< "#JX_IS_TRACKING_ENABLED#"
JX_OBJC_EXTERN NSString* const JX_ConsentVersion;  ///< "#JX_CONSENT_VERSION#"
/// @}

/// @name Names of the predefined variables, for `-[JXPredefinedVariables getData:]`
/// @{
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Language;          ///< "#JX_LANGUAGE#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Region;            ///< "#JX_REGION#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_SystemName;        ///< "#JX_SYSNAME#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_SystemVersion;     ///< "#JX_SYSVERSION#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Model;             ///< "#JX_MODEL#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Device;            ///< "#JX_DEVICE#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_ScreenResolution;  ///< "#JX_SCREEN#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Charset;           ///< "#JX_CHARSET#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_CurrencyCode;      ///< "#JX_CURRENCY_CODE#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_CurrencySymbol;    ///< "#JX_CURRENCY_SYMBOL#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_ApplicationVersion;  ///< "#JX_APPLICATION_VERSION#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_ApplicationPreviousVersion;  ///< "#JX_APPLICATION_PREVIOUS_VERSION#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_ApplicationBuild;                           ///< "#JX_APPLICATION_BUILD#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_NorvaneVersion;  ///< "#JX_NORVANE_VERSION#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Manufacturer;    ///< "#JX_MANUFACTURER#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_JailBroken;      ///< "#JX_JAILBROKEN#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_ColdStarts;      ///< "#JX_APPLICATION_STARTS#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_ForegroundTransitions;  ///< "#JX_FOREGROUNDS#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_ForegroundTime;  ///< "#JX_FOREGROUND_TIME#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_DeltaForegroundTime;  ///< "#JX_DELTA_FOREGROUND_TIME#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_BackgroundTime;  ///< "#JX_BACKGROUND_TIME#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_DeltaBackgroundTime;  ///< "#JX_DELTA_BACKGROUND_TIME#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_BackgroundUxTime;  ///< "#JX_BACKGROUND_UX_TIME#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_DeltaBackgroundUxTime;  ///< "#JX_DELTA_BACKGROUND_UX_TIME#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_CurrentCallMs;  ///< "#JX_CURRENT_CALL_MS#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_LastCallMs;     ///< "#JX_LAST_CALL_MS#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_LastSessionStartMs;  ///< "#JX_LAST_SESSION_START_MS#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_LastSessionLastHitMs;  ///< "#JX_LAST_SESSION_LAST_HIT_MS#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Longitude;        ///< "#JX_LONGITUDE#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_Latitude;         ///< "#JX_LATITUDE#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_BundleID;         ///< "#JX_BUNDLE_IDENTIFIER#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_ApplicationName;  ///< "#JX_APPLICATION_NAME#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_RuntimeName;      ///< "#JX_RUNTIME_NAME#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_ScreenHeight;     ///< "#JX_SCREEN_HEIGHT#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_ScreenWidth;      ///< "#JX_SCREEN_WIDTH#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_FirstVisitMs;     ///< "#JX_FIRST_VISIT_MS#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_LastVisitMs;      ///< "#JX_LAST_VISIT_MS#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_CurrentSessionMs;                           ///< "#JX_CURRENT_SESSION_MS#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_CurrentVisitMs;  ///< "#JX_CURRENT_VISIT_MS#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_SessionDurationMs;  ///< "#JX_SESSION_DURATION_MS#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_CurVersionFirstVisitMs;  ///< "#JX_VERSION_FIRST_VISIT_MS#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_NumberVisits;    ///< "#JX_NUMBER_VISIT#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_NumberSessions;  ///< "#JX_NUMBER_SESSION#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_IsFirstVisit;    ///< "#JX_IS_FIRST_VISIT#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_SessionID;       ///< "#JX_SESSION_ID#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_IsNewSession;    ///< "#JX_NEW_SESSION#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_UserSessionDurationMs;  ///< "#JX_USER_SESSION_DURATION_MS#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_UsageSessionDurationMs;  ///< "#JX_USAGE_SESSION_DURATION_MS#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_AccumulatedBackgroundTime;                     ///< "#JX_CS_START_IT#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_TimeSinceLastExit;  ///< "#JX_CS_START_DIT#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement;  ///< "#JX_CS_START_FT#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement;  ///< "#JX_CS_START_DFT#"
JX_OBJC_EXTERN NSString* const
    kJXPredefinedVariable_EmptyVariableRemoveEqual;  ///< "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#"
JX_OBJC_EXTERN NSString* const kJXPredefinedVariable_FirstExecute;  ///< "#JX_FIRST_EXECUTE#"
/// @}

/// @name Version of the core
/// @{
JX_OBJC_EXTERN NSString* const kJXCoreVersion;  ///< "1.0.0"
/// @}

/// @name Version of the SDK, and day and time of its release
/// @{
JX_OBJC_EXTERN NSString* const kJXServerSideVersion;  ///< "5.4.5"
JX_OBJC_EXTERN NSString* const kReleaseDate;          ///< "28/04/2025"
JX_OBJC_EXTERN NSString* const kReleaseTime;          ///< "17:17:38"
/// @}

/// @name User block while the viewer's consent is pending
/// @{
JX_OBJC_EXTERN NSString* const JX_WAITING_FOR_CONSENT;  ///< "waiting_for_consent"
/// @}

/// @name Advertising identifier of a viewer for whom tracking is off
/// @{
JX_OBJC_EXTERN NSString* const STATIC_IDFA;  ///< "00000000-0000-0000-0000-000000000000"
/// @}

/// @name Developer ID that is set on a Firebase instance
/// @{
JX_OBJC_EXTERN NSString* const JX_GCM_DEVELOPER_ID;  ///< "jx_serverside"
/// @}

/// @name Manufacturer's name that each event contains
/// @{
JX_OBJC_EXTERN NSString* const kJXManufacturerName;  ///< "Apple"
/// @}

/// @name Labels of the persisted strings, for JXUserDefaults
/// `kJXNumberColdStarts` is the number of visits, in spite of its name.
/// @{
JX_OBJC_EXTERN NSString* const kJXUserDefaultsKey_UniqueID;   ///< "jx_unique_id"
JX_OBJC_EXTERN NSString* const kJXDateFirstVisitFormat;       ///< "jx_date_first_visit"
JX_OBJC_EXTERN NSString* const kJXDateLastVisitFormat;        ///< "jx_date_last_visit"
JX_OBJC_EXTERN NSString* const kJXDateCurrentVisitFormat;     ///< "jx_date_current_visit"
JX_OBJC_EXTERN NSString* const kJXNumberColdStarts;           ///< "jx_number_coldStarts"
JX_OBJC_EXTERN NSString* const kJXNumberSessions;             ///< "jx_number_sessions"
JX_OBJC_EXTERN NSString* const kJXLastPID;                    ///< "jx_last_pid"
JX_OBJC_EXTERN NSString* const kJXTimeSinceLastMeasurement;   ///< "TimeSinceLastMeasurement"
JX_OBJC_EXTERN NSString* const kJXSessionStartTimestamp;      ///< "SessionStartTimestamp"
JX_OBJC_EXTERN NSString* const kJXLastSessionStartTimestamp;  ///< "LastSessionStartTimestamp"
JX_OBJC_EXTERN NSString* const kJXExitTimestamp;              ///< "ExitTimestamp"
JX_OBJC_EXTERN NSString* const kJXUsageDuration;              ///< "UsageDuration"
JX_OBJC_EXTERN NSString* const kJXLastForegroundTime;         ///< "LastForegroundTime"
JX_OBJC_EXTERN NSString* const kJXLastBackgroundTime;         ///< "LastBackgroundTime"
/// @}

/// @name Predefined strings for `paymentMethod`; other strings are allowed
/// @{
JX_OBJC_EXTERN NSString* const EJXPayementMethod_BY_INVOICE;  ///< "by_invoice"
JX_OBJC_EXTERN NSString* const
    EJXPayementMethod_BY_BANK_TRANSFER_IN_A;            ///< "by_bank_transfer_in_advance"
JX_OBJC_EXTERN NSString* const EJXPayementMethod_CARD;  ///< "card"
JX_OBJC_EXTERN NSString* const EJXPayementMethod_CHECK_IN_ADVANCE;  ///< "check_in_advance"
JX_OBJC_EXTERN NSString* const EJXPayementMethod_COD;               ///< "cod"
JX_OBJC_EXTERN NSString* const EJXPayementMethod_COUPON;            ///< "coupon"
JX_OBJC_EXTERN NSString* const EJXPayementMethod_DIRECT_DEBIT;      ///< "direct_debit"
JX_OBJC_EXTERN NSString* const
    EJXPayementMethod_ONLINE_PAYMENT_SYSTEM;             ///< "online_payment_system"
JX_OBJC_EXTERN NSString* const EJXPayementMethod_OTHER;  ///< "other"
/// @}

/// @name Predefined strings for `status`; other strings are allowed
/// @{
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_CANCELED;             ///< "canceled"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_DELIVERED;            ///< "delivered"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_IN_PROGRESS;          ///< "in_progress"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_PARTIALLY_DELIVERED;  ///< "partially_delivered"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_PARTIALLY_RETURNED;   ///< "partially_returned"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_PARTIALLY_SHIPPED;    ///< "partially_shipped"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_PENDING_SHIPMENT;     ///< "pending_shipment"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_RETURNED;             ///< "returned"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_SHIPPE;               ///< "shipped"
JX_OBJC_EXTERN NSString* const EJXPurchaseStatus_PENDING;              ///< "pending"
/// @}

NS_ASSUME_NONNULL_END
