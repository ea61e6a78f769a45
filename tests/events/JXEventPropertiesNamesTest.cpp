// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The JSON keys of the events, as literals: servers depend on them.

#include "jx/catalogue/JXEventPropertiesNames.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "jx/core/JXCoreConstants.h"

namespace jx::test {
namespace {

TEST(EventKeys, MatchTheKeysThatServersRead) {
  EXPECT_EQ(JX_ID, "id");
  EXPECT_EQ(JXE_EVENT, "event_name");
  EXPECT_EQ(JXE_EVENTID, "event_id");
  EXPECT_EQ(JX_EVENTTIMESTAMP, "event_timestamp");
  EXPECT_EQ(JXE_PAYMENTMETHOD, "payment_method");
  EXPECT_EQ(JXE_COUPON, "coupon");
  EXPECT_EQ(JXE_CURRENCY, "currency");
  EXPECT_EQ(JXE_REVENUE, "revenue");
  EXPECT_EQ(JXE_VALUE, "value");
  EXPECT_EQ(JXE_ITEMS, "items");
  EXPECT_EQ(JXE_SHIPPINGTIER, "shipping_tier");
  EXPECT_EQ(JXE_SHIPPINGAMOUNT, "shipping_amount");
  EXPECT_EQ(JXE_TAXAMOUNT, "tax_amount");
  EXPECT_EQ(JXE_METHOD, "method");
  EXPECT_EQ(JXE_TYPE, "type");
  EXPECT_EQ(JXE_NAME, "name");
  EXPECT_EQ(JXE_TITLE, "title");
  EXPECT_EQ(JXE_URL, "url");
  EXPECT_EQ(JXE_PATH, "path");
  EXPECT_EQ(JXE_REFERRER, "referrer");
  EXPECT_EQ(JXE_STATUS, "status");
  EXPECT_EQ(JXE_SEARCHTERM, "search_term");
  EXPECT_EQ(JXE_CONTENTTYPE, "content_type");
  EXPECT_EQ(JXE_ITEMID, "item_id");
  EXPECT_EQ(JXE_ITEMLISTNAME, "item_list_name");
  EXPECT_EQ(JXE_PAGENAME, "page_name");
  EXPECT_EQ(JXE_PAGETYPE, "page_type");
  EXPECT_EQ(JXI_PRODUCT, "product");
  EXPECT_EQ(JXI_VARIANT, "variant");
  EXPECT_EQ(JXI_LISTPOSITION, "list_position");
  EXPECT_EQ(JXI_DISCOUNT, "discount");
  EXPECT_EQ(JXI_QUANTITY, "quantity");
  EXPECT_EQ(JXI_AFFILIATION, "affiliation");
  EXPECT_EQ(JXP_PRICE, "price");
  EXPECT_EQ(JXP_BRAND, "brand");
  EXPECT_EQ(JXP_NAME, "name");
  EXPECT_EQ(JXP_COLORS, "colors");
  EXPECT_EQ(JXP_SIZE, "size");
  EXPECT_EQ(JXP_CATEGORY_N, "category_");
  EXPECT_EQ(JXL_LIFECYCLE, "lifecycle");
  EXPECT_EQ(JXL_SESSION_ID, "session_id");
  EXPECT_EQ(JXL_NEW_SESSION, "new_session");
  EXPECT_EQ(JXL_SESSION_DURATION, "session_duration");
  EXPECT_EQ(JXL_CURRENT_SESSION, "current_session");
  EXPECT_EQ(JXL_VISIT_NUMBER, "visit_number");
  EXPECT_EQ(JXL_CURRENT_VISIT, "current_visit");
  EXPECT_EQ(JXL_CUR_VER_FIRST_VISIT, "current_version_first_visit");
  EXPECT_EQ(JXL_SESSION_NUMBER, "session_number");
  EXPECT_EQ(JXL_FIRST_VISIT, "first_visit");
  EXPECT_EQ(JXL_LAST_VISIT, "last_visit");
  EXPECT_EQ(JXL_LAST_CALL, "last_call");
  EXPECT_EQ(JXL_LAST_SESSION_START, "last_session_start");
  EXPECT_EQ(JXL_LAST_SESSION_LAST_HIT, "last_session_last_hit");
  EXPECT_EQ(JXL_FOREGROUND_TRANSITIONS, "foreground_transitions");
  EXPECT_EQ(JXL_FOREGROUND_TIME, "foreground_time");
  EXPECT_EQ(JXL_BACKGROUND_TIME, "background_time");
  EXPECT_EQ(JXL_FIRST_EXECUTE, "first_execute");
  EXPECT_EQ(JXL_IS_FIRST_VISIT, "is_first_visit");
  EXPECT_EQ(JXA_APP, "app");
  EXPECT_EQ(JXA_NAME, "name");
  EXPECT_EQ(JXA_VERSION, "version");
  EXPECT_EQ(JXA_BUILD, "build");
  EXPECT_EQ(JXA_NAMESPACE, "namespace");
  EXPECT_EQ(JXA_COREVERSION, "core_version");
  EXPECT_EQ(JXA_SERVERSIDEVERSION, "serverside_version");
  EXPECT_EQ(JXA_CONSENTVERSION, "consent_version");
  EXPECT_EQ(JXV_VIDEO_SESSION_ID, "video_session_id");
  EXPECT_EQ(JXV_CONTENT_ASSET_ID, "content_asset_id");
  EXPECT_EQ(JXV_CONTENT_POD_ID, "content_pod_id");
  EXPECT_EQ(JXV_AD_ASSET_ID, "ad_asset_id");
  EXPECT_EQ(JXV_AD_POD_ID, "ad_pod_id");
  EXPECT_EQ(JXV_AD_TYPE, "ad_type");
  EXPECT_EQ(JXV_POD_POSITION, "pod_position");
  EXPECT_EQ(JXV_CURSOR_POSITION, "cursor_position");
  EXPECT_EQ(JXV_SEEK_POSITION, "seek_position");
  EXPECT_EQ(JXV_TOTAL_LENGTH, "total_length");
  EXPECT_EQ(JXV_POD_LENGTH, "pod_length");
  EXPECT_EQ(JXV_BITRATE, "bitrate");
  EXPECT_EQ(JXV_FRAMERATE, "framerate");
  EXPECT_EQ(JXV_VIDEO_PLAYER, "video_player");
  EXPECT_EQ(JXV_SOUND, "sound");
  EXPECT_EQ(JXV_FULL_SCREEN, "full_screen");
  EXPECT_EQ(JXV_AD_ENABLED, "ad_enabled");
  EXPECT_EQ(JXV_IMAGE_QUALITY, "image_quality");
  EXPECT_EQ(JXV_INTERRUPTION_METHOD, "interruption_method");
  EXPECT_EQ(JXV_LIVESTREAM, "livestream");
  EXPECT_EQ(JXV_VIDEO_TITLE, "video_title");
  EXPECT_EQ(JXV_VIDEO_DESCRIPTION, "video_description");
  EXPECT_EQ(JXV_KEYWORDS, "keywords");
  EXPECT_EQ(JXV_SEASON, "season");
  EXPECT_EQ(JXV_EPISODE, "episode");
  EXPECT_EQ(JXV_VIDEO_CATEGORY, "video_category");
  EXPECT_EQ(JXV_PROGRAM, "program");
  EXPECT_EQ(JXV_PUBLISHER, "publisher");
  EXPECT_EQ(JXV_CHANNEL, "channel");
  EXPECT_EQ(JXV_FULL_EPISODE, "full_episode");
  EXPECT_EQ(JXV_AIRDATE, "airdate");
  EXPECT_EQ(JXV_LOAD_TYPE, "load_type");
  EXPECT_EQ(JXV_AD_QUARTILE, "ad_quartile");
}

TEST(EventKeys, OfContextAndUserMatchTheCore) {
  EXPECT_EQ(JXE_CONTEXT, "context");
  EXPECT_EQ(JXE_USER, "user");
}

TEST(EventKeys, ClassOfTheKeysIsEmpty) { EXPECT_TRUE(std::is_empty_v<JXEventPropertiesNames>); }

}  // namespace
}  // namespace jx::test
