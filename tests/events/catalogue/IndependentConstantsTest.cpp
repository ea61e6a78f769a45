// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "jx/JXServerSide.h"
#include "jx/events/JXEventPropertiesNames.h"
#include "jx/events/ecommerce/JXPaymentMethods.h"
#include "jx/events/ecommerce/JXPurchaseStatuses.h"
#include "tests/events/catalogue/ExpectedConstants.h"

namespace jx::test {
namespace {

using Lines = std::vector<std::string>;

// A constant's name can only be had from the preprocessor.
#define JX_TEST_TEXT(constant) (std::string(#constant " = ") + std::string(constant))
#define JX_TEST_MEMBER(table, member)                           \
  (std::string(#member " = ") + std::to_string(member) + ", " + \
   std::string((table)[static_cast<std::size_t>(member)]))

Lines linesOf(const std::vector<ExpectedText>& expected) {
  Lines lines;
  for (const ExpectedText& one : expected) {
    lines.push_back(std::string(one.constant) + " = " + std::string(one.text));
  }
  return lines;
}

Lines linesOfEnumeration(std::string_view name) {
  Lines lines;
  for (const ExpectedEnumeration& one : expectedEnumerations()) {
    if (one.name != name) continue;
    for (const ExpectedMember& member : one.members) {
      lines.push_back(std::string(member.member) + " = " + std::to_string(member.value) + ", " +
                      std::string(member.text));
    }
  }
  return lines;
}

Lines eventKeys() {
  return {
      JX_TEST_TEXT(JX_ID),
      JX_TEST_TEXT(JXE_EVENT),
      JX_TEST_TEXT(JXE_EVENTID),
      JX_TEST_TEXT(JX_EVENTTIMESTAMP),
      JX_TEST_TEXT(JXE_PAYMENTMETHOD),
      JX_TEST_TEXT(JXE_COUPON),
      JX_TEST_TEXT(JXE_CURRENCY),
      JX_TEST_TEXT(JXE_REVENUE),
      JX_TEST_TEXT(JXE_VALUE),
      JX_TEST_TEXT(JXE_ITEMS),
      JX_TEST_TEXT(JXE_SHIPPINGTIER),
      JX_TEST_TEXT(JXE_SHIPPINGAMOUNT),
      JX_TEST_TEXT(JXE_TAXAMOUNT),
      JX_TEST_TEXT(JXE_METHOD),
      JX_TEST_TEXT(JXE_TYPE),
      JX_TEST_TEXT(JXE_NAME),
      JX_TEST_TEXT(JXE_TITLE),
      JX_TEST_TEXT(JXE_URL),
      JX_TEST_TEXT(JXE_PATH),
      JX_TEST_TEXT(JXE_REFERRER),
      JX_TEST_TEXT(JXE_STATUS),
      JX_TEST_TEXT(JXE_SEARCHTERM),
      JX_TEST_TEXT(JXE_CONTENTTYPE),
      JX_TEST_TEXT(JXE_ITEMID),
      JX_TEST_TEXT(JXE_ITEMLISTNAME),
      JX_TEST_TEXT(JXE_PAGENAME),
      JX_TEST_TEXT(JXE_PAGETYPE),
  };
}

Lines itemAndProductKeys() {
  return {
      JX_TEST_TEXT(JXI_PRODUCT),  JX_TEST_TEXT(JXI_VARIANT),  JX_TEST_TEXT(JXI_LISTPOSITION),
      JX_TEST_TEXT(JXI_DISCOUNT), JX_TEST_TEXT(JXI_QUANTITY), JX_TEST_TEXT(JXI_AFFILIATION),
      JX_TEST_TEXT(JXP_PRICE),    JX_TEST_TEXT(JXP_BRAND),    JX_TEST_TEXT(JXP_NAME),
      JX_TEST_TEXT(JXP_COLORS),   JX_TEST_TEXT(JXP_SIZE),     JX_TEST_TEXT(JXP_CATEGORY_N),
  };
}

Lines lifecycleAndApplicationKeys() {
  return {
      JX_TEST_TEXT(JXL_LIFECYCLE),
      JX_TEST_TEXT(JXL_SESSION_ID),
      JX_TEST_TEXT(JXL_NEW_SESSION),
      JX_TEST_TEXT(JXL_SESSION_DURATION),
      JX_TEST_TEXT(JXL_CURRENT_SESSION),
      JX_TEST_TEXT(JXL_VISIT_NUMBER),
      JX_TEST_TEXT(JXL_CURRENT_VISIT),
      JX_TEST_TEXT(JXL_CUR_VER_FIRST_VISIT),
      JX_TEST_TEXT(JXL_SESSION_NUMBER),
      JX_TEST_TEXT(JXL_FIRST_VISIT),
      JX_TEST_TEXT(JXL_LAST_VISIT),
      JX_TEST_TEXT(JXL_LAST_CALL),
      JX_TEST_TEXT(JXL_LAST_SESSION_START),
      JX_TEST_TEXT(JXL_LAST_SESSION_LAST_HIT),
      JX_TEST_TEXT(JXL_FOREGROUND_TRANSITIONS),
      JX_TEST_TEXT(JXL_FOREGROUND_TIME),
      JX_TEST_TEXT(JXL_BACKGROUND_TIME),
      JX_TEST_TEXT(JXL_FIRST_EXECUTE),
      JX_TEST_TEXT(JXL_IS_FIRST_VISIT),
      JX_TEST_TEXT(JXA_APP),
      JX_TEST_TEXT(JXA_NAME),
      JX_TEST_TEXT(JXA_VERSION),
      JX_TEST_TEXT(JXA_BUILD),
      JX_TEST_TEXT(JXA_NAMESPACE),
      JX_TEST_TEXT(JXA_COREVERSION),
      JX_TEST_TEXT(JXA_SERVERSIDEVERSION),
      JX_TEST_TEXT(JXA_CONSENTVERSION),
  };
}

Lines videoKeys() {
  return {
      JX_TEST_TEXT(JXV_VIDEO_SESSION_ID),
      JX_TEST_TEXT(JXV_CONTENT_ASSET_ID),
      JX_TEST_TEXT(JXV_CONTENT_POD_ID),
      JX_TEST_TEXT(JXV_AD_ASSET_ID),
      JX_TEST_TEXT(JXV_AD_POD_ID),
      JX_TEST_TEXT(JXV_AD_TYPE),
      JX_TEST_TEXT(JXV_POD_POSITION),
      JX_TEST_TEXT(JXV_CURSOR_POSITION),
      JX_TEST_TEXT(JXV_SEEK_POSITION),
      JX_TEST_TEXT(JXV_TOTAL_LENGTH),
      JX_TEST_TEXT(JXV_POD_LENGTH),
      JX_TEST_TEXT(JXV_BITRATE),
      JX_TEST_TEXT(JXV_FRAMERATE),
      JX_TEST_TEXT(JXV_VIDEO_PLAYER),
      JX_TEST_TEXT(JXV_SOUND),
      JX_TEST_TEXT(JXV_FULL_SCREEN),
      JX_TEST_TEXT(JXV_AD_ENABLED),
      JX_TEST_TEXT(JXV_IMAGE_QUALITY),
      JX_TEST_TEXT(JXV_INTERRUPTION_METHOD),
      JX_TEST_TEXT(JXV_LIVESTREAM),
      JX_TEST_TEXT(JXV_VIDEO_TITLE),
      JX_TEST_TEXT(JXV_VIDEO_DESCRIPTION),
      JX_TEST_TEXT(JXV_KEYWORDS),
      JX_TEST_TEXT(JXV_SEASON),
      JX_TEST_TEXT(JXV_EPISODE),
      JX_TEST_TEXT(JXV_VIDEO_CATEGORY),
      JX_TEST_TEXT(JXV_PROGRAM),
      JX_TEST_TEXT(JXV_PUBLISHER),
      JX_TEST_TEXT(JXV_CHANNEL),
      JX_TEST_TEXT(JXV_FULL_EPISODE),
      JX_TEST_TEXT(JXV_AIRDATE),
      JX_TEST_TEXT(JXV_LOAD_TYPE),
      JX_TEST_TEXT(JXV_AD_QUARTILE),
  };
}

TEST(IndependentConstants, EachKeyConstantHasItsText) {
  Lines actual;
  for (const Lines& part :
       {eventKeys(), itemAndProductKeys(), lifecycleAndApplicationKeys(), videoKeys()}) {
    actual.insert(actual.end(), part.begin(), part.end());
  }
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOf(expectedKeyConstants())));
}

TEST(IndependentConstants, EachPaymentMethodHasItsText) {
  const Lines actual{
      JX_TEST_TEXT(EJXPayementMethod_BY_INVOICE),
      JX_TEST_TEXT(EJXPayementMethod_BY_BANK_TRANSFER_IN_A),
      JX_TEST_TEXT(EJXPayementMethod_CARD),
      JX_TEST_TEXT(EJXPayementMethod_CHECK_IN_ADVANCE),
      JX_TEST_TEXT(EJXPayementMethod_COD),
      JX_TEST_TEXT(EJXPayementMethod_COUPON),
      JX_TEST_TEXT(EJXPayementMethod_DIRECT_DEBIT),
      JX_TEST_TEXT(EJXPayementMethod_ONLINE_PAYMENT_SYSTEM),
      JX_TEST_TEXT(EJXPayementMethod_OTHER),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOf(expectedPaymentMethods())));
}

TEST(IndependentConstants, EachPurchaseStatusHasItsText) {
  const Lines actual{
      JX_TEST_TEXT(EJXPurchaseStatus_CANCELED),
      JX_TEST_TEXT(EJXPurchaseStatus_DELIVERED),
      JX_TEST_TEXT(EJXPurchaseStatus_IN_PROGRESS),
      JX_TEST_TEXT(EJXPurchaseStatus_PARTIALLY_DELIVERED),
      JX_TEST_TEXT(EJXPurchaseStatus_PARTIALLY_RETURNED),
      JX_TEST_TEXT(EJXPurchaseStatus_PARTIALLY_SHIPPED),
      JX_TEST_TEXT(EJXPurchaseStatus_PENDING_SHIPMENT),
      JX_TEST_TEXT(EJXPurchaseStatus_RETURNED),
      JX_TEST_TEXT(EJXPurchaseStatus_SHIPPE),
      JX_TEST_TEXT(EJXPurchaseStatus_PENDING),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOf(expectedPurchaseStatuses())));
}

TEST(IndependentConstants, EachPlaybackModeHasItsValueAndText) {
  const Lines actual{
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_START),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_PAUSE),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_ERROR),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_BUFFER_START),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_BUFFER_COMPLETE),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_SEEK_START),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_SEEK_COMPLETE),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_RESUME),
      JX_TEST_MEMBER(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_COMPLETE),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoPlaybackMode")));
}

TEST(IndependentConstants, EachAdModeHasItsValueAndText) {
  const Lines actual{
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_START),
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_PLAYING),
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_STOP),
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_COMPLETE),
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_SKIP),
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_BREAK_START),
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_BREAK_COMPLETE),
      JX_TEST_MEMBER(EJXVideoAdMode_toString, EJXVideoAdMode_CLICK),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoAdMode")));
}

TEST(IndependentConstants, EachContentModeHasItsValueAndText) {
  const Lines actual{
      JX_TEST_MEMBER(EJXVideoContentMode_toString, EJXVideoContentMode_START),
      JX_TEST_MEMBER(EJXVideoContentMode_toString, EJXVideoContentMode_PLAYING),
      JX_TEST_MEMBER(EJXVideoContentMode_toString, EJXVideoContentMode_QUARTER_REACHED),
      JX_TEST_MEMBER(EJXVideoContentMode_toString, EJXVideoContentMode_COMPLETE),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoContentMode")));
}

TEST(IndependentConstants, EachSettingModeHasItsValueAndText) {
  const Lines actual{
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_VOLUME),
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_SPEED),
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_SUBTITLE_ON),
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_SUBTITLE_OFF),
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_FULLSCREEN_ON),
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_FULLSCREEN_OFF),
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_QUALITY),
      JX_TEST_MEMBER(EJXVideoSettingMode_toString, EJXVideoSettingMode_SHARE),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoSettingMode")));
}

TEST(IndependentConstants, EachAdTypeHasItsValueAndText) {
  const Lines actual{
      JX_TEST_MEMBER(EJXAdType_toString, EJXAdType_PRE_ROLL),
      JX_TEST_MEMBER(EJXAdType_toString, EJXAdType_MID_ROLL),
      JX_TEST_MEMBER(EJXAdType_toString, EJXAdType_POST_ROLL),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXAdType")));
}

TEST(IndependentConstants, EachAdLoadTypeHasItsValueAndText) {
  const Lines actual{
      JX_TEST_MEMBER(EJXAdLoadType_toString, EJXAdLoadType_DYNAMIC),
      JX_TEST_MEMBER(EJXAdLoadType_toString, EJXAdLoadType_LINEAR),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXAdLoadType")));
}

#undef JX_TEST_TEXT
#undef JX_TEST_MEMBER

}  // namespace
}  // namespace jx::test
