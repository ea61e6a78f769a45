// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JX_NAMES_H
#define JX_C_EVENTS_JX_NAMES_H

// Names of notifications, and keys of what goes with them.

#define JXNotification_HTTPRequest "JXNotification: HTTP Request"
#define JXNotification_EnablingTheServerSide "JXNotification: Enabling The Server Side"
#define JXNotification_StoppingTheServerSide "JXNotification: Stopping The Server Side"
#define JXNotification_OnBackground "JXNotification: On Background"
#define JXNotification_OnForeground "JXNotification: On Foreground"
#define JXNotification_UserAgentAvailable "JXNotification: User Agent Available"
#define JXNotification_HitSent "JXNotification: Hit Sent"
#define JXUserInfo_URLKey "JXUserInfo: URL"
#define JXUserInfo_POSTData "JXUserInfo: POST Data"
#define JXUserInfo_DataKey "JXUserInfo: Data"

// Names of the core's variables, for `jx_get_core_variable`.

#define JXPredefinedVariable_IDFA "#JX_IDFA#"
#define JXPredefinedVariable_IDFV "#JX_IDFV#"
#define JXPredefinedVariable_SDKID "#JX_SDK_ID#"
#define JXPredefinedVariable_UniqueID "#JX_UNIQUE_ID#"
#define JXPredefinedVariable_UserAgent "#JX_USER_AGENT#"
#define JXPredefinedVariable_isTrackingEnabled "#JX_IS_TRACKING_ENABLED#"

// The core's variable that a consent module sets.

#define JXPredefinedVariable_ConsentVersion "#JX_CONSENT_VERSION#"

// Names of the predefined variables, for `jx_get_variable`.

#define JXPredefinedVariable_Language "#JX_LANGUAGE#"
#define JXPredefinedVariable_Region "#JX_REGION#"
#define JXPredefinedVariable_SystemName "#JX_SYSNAME#"
#define JXPredefinedVariable_SystemVersion "#JX_SYSVERSION#"
#define JXPredefinedVariable_Model "#JX_MODEL#"
#define JXPredefinedVariable_Device "#JX_DEVICE#"
#define JXPredefinedVariable_ScreenResolution "#JX_SCREEN#"
#define JXPredefinedVariable_Charset "#JX_CHARSET#"
#define JXPredefinedVariable_CurrencyCode "#JX_CURRENCY_CODE#"
#define JXPredefinedVariable_CurrencySymbol "#JX_CURRENCY_SYMBOL#"
#define JXPredefinedVariable_ApplicationVersion "#JX_APPLICATION_VERSION#"
#define JXPredefinedVariable_ApplicationPreviousVersion "#JX_APPLICATION_PREVIOUS_VERSION#"
#define JXPredefinedVariable_ApplicationBuild "#JX_APPLICATION_BUILD#"
#define JXPredefinedVariable_NorvaneVersion "#JX_NORVANE_VERSION#"
#define JXPredefinedVariable_Manufacturer "#JX_MANUFACTURER#"
#define JXPredefinedVariable_JailBroken "#JX_JAILBROKEN#"
#define JXPredefinedVariable_ColdStarts "#JX_APPLICATION_STARTS#"
#define JXPredefinedVariable_ForegroundTransitions "#JX_FOREGROUNDS#"
#define JXPredefinedVariable_ForegroundTime "#JX_FOREGROUND_TIME#"
#define JXPredefinedVariable_DeltaForegroundTime "#JX_DELTA_FOREGROUND_TIME#"
#define JXPredefinedVariable_BackgroundTime "#JX_BACKGROUND_TIME#"
#define JXPredefinedVariable_DeltaBackgroundTime "#JX_DELTA_BACKGROUND_TIME#"
#define JXPredefinedVariable_BackgroundUxTime "#JX_BACKGROUND_UX_TIME#"
#define JXPredefinedVariable_DeltaBackgroundUxTime "#JX_DELTA_BACKGROUND_UX_TIME#"
#define JXPredefinedVariable_CurrentCallMs "#JX_CURRENT_CALL_MS#"
#define JXPredefinedVariable_LastCallMs "#JX_LAST_CALL_MS#"
#define JXPredefinedVariable_LastSessionStartMs "#JX_LAST_SESSION_START_MS#"
#define JXPredefinedVariable_LastSessionLastHitMs "#JX_LAST_SESSION_LAST_HIT_MS#"
#define JXPredefinedVariable_Longitude "#JX_LONGITUDE#"
#define JXPredefinedVariable_Latitude "#JX_LATITUDE#"
#define JXPredefinedVariable_BundleID "#JX_BUNDLE_IDENTIFIER#"
#define JXPredefinedVariable_ApplicationName "#JX_APPLICATION_NAME#"
#define JXPredefinedVariable_RuntimeName "#JX_RUNTIME_NAME#"
#define JXPredefinedVariable_ScreenHeight "#JX_SCREEN_HEIGHT#"
#define JXPredefinedVariable_ScreenWidth "#JX_SCREEN_WIDTH#"
#define JXPredefinedVariable_FirstVisitMs "#JX_FIRST_VISIT_MS#"
#define JXPredefinedVariable_LastVisitMs "#JX_LAST_VISIT_MS#"
#define JXPredefinedVariable_CurrentSessionMs "#JX_CURRENT_SESSION_MS#"
#define JXPredefinedVariable_CurrentVisitMs "#JX_CURRENT_VISIT_MS#"
#define JXPredefinedVariable_SessionDurationMs "#JX_SESSION_DURATION_MS#"
#define JXPredefinedVariable_CurVersionFirstVisitMs "#JX_VERSION_FIRST_VISIT_MS#"
#define JXPredefinedVariable_NumberVisits "#JX_NUMBER_VISIT#"
#define JXPredefinedVariable_NumberSessions "#JX_NUMBER_SESSION#"
#define JXPredefinedVariable_IsFirstVisit "#JX_IS_FIRST_VISIT#"
#define JXPredefinedVariable_SessionID "#JX_SESSION_ID#"
#define JXPredefinedVariable_IsNewSession "#JX_NEW_SESSION#"
#define JXPredefinedVariable_UserSessionDurationMs "#JX_USER_SESSION_DURATION_MS#"
#define JXPredefinedVariable_UsageSessionDurationMs "#JX_USAGE_SESSION_DURATION_MS#"
#define JXPredefinedVariable_AccumulatedBackgroundTime "#JX_CS_START_IT#"
#define JXPredefinedVariable_TimeSinceLastExit "#JX_CS_START_DIT#"
#define JXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement "#JX_CS_START_FT#"
#define JXPredefinedVariable_LastForegroundTimeWithoutMeasurement "#JX_CS_START_DFT#"
#define JXPredefinedVariable_EmptyVariableRemoveEqual "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#"
#define JXPredefinedVariable_FirstExecute "#JX_FIRST_EXECUTE#"

// Ready-made texts for `paymentMethod`; any other may be given.

#define JXPayementMethod_BY_INVOICE "by_invoice"
#define JXPayementMethod_BY_BANK_TRANSFER_IN_A "by_bank_transfer_in_advance"
#define JXPayementMethod_CARD "card"
#define JXPayementMethod_CHECK_IN_ADVANCE "check_in_advance"
#define JXPayementMethod_COD "cod"
#define JXPayementMethod_COUPON "coupon"
#define JXPayementMethod_DIRECT_DEBIT "direct_debit"
#define JXPayementMethod_ONLINE_PAYMENT_SYSTEM "online_payment_system"
#define JXPayementMethod_OTHER "other"

// Ready-made texts for `status`; any other may be given.

#define JXPurchaseStatus_CANCELED "canceled"
#define JXPurchaseStatus_DELIVERED "delivered"
#define JXPurchaseStatus_IN_PROGRESS "in_progress"
#define JXPurchaseStatus_PARTIALLY_DELIVERED "partially_delivered"
#define JXPurchaseStatus_PARTIALLY_RETURNED "partially_returned"
#define JXPurchaseStatus_PARTIALLY_SHIPPED "partially_shipped"
#define JXPurchaseStatus_PENDING_SHIPMENT "pending_shipment"
#define JXPurchaseStatus_RETURNED "returned"
#define JXPurchaseStatus_SHIPPE "shipped"
#define JXPurchaseStatus_PENDING "pending"

#endif
