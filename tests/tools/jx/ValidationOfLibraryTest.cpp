// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <set>

#include "tests/tools/jx/ProgramRun.h"
#include "tools/jx/collector/validation/ValidationResult.h"

namespace jx {
namespace {

// One valid event of each class that has its own event names, and a custom event.
constexpr const char* kScript = R"jsonl(
{"do":"event","class":"JXViewItem","fields":{"revenue":"1.00","currency":"EUR","items":[ITEM]}}
{"do":"event","class":"JXAddToWishlistEvent","fields":{"items":[ITEM]}}
{"do":"event","class":"JXAddToCartEvent","fields":{"value":"0","currency":"EUR","items":[ITEM]}}
{"do":"event","class":"JXRemoveFromCartEvent","fields":{"items":[ITEM]}}
{"do":"event","class":"JXViewCartEvent","fields":{"items":[ITEM]}}
{"do":"event","class":"JXBeginCheckoutEvent","fields":{"value":"1","revenue":"1","currency":"EUR","coupon":"","items":[ITEM]}}
{"do":"event","class":"JXAddShippingInfoEvent","fields":{"value":"1","currency":"EUR","shippingTier":"fast","items":[ITEM]}}
{"do":"event","class":"JXAddPaymentInfoEvent","fields":{"paymentMethod":"card","coupon":"c"}}
{"do":"event","class":"JXPurchaseEvent","fields":{"ID":"1","revenue":"139.12","value":"139.12","currency":"GBP","type":"t","paymentMethod":"card","status":"ok","items":[ITEM]}}
{"do":"event","class":"JXRefundEvent","fields":{"items":[ITEM]}}
{"do":"event","class":"JXPageViewEvent","fields":{"pageType":"film","pageName":"title"}}
{"do":"event","class":"JXSearchEvent","fields":{"searchTerm":"fox"}}
{"do":"event","class":"JXLoginEvent","fields":{"method":"remote"}}
{"do":"event","class":"JXSignUpEvent"}
{"do":"event","class":"JXGenerateLeadEvent","fields":{"value":"12345678901234567890123456789012345678","currency":"EUR"}}
{"do":"event","class":"JXSelectContentEvent","fields":{"contentType":"film","itemID":"1"}}
{"do":"event","class":"JXSelectItemEvent","fields":{"itemListName":"top","items":[ITEM]}}
{"do":"event","class":"JXViewItemListEvent","fields":{"items":[ITEM]}}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"START","session":"v-1","fields":{"cursorPosition":"0","totalLength":"5400","contentAssetID":["a",1]}}
{"do":"event","class":"JXVideoAdEvent","mode":"SKIP","session":"v-1","fields":{"adAssetID":"a","adPodID":"p","cursorPosition":"0","totalLength":"30","adType":"MID_ROLL"}}
{"do":"event","class":"JXVideoContentEvent","mode":"PLAYING","session":"v-1","fields":{"contentAssetID":"a","cursorPosition":"1","totalLength":"5400","keywords":["x"]}}
{"do":"event","class":"JXVideoSettingEvent","mode":"VOLUME","session":"v-1","fields":{"contentAssetID":"a","cursorPosition":"1","bitrate":"8","sound":"0.5"}}
{"do":"event","class":"JXCustomEvent","name":"quiz"}
)jsonl";

constexpr const char* kItem =
    R"({"ID":"1","quantity":6,"variant":"v","product":{"ID":"p","name":"LANTERN","price":"3.39","categories":["home","light"],"colors":["red"]}})";

std::string script() {
  std::string text = kScript;
  const std::string mark = "ITEM";
  for (std::size_t at = text.find(mark + "]"); at != std::string::npos;
       at = text.find(mark + "]", at))
    text.replace(at, mark.size(), kItem);
  return text;
}

// The rules accept every class, block and key that the library writes.
TEST(ValidationOfLibrary, ReportsNothingForEventsThatTheLibraryWrites) {
  const auto run = runJx({"replay", "--print", "--site", "7", "--key", "k", "-"}, script());
  ASSERT_EQ(run.status, 0) << run.errors;
  std::set<std::string> classes;
  for (const std::string& body : bodiesIn(run.output)) {
    const ValidationResult validation = ValidationResult::of("jx_s=7&token=k", body);
    classes.insert(validation.className);
    for (const Diagnostic& diagnostic : validation.diagnostics.kept())
      ADD_FAILURE() << validation.className << ": " << diagnostic.code << " " << diagnostic.key
                    << " " << diagnostic.text;
  }
  EXPECT_EQ(classes.size(), 23u);
}

}  // namespace
}  // namespace jx
