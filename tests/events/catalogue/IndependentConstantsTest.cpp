// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "jx/JXServerSide.h"
#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/events/ecommerce/JXPaymentMethods.h"
#include "jx/events/ecommerce/JXPurchaseStatuses.h"
#include "tests/events/catalogue/ExpectedConstants.h"

namespace jx::test {
namespace {

using Lines = std::vector<std::string>;

// Only the preprocessor knows the name of a constant.
#define JX_TEST_STRING(constant) (std::string(#constant " = ") + std::string(constant))
#define JX_TEST_ENUMERATOR(table, enumerator)                           \
  (std::string(#enumerator " = ") + std::to_string(enumerator) + ", " + \
   std::string((table)[static_cast<std::size_t>(enumerator)]))

Lines linesOf(const std::vector<ExpectedString>& expected) {
  Lines lines;
  for (const ExpectedString& one : expected) {
    lines.push_back(std::string(one.constant) + " = " + std::string(one.string));
  }
  return lines;
}

Lines linesOfEnumeration(std::string_view name) {
  Lines lines;
  for (const ExpectedEnumeration& one : expectedEnumerations()) {
    if (one.name != name) continue;
    for (const ExpectedEnumeratorValue& enumerator : one.enumerators) {
      lines.push_back(std::string(enumerator.enumerator) + " = " +
                      std::to_string(enumerator.value) + ", " + std::string(enumerator.string));
    }
  }
  return lines;
}

Lines eventKeys() {
  return {
      JX_TEST_STRING(JX_ID),
      JX_TEST_STRING(JXE_EVENT),
      JX_TEST_STRING(JXE_EVENTID),
      JX_TEST_STRING(JX_EVENTTIMESTAMP),
      JX_TEST_STRING(JXE_PAYMENTMETHOD),
      JX_TEST_STRING(JXE_COUPON),
      JX_TEST_STRING(JXE_CURRENCY),
      JX_TEST_STRING(JXE_REVENUE),
      JX_TEST_STRING(JXE_VALUE),
      JX_TEST_STRING(JXE_ITEMS),
      JX_TEST_STRING(JXE_SHIPPINGTIER),
      JX_TEST_STRING(JXE_SHIPPINGAMOUNT),
      JX_TEST_STRING(JXE_TAXAMOUNT),
      JX_TEST_STRING(JXE_METHOD),
      JX_TEST_STRING(JXE_TYPE),
      JX_TEST_STRING(JXE_NAME),
      JX_TEST_STRING(JXE_TITLE),
      JX_TEST_STRING(JXE_URL),
      JX_TEST_STRING(JXE_PATH),
      JX_TEST_STRING(JXE_REFERRER),
      JX_TEST_STRING(JXE_STATUS),
      JX_TEST_STRING(JXE_SEARCHTERM),
      JX_TEST_STRING(JXE_CONTENTTYPE),
      JX_TEST_STRING(JXE_ITEMID),
      JX_TEST_STRING(JXE_ITEMLISTNAME),
      JX_TEST_STRING(JXE_PAGENAME),
      JX_TEST_STRING(JXE_PAGETYPE),
  };
}

Lines itemAndProductKeys() {
  return {
      JX_TEST_STRING(JXI_PRODUCT),  JX_TEST_STRING(JXI_VARIANT),  JX_TEST_STRING(JXI_LISTPOSITION),
      JX_TEST_STRING(JXI_DISCOUNT), JX_TEST_STRING(JXI_QUANTITY), JX_TEST_STRING(JXI_AFFILIATION),
      JX_TEST_STRING(JXP_PRICE),    JX_TEST_STRING(JXP_BRAND),    JX_TEST_STRING(JXP_NAME),
      JX_TEST_STRING(JXP_COLORS),   JX_TEST_STRING(JXP_SIZE),     JX_TEST_STRING(JXP_CATEGORY_N),
  };
}

Lines lifecycleAndApplicationKeys() {
  return {
      JX_TEST_STRING(JXL_LIFECYCLE),
      JX_TEST_STRING(JXL_SESSION_ID),
      JX_TEST_STRING(JXL_NEW_SESSION),
      JX_TEST_STRING(JXL_SESSION_DURATION),
      JX_TEST_STRING(JXL_CURRENT_SESSION),
      JX_TEST_STRING(JXL_VISIT_NUMBER),
      JX_TEST_STRING(JXL_CURRENT_VISIT),
      JX_TEST_STRING(JXL_CUR_VER_FIRST_VISIT),
      JX_TEST_STRING(JXL_SESSION_NUMBER),
      JX_TEST_STRING(JXL_FIRST_VISIT),
      JX_TEST_STRING(JXL_LAST_VISIT),
      JX_TEST_STRING(JXL_LAST_CALL),
      JX_TEST_STRING(JXL_LAST_SESSION_START),
      JX_TEST_STRING(JXL_LAST_SESSION_LAST_HIT),
      JX_TEST_STRING(JXL_FOREGROUND_TRANSITIONS),
      JX_TEST_STRING(JXL_FOREGROUND_TIME),
      JX_TEST_STRING(JXL_BACKGROUND_TIME),
      JX_TEST_STRING(JXL_FIRST_EXECUTE),
      JX_TEST_STRING(JXL_IS_FIRST_VISIT),
      JX_TEST_STRING(JXA_APP),
      JX_TEST_STRING(JXA_NAME),
      JX_TEST_STRING(JXA_VERSION),
      JX_TEST_STRING(JXA_BUILD),
      JX_TEST_STRING(JXA_NAMESPACE),
      JX_TEST_STRING(JXA_COREVERSION),
      JX_TEST_STRING(JXA_SERVERSIDEVERSION),
      JX_TEST_STRING(JXA_CONSENTVERSION),
  };
}

Lines videoKeys() {
  return {
      JX_TEST_STRING(JXV_VIDEO_SESSION_ID),
      JX_TEST_STRING(JXV_CONTENT_ASSET_ID),
      JX_TEST_STRING(JXV_CONTENT_POD_ID),
      JX_TEST_STRING(JXV_AD_ASSET_ID),
      JX_TEST_STRING(JXV_AD_POD_ID),
      JX_TEST_STRING(JXV_AD_TYPE),
      JX_TEST_STRING(JXV_POD_POSITION),
      JX_TEST_STRING(JXV_CURSOR_POSITION),
      JX_TEST_STRING(JXV_SEEK_POSITION),
      JX_TEST_STRING(JXV_TOTAL_LENGTH),
      JX_TEST_STRING(JXV_POD_LENGTH),
      JX_TEST_STRING(JXV_BITRATE),
      JX_TEST_STRING(JXV_FRAMERATE),
      JX_TEST_STRING(JXV_VIDEO_PLAYER),
      JX_TEST_STRING(JXV_SOUND),
      JX_TEST_STRING(JXV_FULL_SCREEN),
      JX_TEST_STRING(JXV_AD_ENABLED),
      JX_TEST_STRING(JXV_IMAGE_QUALITY),
      JX_TEST_STRING(JXV_INTERRUPTION_METHOD),
      JX_TEST_STRING(JXV_LIVESTREAM),
      JX_TEST_STRING(JXV_VIDEO_TITLE),
      JX_TEST_STRING(JXV_VIDEO_DESCRIPTION),
      JX_TEST_STRING(JXV_KEYWORDS),
      JX_TEST_STRING(JXV_SEASON),
      JX_TEST_STRING(JXV_EPISODE),
      JX_TEST_STRING(JXV_VIDEO_CATEGORY),
      JX_TEST_STRING(JXV_PROGRAM),
      JX_TEST_STRING(JXV_PUBLISHER),
      JX_TEST_STRING(JXV_CHANNEL),
      JX_TEST_STRING(JXV_FULL_EPISODE),
      JX_TEST_STRING(JXV_AIRDATE),
      JX_TEST_STRING(JXV_LOAD_TYPE),
      JX_TEST_STRING(JXV_AD_QUARTILE),
  };
}

TEST(IndependentConstants, KeyConstantsHaveTheirStrings) {
  Lines actual;
  for (const Lines& part :
       {eventKeys(), itemAndProductKeys(), lifecycleAndApplicationKeys(), videoKeys()}) {
    actual.insert(actual.end(), part.begin(), part.end());
  }
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOf(expectedKeyConstants())));
}

TEST(IndependentConstants, PaymentMethodsHaveTheirStrings) {
  const Lines actual{
      JX_TEST_STRING(EJXPayementMethod_BY_INVOICE),
      JX_TEST_STRING(EJXPayementMethod_BY_BANK_TRANSFER_IN_A),
      JX_TEST_STRING(EJXPayementMethod_CARD),
      JX_TEST_STRING(EJXPayementMethod_CHECK_IN_ADVANCE),
      JX_TEST_STRING(EJXPayementMethod_COD),
      JX_TEST_STRING(EJXPayementMethod_COUPON),
      JX_TEST_STRING(EJXPayementMethod_DIRECT_DEBIT),
      JX_TEST_STRING(EJXPayementMethod_ONLINE_PAYMENT_SYSTEM),
      JX_TEST_STRING(EJXPayementMethod_OTHER),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOf(expectedPaymentMethods())));
}

TEST(IndependentConstants, PurchaseStatusesHaveTheirStrings) {
  const Lines actual{
      JX_TEST_STRING(EJXPurchaseStatus_CANCELED),
      JX_TEST_STRING(EJXPurchaseStatus_DELIVERED),
      JX_TEST_STRING(EJXPurchaseStatus_IN_PROGRESS),
      JX_TEST_STRING(EJXPurchaseStatus_PARTIALLY_DELIVERED),
      JX_TEST_STRING(EJXPurchaseStatus_PARTIALLY_RETURNED),
      JX_TEST_STRING(EJXPurchaseStatus_PARTIALLY_SHIPPED),
      JX_TEST_STRING(EJXPurchaseStatus_PENDING_SHIPMENT),
      JX_TEST_STRING(EJXPurchaseStatus_RETURNED),
      JX_TEST_STRING(EJXPurchaseStatus_SHIPPE),
      JX_TEST_STRING(EJXPurchaseStatus_PENDING),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOf(expectedPurchaseStatuses())));
}

TEST(IndependentConstants, PlaybackModesHaveTheirValuesAndStrings) {
  const Lines actual{
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_START),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_PAUSE),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_ERROR),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_BUFFER_START),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_BUFFER_COMPLETE),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_SEEK_START),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_SEEK_COMPLETE),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_RESUME),
      JX_TEST_ENUMERATOR(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_COMPLETE),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoPlaybackMode")));
}

TEST(IndependentConstants, AdModesHaveTheirValuesAndStrings) {
  const Lines actual{
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_START),
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_PLAYING),
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_STOP),
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_COMPLETE),
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_SKIP),
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_BREAK_START),
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_BREAK_COMPLETE),
      JX_TEST_ENUMERATOR(EJXVideoAdMode_toString, EJXVideoAdMode_CLICK),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoAdMode")));
}

TEST(IndependentConstants, ContentModesHaveTheirValuesAndStrings) {
  const Lines actual{
      JX_TEST_ENUMERATOR(EJXVideoContentMode_toString, EJXVideoContentMode_START),
      JX_TEST_ENUMERATOR(EJXVideoContentMode_toString, EJXVideoContentMode_PLAYING),
      JX_TEST_ENUMERATOR(EJXVideoContentMode_toString, EJXVideoContentMode_QUARTER_REACHED),
      JX_TEST_ENUMERATOR(EJXVideoContentMode_toString, EJXVideoContentMode_COMPLETE),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoContentMode")));
}

TEST(IndependentConstants, SettingModesHaveTheirValuesAndStrings) {
  const Lines actual{
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_VOLUME),
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_SPEED),
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_SUBTITLE_ON),
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_SUBTITLE_OFF),
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_FULLSCREEN_ON),
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_FULLSCREEN_OFF),
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_QUALITY),
      JX_TEST_ENUMERATOR(EJXVideoSettingMode_toString, EJXVideoSettingMode_SHARE),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXVideoSettingMode")));
}

TEST(IndependentConstants, AdTypesHaveTheirValuesAndStrings) {
  const Lines actual{
      JX_TEST_ENUMERATOR(EJXAdType_toString, EJXAdType_PRE_ROLL),
      JX_TEST_ENUMERATOR(EJXAdType_toString, EJXAdType_MID_ROLL),
      JX_TEST_ENUMERATOR(EJXAdType_toString, EJXAdType_POST_ROLL),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXAdType")));
}

TEST(IndependentConstants, AdLoadTypesHaveTheirValuesAndStrings) {
  const Lines actual{
      JX_TEST_ENUMERATOR(EJXAdLoadType_toString, EJXAdLoadType_DYNAMIC),
      JX_TEST_ENUMERATOR(EJXAdLoadType_toString, EJXAdLoadType_LINEAR),
  };
  EXPECT_THAT(actual, testing::ElementsAreArray(linesOfEnumeration("EJXAdLoadType")));
}

#undef JX_TEST_STRING
#undef JX_TEST_ENUMERATOR

}  // namespace
}  // namespace jx::test
