// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue by scripts/catalogue. Do not edit.
#import "jx/objc/JXNames.h"

@implementation JXEventPropertiesNames
@end

NSString* const EJXVideoPlaybackMode_toString[9] = {
    @"video_start",         @"video_pause",           @"video_error",
    @"video_buffer_start",  @"video_buffer_complete", @"video_seek_start",
    @"video_seek_complete", @"video_resume",          @"video_complete"};
NSString* const EJXVideoAdMode_toString[8] = {
    @"video_ad_start", @"video_ad_playing",     @"video_ad_stop",           @"video_ad_complete",
    @"video_ad_skip",  @"video_ad_break_start", @"video_ad_break_complete", @"video_ad_click"};
NSString* const EJXVideoContentMode_toString[4] = {@"video_content_start", @"video_content_playing",
                                                   @"video_content_quarter_reached",
                                                   @"video_content_complete"};
NSString* const EJXVideoSettingMode_toString[8] = {
    @"video_volume",        @"video_speed",          @"video_subtitle_on", @"video_subtitle_off",
    @"video_fullscreen_on", @"video_fullscreen_off", @"video_quality",     @"video_share"};
NSString* const EJXAdType_toString[3] = {@"pre-roll", @"mid-roll", @"post-roll"};
NSString* const EJXAdLoadType_toString[2] = {@"dynamic", @"linear"};

NSString* const JX_ID = @"id";
NSString* const JX_EVENTTIMESTAMP = @"event_timestamp";

NSString* const JXE_EVENT = @"event_name";
NSString* const JXE_EVENTID = @"event_id";
NSString* const JXE_PAYMENTMETHOD = @"payment_method";
NSString* const JXE_COUPON = @"coupon";
NSString* const JXE_CURRENCY = @"currency";
NSString* const JXE_REVENUE = @"revenue";
NSString* const JXE_VALUE = @"value";
NSString* const JXE_ITEMS = @"items";
NSString* const JXE_SHIPPINGTIER = @"shipping_tier";
NSString* const JXE_SHIPPINGAMOUNT = @"shipping_amount";
NSString* const JXE_TAXAMOUNT = @"tax_amount";
NSString* const JXE_METHOD = @"method";
NSString* const JXE_TYPE = @"type";
NSString* const JXE_NAME = @"name";
NSString* const JXE_TITLE = @"title";
NSString* const JXE_URL = @"url";
NSString* const JXE_PATH = @"path";
NSString* const JXE_REFERRER = @"referrer";
NSString* const JXE_STATUS = @"status";
NSString* const JXE_SEARCHTERM = @"search_term";
NSString* const JXE_CONTENTTYPE = @"content_type";
NSString* const JXE_ITEMID = @"item_id";
NSString* const JXE_ITEMLISTNAME = @"item_list_name";
NSString* const JXE_PAGENAME = @"page_name";
NSString* const JXE_PAGETYPE = @"page_type";

NSString* const JXI_PRODUCT = @"product";
NSString* const JXI_VARIANT = @"variant";
NSString* const JXI_LISTPOSITION = @"list_position";
NSString* const JXI_DISCOUNT = @"discount";
NSString* const JXI_QUANTITY = @"quantity";
NSString* const JXI_AFFILIATION = @"affiliation";

NSString* const JXP_PRICE = @"price";
NSString* const JXP_BRAND = @"brand";
NSString* const JXP_NAME = @"name";
NSString* const JXP_COLORS = @"colors";
NSString* const JXP_SIZE = @"size";
NSString* const JXP_CATEGORY_N = @"category_";

NSString* const JXL_LIFECYCLE = @"lifecycle";
NSString* const JXL_SESSION_ID = @"session_id";
NSString* const JXL_NEW_SESSION = @"new_session";
NSString* const JXL_SESSION_DURATION = @"session_duration";
NSString* const JXL_CURRENT_SESSION = @"current_session";
NSString* const JXL_VISIT_NUMBER = @"visit_number";
NSString* const JXL_CURRENT_VISIT = @"current_visit";
NSString* const JXL_CUR_VER_FIRST_VISIT = @"current_version_first_visit";
NSString* const JXL_SESSION_NUMBER = @"session_number";
NSString* const JXL_FIRST_VISIT = @"first_visit";
NSString* const JXL_LAST_VISIT = @"last_visit";
NSString* const JXL_LAST_CALL = @"last_call";
NSString* const JXL_LAST_SESSION_START = @"last_session_start";
NSString* const JXL_LAST_SESSION_LAST_HIT = @"last_session_last_hit";
NSString* const JXL_FOREGROUND_TRANSITIONS = @"foreground_transitions";
NSString* const JXL_FOREGROUND_TIME = @"foreground_time";
NSString* const JXL_BACKGROUND_TIME = @"background_time";
NSString* const JXL_FIRST_EXECUTE = @"first_execute";
NSString* const JXL_IS_FIRST_VISIT = @"is_first_visit";

NSString* const JXA_APP = @"app";
NSString* const JXA_NAME = @"name";
NSString* const JXA_VERSION = @"version";
NSString* const JXA_BUILD = @"build";
NSString* const JXA_NAMESPACE = @"namespace";
NSString* const JXA_COREVERSION = @"core_version";
NSString* const JXA_SERVERSIDEVERSION = @"serverside_version";
NSString* const JXA_CONSENTVERSION = @"consent_version";

NSString* const JXV_VIDEO_SESSION_ID = @"video_session_id";
NSString* const JXV_CONTENT_ASSET_ID = @"content_asset_id";
NSString* const JXV_CONTENT_POD_ID = @"content_pod_id";
NSString* const JXV_AD_ASSET_ID = @"ad_asset_id";
NSString* const JXV_AD_POD_ID = @"ad_pod_id";
NSString* const JXV_AD_TYPE = @"ad_type";
NSString* const JXV_POD_POSITION = @"pod_position";
NSString* const JXV_CURSOR_POSITION = @"cursor_position";
NSString* const JXV_SEEK_POSITION = @"seek_position";
NSString* const JXV_TOTAL_LENGTH = @"total_length";
NSString* const JXV_POD_LENGTH = @"pod_length";
NSString* const JXV_BITRATE = @"bitrate";
NSString* const JXV_FRAMERATE = @"framerate";
NSString* const JXV_VIDEO_PLAYER = @"video_player";
NSString* const JXV_SOUND = @"sound";
NSString* const JXV_FULL_SCREEN = @"full_screen";
NSString* const JXV_AD_ENABLED = @"ad_enabled";
NSString* const JXV_IMAGE_QUALITY = @"image_quality";
NSString* const JXV_INTERRUPTION_METHOD = @"interruption_method";
NSString* const JXV_LIVESTREAM = @"livestream";
NSString* const JXV_VIDEO_TITLE = @"video_title";
NSString* const JXV_VIDEO_DESCRIPTION = @"video_description";
NSString* const JXV_KEYWORDS = @"keywords";
NSString* const JXV_SEASON = @"season";
NSString* const JXV_EPISODE = @"episode";
NSString* const JXV_VIDEO_CATEGORY = @"video_category";
NSString* const JXV_PROGRAM = @"program";
NSString* const JXV_PUBLISHER = @"publisher";
NSString* const JXV_CHANNEL = @"channel";
NSString* const JXV_FULL_EPISODE = @"full_episode";
NSString* const JXV_AIRDATE = @"airdate";
NSString* const JXV_LOAD_TYPE = @"load_type";
NSString* const JXV_AD_QUARTILE = @"ad_quartile";

NSString* const JXE_CONTEXT = @"context";
NSString* const JXE_USER = @"user";
NSString* const JXD_DEVICE = @"device";
NSString* const JXD_ADTRACKING = @"ad_tracking";
NSString* const JXD_IDFA = @"idfa";
NSString* const JXD_IDFV = @"idfv";
NSString* const JXD_LANGUAGE = @"language";
NSString* const JXD_MANUFACTURER = @"manufacturer";
NSString* const JXD_MODEL = @"model";
NSString* const JXD_NAME = @"name";
NSString* const JXD_NETWORK = @"network";
NSString* const JXD_OS = @"os";
NSString* const JXD_OS_NAME = @"name";
NSString* const JXD_OS_VERSION = @"version";
NSString* const JXD_REGION = @"region";
NSString* const JXD_SCREEN = @"screen";
NSString* const JXD_SCREEN_HEIGHT = @"height";
NSString* const JXD_SCREEN_WIDTH = @"width";
NSString* const JXD_SDK_ID = @"sdk_id";
NSString* const JXD_TIMEZONE = @"timezone";
NSString* const JXD_TYPE = @"type";
NSString* const JXD_USER_AGENT = @"user_agent";

NSString* const kJXNotification_HTTPRequest = @"JXNotification: HTTP Request";
NSString* const kJXNotification_EnablingTheServerSide = @"JXNotification: Enabling The Server Side";
NSString* const kJXNotification_StoppingTheServerSide = @"JXNotification: Stopping The Server Side";
NSString* const kJXNotification_OnBackground = @"JXNotification: On Background";
NSString* const kJXNotification_OnForeground = @"JXNotification: On Foreground";
NSString* const kJXNotification_UserAgentAvailable = @"JXNotification: User Agent Available";
NSString* const kJXNotification_HitSent = @"JXNotification: Hit Sent";
NSString* const kJXUserInfo_URLKey = @"JXUserInfo: URL";
NSString* const kJXUserInfo_POSTData = @"JXUserInfo: POST Data";
NSString* const kJXUserInfo_DataKey = @"JXUserInfo: Data";

NSString* const kJXPredefinedVariable_IDFA = @"#JX_IDFA#";
NSString* const kJXPredefinedVariable_IDFV = @"#JX_IDFV#";
NSString* const kJXPredefinedVariable_SDKID = @"#JX_SDK_ID#";
NSString* const kJXPredefinedVariable_UniqueID = @"#JX_UNIQUE_ID#";
NSString* const kJXPredefinedVariable_UserAgent = @"#JX_USER_AGENT#";
NSString* const kJXPredefinedVariable_isTrackingEnabled = @"#JX_IS_TRACKING_ENABLED#";
NSString* const JX_ConsentVersion = @"#JX_CONSENT_VERSION#";

NSString* const kJXPredefinedVariable_Language = @"#JX_LANGUAGE#";
NSString* const kJXPredefinedVariable_Region = @"#JX_REGION#";
NSString* const kJXPredefinedVariable_SystemName = @"#JX_SYSNAME#";
NSString* const kJXPredefinedVariable_SystemVersion = @"#JX_SYSVERSION#";
NSString* const kJXPredefinedVariable_Model = @"#JX_MODEL#";
NSString* const kJXPredefinedVariable_Device = @"#JX_DEVICE#";
NSString* const kJXPredefinedVariable_ScreenResolution = @"#JX_SCREEN#";
NSString* const kJXPredefinedVariable_Charset = @"#JX_CHARSET#";
NSString* const kJXPredefinedVariable_CurrencyCode = @"#JX_CURRENCY_CODE#";
NSString* const kJXPredefinedVariable_CurrencySymbol = @"#JX_CURRENCY_SYMBOL#";
NSString* const kJXPredefinedVariable_ApplicationVersion = @"#JX_APPLICATION_VERSION#";
NSString* const kJXPredefinedVariable_ApplicationPreviousVersion =
    @"#JX_APPLICATION_PREVIOUS_VERSION#";
NSString* const kJXPredefinedVariable_ApplicationBuild = @"#JX_APPLICATION_BUILD#";
NSString* const kJXPredefinedVariable_NorvaneVersion = @"#JX_NORVANE_VERSION#";
NSString* const kJXPredefinedVariable_Manufacturer = @"#JX_MANUFACTURER#";
NSString* const kJXPredefinedVariable_JailBroken = @"#JX_JAILBROKEN#";
NSString* const kJXPredefinedVariable_ColdStarts = @"#JX_APPLICATION_STARTS#";
NSString* const kJXPredefinedVariable_ForegroundTransitions = @"#JX_FOREGROUNDS#";
NSString* const kJXPredefinedVariable_ForegroundTime = @"#JX_FOREGROUND_TIME#";
NSString* const kJXPredefinedVariable_DeltaForegroundTime = @"#JX_DELTA_FOREGROUND_TIME#";
NSString* const kJXPredefinedVariable_BackgroundTime = @"#JX_BACKGROUND_TIME#";
NSString* const kJXPredefinedVariable_DeltaBackgroundTime = @"#JX_DELTA_BACKGROUND_TIME#";
NSString* const kJXPredefinedVariable_BackgroundUxTime = @"#JX_BACKGROUND_UX_TIME#";
NSString* const kJXPredefinedVariable_DeltaBackgroundUxTime = @"#JX_DELTA_BACKGROUND_UX_TIME#";
NSString* const kJXPredefinedVariable_CurrentCallMs = @"#JX_CURRENT_CALL_MS#";
NSString* const kJXPredefinedVariable_LastCallMs = @"#JX_LAST_CALL_MS#";
NSString* const kJXPredefinedVariable_LastSessionStartMs = @"#JX_LAST_SESSION_START_MS#";
NSString* const kJXPredefinedVariable_LastSessionLastHitMs = @"#JX_LAST_SESSION_LAST_HIT_MS#";
NSString* const kJXPredefinedVariable_Longitude = @"#JX_LONGITUDE#";
NSString* const kJXPredefinedVariable_Latitude = @"#JX_LATITUDE#";
NSString* const kJXPredefinedVariable_BundleID = @"#JX_BUNDLE_IDENTIFIER#";
NSString* const kJXPredefinedVariable_ApplicationName = @"#JX_APPLICATION_NAME#";
NSString* const kJXPredefinedVariable_RuntimeName = @"#JX_RUNTIME_NAME#";
NSString* const kJXPredefinedVariable_ScreenHeight = @"#JX_SCREEN_HEIGHT#";
NSString* const kJXPredefinedVariable_ScreenWidth = @"#JX_SCREEN_WIDTH#";
NSString* const kJXPredefinedVariable_FirstVisitMs = @"#JX_FIRST_VISIT_MS#";
NSString* const kJXPredefinedVariable_LastVisitMs = @"#JX_LAST_VISIT_MS#";
NSString* const kJXPredefinedVariable_CurrentSessionMs = @"#JX_CURRENT_SESSION_MS#";
NSString* const kJXPredefinedVariable_CurrentVisitMs = @"#JX_CURRENT_VISIT_MS#";
NSString* const kJXPredefinedVariable_SessionDurationMs = @"#JX_SESSION_DURATION_MS#";
NSString* const kJXPredefinedVariable_CurVersionFirstVisitMs = @"#JX_VERSION_FIRST_VISIT_MS#";
NSString* const kJXPredefinedVariable_NumberVisits = @"#JX_NUMBER_VISIT#";
NSString* const kJXPredefinedVariable_NumberSessions = @"#JX_NUMBER_SESSION#";
NSString* const kJXPredefinedVariable_IsFirstVisit = @"#JX_IS_FIRST_VISIT#";
NSString* const kJXPredefinedVariable_SessionID = @"#JX_SESSION_ID#";
NSString* const kJXPredefinedVariable_IsNewSession = @"#JX_NEW_SESSION#";
NSString* const kJXPredefinedVariable_UserSessionDurationMs = @"#JX_USER_SESSION_DURATION_MS#";
NSString* const kJXPredefinedVariable_UsageSessionDurationMs = @"#JX_USAGE_SESSION_DURATION_MS#";
NSString* const kJXPredefinedVariable_AccumulatedBackgroundTime = @"#JX_CS_START_IT#";
NSString* const kJXPredefinedVariable_TimeSinceLastExit = @"#JX_CS_START_DIT#";
NSString* const kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement =
    @"#JX_CS_START_FT#";
NSString* const kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement = @"#JX_CS_START_DFT#";
NSString* const kJXPredefinedVariable_EmptyVariableRemoveEqual =
    @"#JX_EMPTY_VARIABLE_REMOVE_EQUAL#";
NSString* const kJXPredefinedVariable_FirstExecute = @"#JX_FIRST_EXECUTE#";

NSString* const kJXCoreVersion = @"1.0.0";

NSString* const kJXServerSideVersion = @"5.4.5";
NSString* const kReleaseDate = @"28/04/2025";
NSString* const kReleaseTime = @"17:17:38";

NSString* const JX_WAITING_FOR_CONSENT = @"waiting_for_consent";

NSString* const STATIC_IDFA = @"00000000-0000-0000-0000-000000000000";

NSString* const JX_GCM_DEVELOPER_ID = @"jx_serverside";

NSString* const kJXManufacturerName = @"Apple";

NSString* const kJXUserDefaultsKey_UniqueID = @"jx_unique_id";
NSString* const kJXDateFirstVisitFormat = @"jx_date_first_visit";
NSString* const kJXDateLastVisitFormat = @"jx_date_last_visit";
NSString* const kJXDateCurrentVisitFormat = @"jx_date_current_visit";
NSString* const kJXNumberColdStarts = @"jx_number_coldStarts";
NSString* const kJXNumberSessions = @"jx_number_sessions";
NSString* const kJXLastPID = @"jx_last_pid";
NSString* const kJXTimeSinceLastMeasurement = @"TimeSinceLastMeasurement";
NSString* const kJXSessionStartTimestamp = @"SessionStartTimestamp";
NSString* const kJXLastSessionStartTimestamp = @"LastSessionStartTimestamp";
NSString* const kJXExitTimestamp = @"ExitTimestamp";
NSString* const kJXUsageDuration = @"UsageDuration";
NSString* const kJXLastForegroundTime = @"LastForegroundTime";
NSString* const kJXLastBackgroundTime = @"LastBackgroundTime";

NSString* const EJXPayementMethod_BY_INVOICE = @"by_invoice";
NSString* const EJXPayementMethod_BY_BANK_TRANSFER_IN_A = @"by_bank_transfer_in_advance";
NSString* const EJXPayementMethod_CARD = @"card";
NSString* const EJXPayementMethod_CHECK_IN_ADVANCE = @"check_in_advance";
NSString* const EJXPayementMethod_COD = @"cod";
NSString* const EJXPayementMethod_COUPON = @"coupon";
NSString* const EJXPayementMethod_DIRECT_DEBIT = @"direct_debit";
NSString* const EJXPayementMethod_ONLINE_PAYMENT_SYSTEM = @"online_payment_system";
NSString* const EJXPayementMethod_OTHER = @"other";

NSString* const EJXPurchaseStatus_CANCELED = @"canceled";
NSString* const EJXPurchaseStatus_DELIVERED = @"delivered";
NSString* const EJXPurchaseStatus_IN_PROGRESS = @"in_progress";
NSString* const EJXPurchaseStatus_PARTIALLY_DELIVERED = @"partially_delivered";
NSString* const EJXPurchaseStatus_PARTIALLY_RETURNED = @"partially_returned";
NSString* const EJXPurchaseStatus_PARTIALLY_SHIPPED = @"partially_shipped";
NSString* const EJXPurchaseStatus_PENDING_SHIPMENT = @"pending_shipment";
NSString* const EJXPurchaseStatus_RETURNED = @"returned";
NSString* const EJXPurchaseStatus_SHIPPE = @"shipped";
NSString* const EJXPurchaseStatus_PENDING = @"pending";
