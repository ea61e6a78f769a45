// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/keys.toml by scripts/catalogue. Do not edit.
#pragma once

#include <string_view>

#include "jx/platform/JXApi.h"

namespace jx {

/// The class that the key constants belong to. It has no members.
class JX_API JXEventPropertiesNames {};

/// @name Keys shared by several blocks
/// @{
inline constexpr std::string_view JX_ID = "id";
inline constexpr std::string_view JX_EVENTTIMESTAMP = "event_timestamp";
/// @}

/// @name Event keys
/// JXE_NAME, JXP_NAME and JXA_NAME are all "name", on purpose.
/// @{
inline constexpr std::string_view JXE_EVENT = "event_name";
inline constexpr std::string_view JXE_EVENTID = "event_id";
inline constexpr std::string_view JXE_PAYMENTMETHOD = "payment_method";
inline constexpr std::string_view JXE_COUPON = "coupon";
inline constexpr std::string_view JXE_CURRENCY = "currency";
inline constexpr std::string_view JXE_REVENUE = "revenue";
inline constexpr std::string_view JXE_VALUE = "value";
inline constexpr std::string_view JXE_ITEMS = "items";
inline constexpr std::string_view JXE_SHIPPINGTIER = "shipping_tier";
inline constexpr std::string_view JXE_SHIPPINGAMOUNT = "shipping_amount";
inline constexpr std::string_view JXE_TAXAMOUNT = "tax_amount";
inline constexpr std::string_view JXE_METHOD = "method";
inline constexpr std::string_view JXE_TYPE = "type";
inline constexpr std::string_view JXE_NAME = "name";
inline constexpr std::string_view JXE_TITLE = "title";
inline constexpr std::string_view JXE_URL = "url";
inline constexpr std::string_view JXE_PATH = "path";
inline constexpr std::string_view JXE_REFERRER = "referrer";
inline constexpr std::string_view JXE_STATUS = "status";
inline constexpr std::string_view JXE_SEARCHTERM = "search_term";
inline constexpr std::string_view JXE_CONTENTTYPE = "content_type";
inline constexpr std::string_view JXE_ITEMID = "item_id";
inline constexpr std::string_view JXE_ITEMLISTNAME = "item_list_name";
inline constexpr std::string_view JXE_PAGENAME = "page_name";
inline constexpr std::string_view JXE_PAGETYPE = "page_type";
/// @}

/// @name Item keys
/// @{
inline constexpr std::string_view JXI_PRODUCT = "product";
inline constexpr std::string_view JXI_VARIANT = "variant";
inline constexpr std::string_view JXI_LISTPOSITION = "list_position";
inline constexpr std::string_view JXI_DISCOUNT = "discount";
inline constexpr std::string_view JXI_QUANTITY = "quantity";
inline constexpr std::string_view JXI_AFFILIATION = "affiliation";
/// @}

/// @name Product keys
/// The key of a product's category is JXP_CATEGORY_N followed by its number, from 1.
/// @{
inline constexpr std::string_view JXP_PRICE = "price";
inline constexpr std::string_view JXP_BRAND = "brand";
inline constexpr std::string_view JXP_NAME = "name";
inline constexpr std::string_view JXP_COLORS = "colors";
inline constexpr std::string_view JXP_SIZE = "size";
inline constexpr std::string_view JXP_CATEGORY_N = "category_";
/// @}

/// @name Lifecycle keys
/// @{
inline constexpr std::string_view JXL_LIFECYCLE = "lifecycle";
inline constexpr std::string_view JXL_SESSION_ID = "session_id";
inline constexpr std::string_view JXL_NEW_SESSION = "new_session";
inline constexpr std::string_view JXL_SESSION_DURATION = "session_duration";
inline constexpr std::string_view JXL_CURRENT_SESSION = "current_session";
inline constexpr std::string_view JXL_VISIT_NUMBER = "visit_number";
inline constexpr std::string_view JXL_CURRENT_VISIT = "current_visit";
inline constexpr std::string_view JXL_CUR_VER_FIRST_VISIT = "current_version_first_visit";
inline constexpr std::string_view JXL_SESSION_NUMBER = "session_number";
inline constexpr std::string_view JXL_FIRST_VISIT = "first_visit";
inline constexpr std::string_view JXL_LAST_VISIT = "last_visit";
inline constexpr std::string_view JXL_LAST_CALL = "last_call";
inline constexpr std::string_view JXL_LAST_SESSION_START = "last_session_start";
inline constexpr std::string_view JXL_LAST_SESSION_LAST_HIT = "last_session_last_hit";
inline constexpr std::string_view JXL_FOREGROUND_TRANSITIONS = "foreground_transitions";
inline constexpr std::string_view JXL_FOREGROUND_TIME = "foreground_time";
inline constexpr std::string_view JXL_BACKGROUND_TIME = "background_time";
inline constexpr std::string_view JXL_FIRST_EXECUTE = "first_execute";
inline constexpr std::string_view JXL_IS_FIRST_VISIT = "is_first_visit";
/// @}

/// @name Application keys
/// @{
inline constexpr std::string_view JXA_APP = "app";
inline constexpr std::string_view JXA_NAME = "name";
inline constexpr std::string_view JXA_VERSION = "version";
inline constexpr std::string_view JXA_BUILD = "build";
inline constexpr std::string_view JXA_NAMESPACE = "namespace";
inline constexpr std::string_view JXA_COREVERSION = "core_version";
inline constexpr std::string_view JXA_SERVERSIDEVERSION = "serverside_version";
inline constexpr std::string_view JXA_CONSENTVERSION = "consent_version";
/// @}

/// @name Video keys
/// @{
inline constexpr std::string_view JXV_VIDEO_SESSION_ID = "video_session_id";
inline constexpr std::string_view JXV_CONTENT_ASSET_ID = "content_asset_id";
inline constexpr std::string_view JXV_CONTENT_POD_ID = "content_pod_id";
inline constexpr std::string_view JXV_AD_ASSET_ID = "ad_asset_id";
inline constexpr std::string_view JXV_AD_POD_ID = "ad_pod_id";
inline constexpr std::string_view JXV_AD_TYPE = "ad_type";
inline constexpr std::string_view JXV_POD_POSITION = "pod_position";
inline constexpr std::string_view JXV_CURSOR_POSITION = "cursor_position";
inline constexpr std::string_view JXV_SEEK_POSITION = "seek_position";
inline constexpr std::string_view JXV_TOTAL_LENGTH = "total_length";
inline constexpr std::string_view JXV_POD_LENGTH = "pod_length";
inline constexpr std::string_view JXV_BITRATE = "bitrate";
inline constexpr std::string_view JXV_FRAMERATE = "framerate";
inline constexpr std::string_view JXV_VIDEO_PLAYER = "video_player";
inline constexpr std::string_view JXV_SOUND = "sound";
inline constexpr std::string_view JXV_FULL_SCREEN = "full_screen";
inline constexpr std::string_view JXV_AD_ENABLED = "ad_enabled";
inline constexpr std::string_view JXV_IMAGE_QUALITY = "image_quality";
inline constexpr std::string_view JXV_INTERRUPTION_METHOD = "interruption_method";
inline constexpr std::string_view JXV_LIVESTREAM = "livestream";
inline constexpr std::string_view JXV_VIDEO_TITLE = "video_title";
inline constexpr std::string_view JXV_VIDEO_DESCRIPTION = "video_description";
inline constexpr std::string_view JXV_KEYWORDS = "keywords";
inline constexpr std::string_view JXV_SEASON = "season";
inline constexpr std::string_view JXV_EPISODE = "episode";
inline constexpr std::string_view JXV_VIDEO_CATEGORY = "video_category";
inline constexpr std::string_view JXV_PROGRAM = "program";
inline constexpr std::string_view JXV_PUBLISHER = "publisher";
inline constexpr std::string_view JXV_CHANNEL = "channel";
inline constexpr std::string_view JXV_FULL_EPISODE = "full_episode";
inline constexpr std::string_view JXV_AIRDATE = "airdate";
inline constexpr std::string_view JXV_LOAD_TYPE = "load_type";
inline constexpr std::string_view JXV_AD_QUARTILE = "ad_quartile";
/// @}

}  // namespace jx
