// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JX_NAMES_H
#define JX_C_EVENTS_JX_NAMES_H

#ifdef __cplusplus
extern "C" {
#endif

/// The modes of JXVideoPlaybackEvent; the string of a mode is the event name.
typedef enum EJXVideoPlaybackMode {
  EJXVideoPlaybackMode_START = 0,            ///< "video_start"
  EJXVideoPlaybackMode_PAUSE = 1,            ///< "video_pause"
  EJXVideoPlaybackMode_ERROR = 2,            ///< "video_error"
  EJXVideoPlaybackMode_BUFFER_START = 3,     ///< "video_buffer_start"
  EJXVideoPlaybackMode_BUFFER_COMPLETE = 4,  ///< "video_buffer_complete"
  EJXVideoPlaybackMode_SEEK_START = 5,       ///< "video_seek_start"
  EJXVideoPlaybackMode_SEEK_COMPLETE = 6,    ///< "video_seek_complete"
  EJXVideoPlaybackMode_RESUME = 7,           ///< "video_resume"
  EJXVideoPlaybackMode_COMPLETE = 8          ///< "video_complete"
} EJXVideoPlaybackMode;

/// The modes of JXVideoAdEvent; the string of a mode is the event name.
typedef enum EJXVideoAdMode {
  EJXVideoAdMode_START = 0,           ///< "video_ad_start"
  EJXVideoAdMode_PLAYING = 1,         ///< "video_ad_playing"
  EJXVideoAdMode_STOP = 2,            ///< "video_ad_stop"
  EJXVideoAdMode_COMPLETE = 3,        ///< "video_ad_complete"
  EJXVideoAdMode_SKIP = 4,            ///< "video_ad_skip"
  EJXVideoAdMode_BREAK_START = 5,     ///< "video_ad_break_start"
  EJXVideoAdMode_BREAK_COMPLETE = 6,  ///< "video_ad_break_complete"
  EJXVideoAdMode_CLICK = 7            ///< "video_ad_click"
} EJXVideoAdMode;

/// The modes of JXVideoContentEvent; the string of a mode is the event name.
typedef enum EJXVideoContentMode {
  EJXVideoContentMode_START = 0,            ///< "video_content_start"
  EJXVideoContentMode_PLAYING = 1,          ///< "video_content_playing"
  EJXVideoContentMode_QUARTER_REACHED = 2,  ///< "video_content_quarter_reached"
  EJXVideoContentMode_COMPLETE = 3          ///< "video_content_complete"
} EJXVideoContentMode;

/// The modes of JXVideoSettingEvent; the string of a mode is the event name.
typedef enum EJXVideoSettingMode {
  EJXVideoSettingMode_VOLUME = 0,          ///< "video_volume"
  EJXVideoSettingMode_SPEED = 1,           ///< "video_speed"
  EJXVideoSettingMode_SUBTITLE_ON = 2,     ///< "video_subtitle_on"
  EJXVideoSettingMode_SUBTITLE_OFF = 3,    ///< "video_subtitle_off"
  EJXVideoSettingMode_FULLSCREEN_ON = 4,   ///< "video_fullscreen_on"
  EJXVideoSettingMode_FULLSCREEN_OFF = 5,  ///< "video_fullscreen_off"
  EJXVideoSettingMode_QUALITY = 6,         ///< "video_quality"
  EJXVideoSettingMode_SHARE = 7            ///< "video_share"
} EJXVideoSettingMode;

/// The position of an advertisement in the video. Unlike all other strings of the video events,
/// these contain hyphens.
typedef enum EJXAdType {
  EJXAdType_PRE_ROLL = 0,  ///< "pre-roll"
  EJXAdType_MID_ROLL = 1,  ///< "mid-roll"
  EJXAdType_POST_ROLL = 2  ///< "post-roll"
} EJXAdType;

/// The way an advertisement is loaded.
typedef enum EJXAdLoadType {
  EJXAdLoadType_DYNAMIC = 0,  ///< "dynamic"
  EJXAdLoadType_LINEAR = 1    ///< "linear"
} EJXAdLoadType;

#ifndef __cplusplus

// Keys shared by several blocks.

#define JX_ID "id"
#define JX_EVENTTIMESTAMP "event_timestamp"

// Event keys. JXE_NAME, JXP_NAME and JXA_NAME are all "name", on purpose.

#define JXE_EVENT "event_name"
#define JXE_EVENTID "event_id"
#define JXE_PAYMENTMETHOD "payment_method"
#define JXE_COUPON "coupon"
#define JXE_CURRENCY "currency"
#define JXE_REVENUE "revenue"
#define JXE_VALUE "value"
#define JXE_ITEMS "items"
#define JXE_SHIPPINGTIER "shipping_tier"
#define JXE_SHIPPINGAMOUNT "shipping_amount"
#define JXE_TAXAMOUNT "tax_amount"
#define JXE_METHOD "method"
#define JXE_TYPE "type"
#define JXE_NAME "name"
#define JXE_TITLE "title"
#define JXE_URL "url"
#define JXE_PATH "path"
#define JXE_REFERRER "referrer"
#define JXE_STATUS "status"
#define JXE_SEARCHTERM "search_term"
#define JXE_CONTENTTYPE "content_type"
#define JXE_ITEMID "item_id"
#define JXE_ITEMLISTNAME "item_list_name"
#define JXE_PAGENAME "page_name"
#define JXE_PAGETYPE "page_type"

// Item keys.

#define JXI_PRODUCT "product"
#define JXI_VARIANT "variant"
#define JXI_LISTPOSITION "list_position"
#define JXI_DISCOUNT "discount"
#define JXI_QUANTITY "quantity"
#define JXI_AFFILIATION "affiliation"

// Product keys. The key of a product's category is JXP_CATEGORY_N followed by its number, from 1.

#define JXP_PRICE "price"
#define JXP_BRAND "brand"
#define JXP_NAME "name"
#define JXP_COLORS "colors"
#define JXP_SIZE "size"
#define JXP_CATEGORY_N "category_"

// Lifecycle keys.

#define JXL_LIFECYCLE "lifecycle"
#define JXL_SESSION_ID "session_id"
#define JXL_NEW_SESSION "new_session"
#define JXL_SESSION_DURATION "session_duration"
#define JXL_CURRENT_SESSION "current_session"
#define JXL_VISIT_NUMBER "visit_number"
#define JXL_CURRENT_VISIT "current_visit"
#define JXL_CUR_VER_FIRST_VISIT "current_version_first_visit"
#define JXL_SESSION_NUMBER "session_number"
#define JXL_FIRST_VISIT "first_visit"
#define JXL_LAST_VISIT "last_visit"
#define JXL_LAST_CALL "last_call"
#define JXL_LAST_SESSION_START "last_session_start"
#define JXL_LAST_SESSION_LAST_HIT "last_session_last_hit"
#define JXL_FOREGROUND_TRANSITIONS "foreground_transitions"
#define JXL_FOREGROUND_TIME "foreground_time"
#define JXL_BACKGROUND_TIME "background_time"
#define JXL_FIRST_EXECUTE "first_execute"
#define JXL_IS_FIRST_VISIT "is_first_visit"

// Application keys.

#define JXA_APP "app"
#define JXA_NAME "name"
#define JXA_VERSION "version"
#define JXA_BUILD "build"
#define JXA_NAMESPACE "namespace"
#define JXA_COREVERSION "core_version"
#define JXA_SERVERSIDEVERSION "serverside_version"
#define JXA_CONSENTVERSION "consent_version"

// Video keys.

#define JXV_VIDEO_SESSION_ID "video_session_id"
#define JXV_CONTENT_ASSET_ID "content_asset_id"
#define JXV_CONTENT_POD_ID "content_pod_id"
#define JXV_AD_ASSET_ID "ad_asset_id"
#define JXV_AD_POD_ID "ad_pod_id"
#define JXV_AD_TYPE "ad_type"
#define JXV_POD_POSITION "pod_position"
#define JXV_CURSOR_POSITION "cursor_position"
#define JXV_SEEK_POSITION "seek_position"
#define JXV_TOTAL_LENGTH "total_length"
#define JXV_POD_LENGTH "pod_length"
#define JXV_BITRATE "bitrate"
#define JXV_FRAMERATE "framerate"
#define JXV_VIDEO_PLAYER "video_player"
#define JXV_SOUND "sound"
#define JXV_FULL_SCREEN "full_screen"
#define JXV_AD_ENABLED "ad_enabled"
#define JXV_IMAGE_QUALITY "image_quality"
#define JXV_INTERRUPTION_METHOD "interruption_method"
#define JXV_LIVESTREAM "livestream"
#define JXV_VIDEO_TITLE "video_title"
#define JXV_VIDEO_DESCRIPTION "video_description"
#define JXV_KEYWORDS "keywords"
#define JXV_SEASON "season"
#define JXV_EPISODE "episode"
#define JXV_VIDEO_CATEGORY "video_category"
#define JXV_PROGRAM "program"
#define JXV_PUBLISHER "publisher"
#define JXV_CHANNEL "channel"
#define JXV_FULL_EPISODE "full_episode"
#define JXV_AIRDATE "airdate"
#define JXV_LOAD_TYPE "load_type"
#define JXV_AD_QUARTILE "ad_quartile"

// Keys of the context blocks.

#define JXE_CONTEXT "context"
#define JXE_USER "user"
#define JXD_DEVICE "device"
#define JXD_ADTRACKING "ad_tracking"
#define JXD_IDFA "idfa"
#define JXD_IDFV "idfv"
#define JXD_LANGUAGE "language"
#define JXD_MANUFACTURER "manufacturer"
#define JXD_MODEL "model"
#define JXD_NAME "name"
#define JXD_NETWORK "network"
#define JXD_OS "os"
#define JXD_OS_NAME "name"
#define JXD_OS_VERSION "version"
#define JXD_REGION "region"
#define JXD_SCREEN "screen"
#define JXD_SCREEN_HEIGHT "height"
#define JXD_SCREEN_WIDTH "width"
#define JXD_SDK_ID "sdk_id"
#define JXD_TIMEZONE "timezone"
#define JXD_TYPE "type"
#define JXD_USER_AGENT "user_agent"

// Names of notifications, and keys of their data.

#define kJXNotification_HTTPRequest "JXNotification: HTTP Request"
#define kJXNotification_EnablingTheServerSide "JXNotification: Enabling The Server Side"
#define kJXNotification_StoppingTheServerSide "JXNotification: Stopping The Server Side"
#define kJXNotification_OnBackground "JXNotification: On Background"
#define kJXNotification_OnForeground "JXNotification: On Foreground"
#define kJXNotification_UserAgentAvailable "JXNotification: User Agent Available"
#define kJXNotification_HitSent "JXNotification: Hit Sent"
#define kJXUserInfo_URLKey "JXUserInfo: URL"
#define kJXUserInfo_POSTData "JXUserInfo: POST Data"
#define kJXUserInfo_DataKey "JXUserInfo: Data"

// Names of the core variables, for `jx_get_core_variable`.

#define kJXPredefinedVariable_IDFA "#JX_IDFA#"
#define kJXPredefinedVariable_IDFV "#JX_IDFV#"
#define kJXPredefinedVariable_SDKID "#JX_SDK_ID#"
#define kJXPredefinedVariable_UniqueID "#JX_UNIQUE_ID#"
#define kJXPredefinedVariable_UserAgent "#JX_USER_AGENT#"
#define kJXPredefinedVariable_isTrackingEnabled "#JX_IS_TRACKING_ENABLED#"
#define JX_ConsentVersion "#JX_CONSENT_VERSION#"

// Names of the predefined variables, for `jx_get_variable`.

#define kJXPredefinedVariable_Language "#JX_LANGUAGE#"
#define kJXPredefinedVariable_Region "#JX_REGION#"
#define kJXPredefinedVariable_SystemName "#JX_SYSNAME#"
#define kJXPredefinedVariable_SystemVersion "#JX_SYSVERSION#"
#define kJXPredefinedVariable_Model "#JX_MODEL#"
#define kJXPredefinedVariable_Device "#JX_DEVICE#"
#define kJXPredefinedVariable_ScreenResolution "#JX_SCREEN#"
#define kJXPredefinedVariable_Charset "#JX_CHARSET#"
#define kJXPredefinedVariable_CurrencyCode "#JX_CURRENCY_CODE#"
#define kJXPredefinedVariable_CurrencySymbol "#JX_CURRENCY_SYMBOL#"
#define kJXPredefinedVariable_ApplicationVersion "#JX_APPLICATION_VERSION#"
#define kJXPredefinedVariable_ApplicationPreviousVersion "#JX_APPLICATION_PREVIOUS_VERSION#"
#define kJXPredefinedVariable_ApplicationBuild "#JX_APPLICATION_BUILD#"
#define kJXPredefinedVariable_NorvaneVersion "#JX_NORVANE_VERSION#"
#define kJXPredefinedVariable_Manufacturer "#JX_MANUFACTURER#"
#define kJXPredefinedVariable_JailBroken "#JX_JAILBROKEN#"
#define kJXPredefinedVariable_ColdStarts "#JX_APPLICATION_STARTS#"
#define kJXPredefinedVariable_ForegroundTransitions "#JX_FOREGROUNDS#"
#define kJXPredefinedVariable_ForegroundTime "#JX_FOREGROUND_TIME#"
#define kJXPredefinedVariable_DeltaForegroundTime "#JX_DELTA_FOREGROUND_TIME#"
#define kJXPredefinedVariable_BackgroundTime "#JX_BACKGROUND_TIME#"
#define kJXPredefinedVariable_DeltaBackgroundTime "#JX_DELTA_BACKGROUND_TIME#"
#define kJXPredefinedVariable_BackgroundUxTime "#JX_BACKGROUND_UX_TIME#"
#define kJXPredefinedVariable_DeltaBackgroundUxTime "#JX_DELTA_BACKGROUND_UX_TIME#"
#define kJXPredefinedVariable_CurrentCallMs "#JX_CURRENT_CALL_MS#"
#define kJXPredefinedVariable_LastCallMs "#JX_LAST_CALL_MS#"
#define kJXPredefinedVariable_LastSessionStartMs "#JX_LAST_SESSION_START_MS#"
#define kJXPredefinedVariable_LastSessionLastHitMs "#JX_LAST_SESSION_LAST_HIT_MS#"
#define kJXPredefinedVariable_Longitude "#JX_LONGITUDE#"
#define kJXPredefinedVariable_Latitude "#JX_LATITUDE#"
#define kJXPredefinedVariable_BundleID "#JX_BUNDLE_IDENTIFIER#"
#define kJXPredefinedVariable_ApplicationName "#JX_APPLICATION_NAME#"
#define kJXPredefinedVariable_RuntimeName "#JX_RUNTIME_NAME#"
#define kJXPredefinedVariable_ScreenHeight "#JX_SCREEN_HEIGHT#"
#define kJXPredefinedVariable_ScreenWidth "#JX_SCREEN_WIDTH#"
#define kJXPredefinedVariable_FirstVisitMs "#JX_FIRST_VISIT_MS#"
#define kJXPredefinedVariable_LastVisitMs "#JX_LAST_VISIT_MS#"
#define kJXPredefinedVariable_CurrentSessionMs "#JX_CURRENT_SESSION_MS#"
#define kJXPredefinedVariable_CurrentVisitMs "#JX_CURRENT_VISIT_MS#"
#define kJXPredefinedVariable_SessionDurationMs "#JX_SESSION_DURATION_MS#"
#define kJXPredefinedVariable_CurVersionFirstVisitMs "#JX_VERSION_FIRST_VISIT_MS#"
#define kJXPredefinedVariable_NumberVisits "#JX_NUMBER_VISIT#"
#define kJXPredefinedVariable_NumberSessions "#JX_NUMBER_SESSION#"
#define kJXPredefinedVariable_IsFirstVisit "#JX_IS_FIRST_VISIT#"
#define kJXPredefinedVariable_SessionID "#JX_SESSION_ID#"
#define kJXPredefinedVariable_IsNewSession "#JX_NEW_SESSION#"
#define kJXPredefinedVariable_UserSessionDurationMs "#JX_USER_SESSION_DURATION_MS#"
#define kJXPredefinedVariable_UsageSessionDurationMs "#JX_USAGE_SESSION_DURATION_MS#"
#define kJXPredefinedVariable_AccumulatedBackgroundTime "#JX_CS_START_IT#"
#define kJXPredefinedVariable_TimeSinceLastExit "#JX_CS_START_DIT#"
#define kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement "#JX_CS_START_FT#"
#define kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement "#JX_CS_START_DFT#"
#define kJXPredefinedVariable_EmptyVariableRemoveEqual "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#"
#define kJXPredefinedVariable_FirstExecute "#JX_FIRST_EXECUTE#"

// Predefined strings for `paymentMethod`; other strings are allowed.

#define EJXPayementMethod_BY_INVOICE "by_invoice"
#define EJXPayementMethod_BY_BANK_TRANSFER_IN_A "by_bank_transfer_in_advance"
#define EJXPayementMethod_CARD "card"
#define EJXPayementMethod_CHECK_IN_ADVANCE "check_in_advance"
#define EJXPayementMethod_COD "cod"
#define EJXPayementMethod_COUPON "coupon"
#define EJXPayementMethod_DIRECT_DEBIT "direct_debit"
#define EJXPayementMethod_ONLINE_PAYMENT_SYSTEM "online_payment_system"
#define EJXPayementMethod_OTHER "other"

// Predefined strings for `status`; other strings are allowed.

#define EJXPurchaseStatus_CANCELED "canceled"
#define EJXPurchaseStatus_DELIVERED "delivered"
#define EJXPurchaseStatus_IN_PROGRESS "in_progress"
#define EJXPurchaseStatus_PARTIALLY_DELIVERED "partially_delivered"
#define EJXPurchaseStatus_PARTIALLY_RETURNED "partially_returned"
#define EJXPurchaseStatus_PARTIALLY_SHIPPED "partially_shipped"
#define EJXPurchaseStatus_PENDING_SHIPMENT "pending_shipment"
#define EJXPurchaseStatus_RETURNED "returned"
#define EJXPurchaseStatus_SHIPPE "shipped"
#define EJXPurchaseStatus_PENDING "pending"

// In C++ the constants are arrays, because macros would replace the constants of the same names in
// namespace jx.
#else

// Keys shared by several blocks.

static const char JX_ID[] = "id";
static const char JX_EVENTTIMESTAMP[] = "event_timestamp";

// Event keys. JXE_NAME, JXP_NAME and JXA_NAME are all "name", on purpose.

static const char JXE_EVENT[] = "event_name";
static const char JXE_EVENTID[] = "event_id";
static const char JXE_PAYMENTMETHOD[] = "payment_method";
static const char JXE_COUPON[] = "coupon";
static const char JXE_CURRENCY[] = "currency";
static const char JXE_REVENUE[] = "revenue";
static const char JXE_VALUE[] = "value";
static const char JXE_ITEMS[] = "items";
static const char JXE_SHIPPINGTIER[] = "shipping_tier";
static const char JXE_SHIPPINGAMOUNT[] = "shipping_amount";
static const char JXE_TAXAMOUNT[] = "tax_amount";
static const char JXE_METHOD[] = "method";
static const char JXE_TYPE[] = "type";
static const char JXE_NAME[] = "name";
static const char JXE_TITLE[] = "title";
static const char JXE_URL[] = "url";
static const char JXE_PATH[] = "path";
static const char JXE_REFERRER[] = "referrer";
static const char JXE_STATUS[] = "status";
static const char JXE_SEARCHTERM[] = "search_term";
static const char JXE_CONTENTTYPE[] = "content_type";
static const char JXE_ITEMID[] = "item_id";
static const char JXE_ITEMLISTNAME[] = "item_list_name";
static const char JXE_PAGENAME[] = "page_name";
static const char JXE_PAGETYPE[] = "page_type";

// Item keys.

static const char JXI_PRODUCT[] = "product";
static const char JXI_VARIANT[] = "variant";
static const char JXI_LISTPOSITION[] = "list_position";
static const char JXI_DISCOUNT[] = "discount";
static const char JXI_QUANTITY[] = "quantity";
static const char JXI_AFFILIATION[] = "affiliation";

// Product keys. The key of a product's category is JXP_CATEGORY_N followed by its number, from 1.

static const char JXP_PRICE[] = "price";
static const char JXP_BRAND[] = "brand";
static const char JXP_NAME[] = "name";
static const char JXP_COLORS[] = "colors";
static const char JXP_SIZE[] = "size";
static const char JXP_CATEGORY_N[] = "category_";

// Lifecycle keys.

static const char JXL_LIFECYCLE[] = "lifecycle";
static const char JXL_SESSION_ID[] = "session_id";
static const char JXL_NEW_SESSION[] = "new_session";
static const char JXL_SESSION_DURATION[] = "session_duration";
static const char JXL_CURRENT_SESSION[] = "current_session";
static const char JXL_VISIT_NUMBER[] = "visit_number";
static const char JXL_CURRENT_VISIT[] = "current_visit";
static const char JXL_CUR_VER_FIRST_VISIT[] = "current_version_first_visit";
static const char JXL_SESSION_NUMBER[] = "session_number";
static const char JXL_FIRST_VISIT[] = "first_visit";
static const char JXL_LAST_VISIT[] = "last_visit";
static const char JXL_LAST_CALL[] = "last_call";
static const char JXL_LAST_SESSION_START[] = "last_session_start";
static const char JXL_LAST_SESSION_LAST_HIT[] = "last_session_last_hit";
static const char JXL_FOREGROUND_TRANSITIONS[] = "foreground_transitions";
static const char JXL_FOREGROUND_TIME[] = "foreground_time";
static const char JXL_BACKGROUND_TIME[] = "background_time";
static const char JXL_FIRST_EXECUTE[] = "first_execute";
static const char JXL_IS_FIRST_VISIT[] = "is_first_visit";

// Application keys.

static const char JXA_APP[] = "app";
static const char JXA_NAME[] = "name";
static const char JXA_VERSION[] = "version";
static const char JXA_BUILD[] = "build";
static const char JXA_NAMESPACE[] = "namespace";
static const char JXA_COREVERSION[] = "core_version";
static const char JXA_SERVERSIDEVERSION[] = "serverside_version";
static const char JXA_CONSENTVERSION[] = "consent_version";

// Video keys.

static const char JXV_VIDEO_SESSION_ID[] = "video_session_id";
static const char JXV_CONTENT_ASSET_ID[] = "content_asset_id";
static const char JXV_CONTENT_POD_ID[] = "content_pod_id";
static const char JXV_AD_ASSET_ID[] = "ad_asset_id";
static const char JXV_AD_POD_ID[] = "ad_pod_id";
static const char JXV_AD_TYPE[] = "ad_type";
static const char JXV_POD_POSITION[] = "pod_position";
static const char JXV_CURSOR_POSITION[] = "cursor_position";
static const char JXV_SEEK_POSITION[] = "seek_position";
static const char JXV_TOTAL_LENGTH[] = "total_length";
static const char JXV_POD_LENGTH[] = "pod_length";
static const char JXV_BITRATE[] = "bitrate";
static const char JXV_FRAMERATE[] = "framerate";
static const char JXV_VIDEO_PLAYER[] = "video_player";
static const char JXV_SOUND[] = "sound";
static const char JXV_FULL_SCREEN[] = "full_screen";
static const char JXV_AD_ENABLED[] = "ad_enabled";
static const char JXV_IMAGE_QUALITY[] = "image_quality";
static const char JXV_INTERRUPTION_METHOD[] = "interruption_method";
static const char JXV_LIVESTREAM[] = "livestream";
static const char JXV_VIDEO_TITLE[] = "video_title";
static const char JXV_VIDEO_DESCRIPTION[] = "video_description";
static const char JXV_KEYWORDS[] = "keywords";
static const char JXV_SEASON[] = "season";
static const char JXV_EPISODE[] = "episode";
static const char JXV_VIDEO_CATEGORY[] = "video_category";
static const char JXV_PROGRAM[] = "program";
static const char JXV_PUBLISHER[] = "publisher";
static const char JXV_CHANNEL[] = "channel";
static const char JXV_FULL_EPISODE[] = "full_episode";
static const char JXV_AIRDATE[] = "airdate";
static const char JXV_LOAD_TYPE[] = "load_type";
static const char JXV_AD_QUARTILE[] = "ad_quartile";

// Keys of the context blocks.

static const char JXE_CONTEXT[] = "context";
static const char JXE_USER[] = "user";
static const char JXD_DEVICE[] = "device";
static const char JXD_ADTRACKING[] = "ad_tracking";
static const char JXD_IDFA[] = "idfa";
static const char JXD_IDFV[] = "idfv";
static const char JXD_LANGUAGE[] = "language";
static const char JXD_MANUFACTURER[] = "manufacturer";
static const char JXD_MODEL[] = "model";
static const char JXD_NAME[] = "name";
static const char JXD_NETWORK[] = "network";
static const char JXD_OS[] = "os";
static const char JXD_OS_NAME[] = "name";
static const char JXD_OS_VERSION[] = "version";
static const char JXD_REGION[] = "region";
static const char JXD_SCREEN[] = "screen";
static const char JXD_SCREEN_HEIGHT[] = "height";
static const char JXD_SCREEN_WIDTH[] = "width";
static const char JXD_SDK_ID[] = "sdk_id";
static const char JXD_TIMEZONE[] = "timezone";
static const char JXD_TYPE[] = "type";
static const char JXD_USER_AGENT[] = "user_agent";

// Names of notifications, and keys of their data.

static const char kJXNotification_HTTPRequest[] = "JXNotification: HTTP Request";
static const char kJXNotification_EnablingTheServerSide[] =
    "JXNotification: Enabling The Server Side";
static const char kJXNotification_StoppingTheServerSide[] =
    "JXNotification: Stopping The Server Side";
static const char kJXNotification_OnBackground[] = "JXNotification: On Background";
static const char kJXNotification_OnForeground[] = "JXNotification: On Foreground";
static const char kJXNotification_UserAgentAvailable[] = "JXNotification: User Agent Available";
static const char kJXNotification_HitSent[] = "JXNotification: Hit Sent";
static const char kJXUserInfo_URLKey[] = "JXUserInfo: URL";
static const char kJXUserInfo_POSTData[] = "JXUserInfo: POST Data";
static const char kJXUserInfo_DataKey[] = "JXUserInfo: Data";

// Names of the core variables, for `jx_get_core_variable`.

static const char kJXPredefinedVariable_IDFA[] = "#JX_IDFA#";
static const char kJXPredefinedVariable_IDFV[] = "#JX_IDFV#";
static const char kJXPredefinedVariable_SDKID[] = "#JX_SDK_ID#";
static const char kJXPredefinedVariable_UniqueID[] = "#JX_UNIQUE_ID#";
static const char kJXPredefinedVariable_UserAgent[] = "#JX_USER_AGENT#";
static const char kJXPredefinedVariable_isTrackingEnabled[] = "#JX_IS_TRACKING_ENABLED#";
static const char JX_ConsentVersion[] = "#JX_CONSENT_VERSION#";

// Names of the predefined variables, for `jx_get_variable`.

static const char kJXPredefinedVariable_Language[] = "#JX_LANGUAGE#";
static const char kJXPredefinedVariable_Region[] = "#JX_REGION#";
static const char kJXPredefinedVariable_SystemName[] = "#JX_SYSNAME#";
static const char kJXPredefinedVariable_SystemVersion[] = "#JX_SYSVERSION#";
static const char kJXPredefinedVariable_Model[] = "#JX_MODEL#";
static const char kJXPredefinedVariable_Device[] = "#JX_DEVICE#";
static const char kJXPredefinedVariable_ScreenResolution[] = "#JX_SCREEN#";
static const char kJXPredefinedVariable_Charset[] = "#JX_CHARSET#";
static const char kJXPredefinedVariable_CurrencyCode[] = "#JX_CURRENCY_CODE#";
static const char kJXPredefinedVariable_CurrencySymbol[] = "#JX_CURRENCY_SYMBOL#";
static const char kJXPredefinedVariable_ApplicationVersion[] = "#JX_APPLICATION_VERSION#";
static const char kJXPredefinedVariable_ApplicationPreviousVersion[] =
    "#JX_APPLICATION_PREVIOUS_VERSION#";
static const char kJXPredefinedVariable_ApplicationBuild[] = "#JX_APPLICATION_BUILD#";
static const char kJXPredefinedVariable_NorvaneVersion[] = "#JX_NORVANE_VERSION#";
static const char kJXPredefinedVariable_Manufacturer[] = "#JX_MANUFACTURER#";
static const char kJXPredefinedVariable_JailBroken[] = "#JX_JAILBROKEN#";
static const char kJXPredefinedVariable_ColdStarts[] = "#JX_APPLICATION_STARTS#";
static const char kJXPredefinedVariable_ForegroundTransitions[] = "#JX_FOREGROUNDS#";
static const char kJXPredefinedVariable_ForegroundTime[] = "#JX_FOREGROUND_TIME#";
static const char kJXPredefinedVariable_DeltaForegroundTime[] = "#JX_DELTA_FOREGROUND_TIME#";
static const char kJXPredefinedVariable_BackgroundTime[] = "#JX_BACKGROUND_TIME#";
static const char kJXPredefinedVariable_DeltaBackgroundTime[] = "#JX_DELTA_BACKGROUND_TIME#";
static const char kJXPredefinedVariable_BackgroundUxTime[] = "#JX_BACKGROUND_UX_TIME#";
static const char kJXPredefinedVariable_DeltaBackgroundUxTime[] = "#JX_DELTA_BACKGROUND_UX_TIME#";
static const char kJXPredefinedVariable_CurrentCallMs[] = "#JX_CURRENT_CALL_MS#";
static const char kJXPredefinedVariable_LastCallMs[] = "#JX_LAST_CALL_MS#";
static const char kJXPredefinedVariable_LastSessionStartMs[] = "#JX_LAST_SESSION_START_MS#";
static const char kJXPredefinedVariable_LastSessionLastHitMs[] = "#JX_LAST_SESSION_LAST_HIT_MS#";
static const char kJXPredefinedVariable_Longitude[] = "#JX_LONGITUDE#";
static const char kJXPredefinedVariable_Latitude[] = "#JX_LATITUDE#";
static const char kJXPredefinedVariable_BundleID[] = "#JX_BUNDLE_IDENTIFIER#";
static const char kJXPredefinedVariable_ApplicationName[] = "#JX_APPLICATION_NAME#";
static const char kJXPredefinedVariable_RuntimeName[] = "#JX_RUNTIME_NAME#";
static const char kJXPredefinedVariable_ScreenHeight[] = "#JX_SCREEN_HEIGHT#";
static const char kJXPredefinedVariable_ScreenWidth[] = "#JX_SCREEN_WIDTH#";
static const char kJXPredefinedVariable_FirstVisitMs[] = "#JX_FIRST_VISIT_MS#";
static const char kJXPredefinedVariable_LastVisitMs[] = "#JX_LAST_VISIT_MS#";
static const char kJXPredefinedVariable_CurrentSessionMs[] = "#JX_CURRENT_SESSION_MS#";
static const char kJXPredefinedVariable_CurrentVisitMs[] = "#JX_CURRENT_VISIT_MS#";
static const char kJXPredefinedVariable_SessionDurationMs[] = "#JX_SESSION_DURATION_MS#";
static const char kJXPredefinedVariable_CurVersionFirstVisitMs[] = "#JX_VERSION_FIRST_VISIT_MS#";
static const char kJXPredefinedVariable_NumberVisits[] = "#JX_NUMBER_VISIT#";
static const char kJXPredefinedVariable_NumberSessions[] = "#JX_NUMBER_SESSION#";
static const char kJXPredefinedVariable_IsFirstVisit[] = "#JX_IS_FIRST_VISIT#";
static const char kJXPredefinedVariable_SessionID[] = "#JX_SESSION_ID#";
static const char kJXPredefinedVariable_IsNewSession[] = "#JX_NEW_SESSION#";
static const char kJXPredefinedVariable_UserSessionDurationMs[] = "#JX_USER_SESSION_DURATION_MS#";
static const char kJXPredefinedVariable_UsageSessionDurationMs[] = "#JX_USAGE_SESSION_DURATION_MS#";
static const char kJXPredefinedVariable_AccumulatedBackgroundTime[] = "#JX_CS_START_IT#";
static const char kJXPredefinedVariable_TimeSinceLastExit[] = "#JX_CS_START_DIT#";
static const char kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement[] =
    "#JX_CS_START_FT#";
static const char kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement[] =
    "#JX_CS_START_DFT#";
static const char kJXPredefinedVariable_EmptyVariableRemoveEqual[] =
    "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#";
static const char kJXPredefinedVariable_FirstExecute[] = "#JX_FIRST_EXECUTE#";

// Predefined strings for `paymentMethod`; other strings are allowed.

static const char EJXPayementMethod_BY_INVOICE[] = "by_invoice";
static const char EJXPayementMethod_BY_BANK_TRANSFER_IN_A[] = "by_bank_transfer_in_advance";
static const char EJXPayementMethod_CARD[] = "card";
static const char EJXPayementMethod_CHECK_IN_ADVANCE[] = "check_in_advance";
static const char EJXPayementMethod_COD[] = "cod";
static const char EJXPayementMethod_COUPON[] = "coupon";
static const char EJXPayementMethod_DIRECT_DEBIT[] = "direct_debit";
static const char EJXPayementMethod_ONLINE_PAYMENT_SYSTEM[] = "online_payment_system";
static const char EJXPayementMethod_OTHER[] = "other";

// Predefined strings for `status`; other strings are allowed.

static const char EJXPurchaseStatus_CANCELED[] = "canceled";
static const char EJXPurchaseStatus_DELIVERED[] = "delivered";
static const char EJXPurchaseStatus_IN_PROGRESS[] = "in_progress";
static const char EJXPurchaseStatus_PARTIALLY_DELIVERED[] = "partially_delivered";
static const char EJXPurchaseStatus_PARTIALLY_RETURNED[] = "partially_returned";
static const char EJXPurchaseStatus_PARTIALLY_SHIPPED[] = "partially_shipped";
static const char EJXPurchaseStatus_PENDING_SHIPMENT[] = "pending_shipment";
static const char EJXPurchaseStatus_RETURNED[] = "returned";
static const char EJXPurchaseStatus_SHIPPE[] = "shipped";
static const char EJXPurchaseStatus_PENDING[] = "pending";

#endif

#ifdef __cplusplus
}
#endif

#endif
