// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests the facade of the C API.

#include <gmock/gmock.h>

#include <string>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/events/ecommerce/JXPaymentMethods.h"
#include "jx/events/ecommerce/JXPurchaseEvent.h"
#include "jx/events/ecommerce/JXPurchaseStatuses.h"
#include "tests/c/CTestTools.h"
#include "tests/c/PlainC.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::HasSubstr;

std::shared_ptr<JXItem> cppItem(const char* id, const char* name, const char* price, int quantity) {
  const auto product = JXProduct::initWithProductId_withName_withPrice(id, name, decimal(price));
  product->setColors({"red", "black"});
  product->setCategories({"home", nullptr, "light"});
  product->addAdditionalProperty_withStringValue("made_in", "GB");
  const auto item = JXItem::initWithItemId_withProduct_withQuantity(id, product, quantity);
  item->setDiscount(decimal("0.10"));
  JXJsonObject gift;
  gift.set("gift", true);
  item->addAdditionalProperty(gift);
  return item;
}

std::shared_ptr<JXPurchaseEvent> cppPurchase() {
  const auto event = JXPurchaseEvent::init();
  event->setID("536365");
  event->setRevenue(decimal("139.120"));
  event->setValue(140);
  event->setCurrency("GBP");
  event->setShippingAmount(decimal("3.00"));
  event->setTaxAmount(0);
  event->setCoupon("");
  event->setType("retail");
  event->setPaymentMethod(EJXPayementMethod_CARD);
  event->setStatus(EJXPurchaseStatus_IN_PROGRESS);
  event->setPageName("café");
  event->addAdditionalParameter_withValue("store", "uk");
  JXJsonObject basket;
  basket.set("points", decimal("12.50"));
  basket.set("old", JXJsonValue::null());
  event->addAdditionalParameter_forJsonDict("basket", basket);
  event->items().append(cppItem("85123A", "LANTERN", "3.39", 6));
  event->items().append(cppItem("71053", "LAMP \"bright\"", "25.30", 1));
  return event;
}

class CServerSide : public ServerSideFixture {
 protected:
  ~CServerSide() override { EXPECT_EQ(jx_server_side_free(serverSide), JX_OK); }

  void create(uint32_t behaviour = JX_BEHAVIOUR_DEFAULT, const jx_firebase* firebase = nullptr) {
    start();
    ASSERT_EQ(jx_server_side_create(1234, "key", behaviour, firebase, &serverSide), JX_OK);
  }
  // Sends a custom event and returns its body; null if nothing was sent.
  JXJsonObject send() {
    const std::size_t before = requests().size();
    const Object event = makeEvent("JXCustomEvent");
    EXPECT_EQ(jx_object_set_string(event.get(), "name", "quiz"), JX_OK);
    EXPECT_EQ(jx_execute(serverSide, event.get()), JX_OK);
    return requests().size() == before ? JXJsonObject(nullptr) : requests().back().body;
  }
  jx_state state() const {
    jx_state now = JX_STATE_DISABLED;
    EXPECT_EQ(jx_get_state(serverSide, &now), JX_OK);
    return now;
  }

  jx_server_side* serverSide = nullptr;
};

TEST_F(CServerSide, SendsAPurchaseWithTheSameBodyAsCpp) {
  create();
  send();  // the first event of a session differs
  const auto inCpp = ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(
      1234, "key", JX_BEHAVIOUR_DEFAULT);
  inCpp->execute(cppPurchase());
  const Object purchase(plain_purchase());
  ASSERT_NE(purchase, nullptr);
  ASSERT_EQ(jx_execute(serverSide, purchase.get()), JX_OK);

  ASSERT_EQ(requests().size(), 3u);
  const Request& ofCpp = requests()[1];
  const Request& ofC = requests()[2];
  EXPECT_EQ(ofC.url, ofCpp.url);
  const std::string cppId = context(ofCpp).get("event_id").string().toStdString();
  const std::string cId = context(ofC).get("event_id").string().toStdString();
  ASSERT_EQ(cppId.size(), 36u);
  ASSERT_NE(cppId, cId);
  std::string expected = ofCpp.text;
  expected.replace(expected.find(cppId), cppId.size(), cId);
  EXPECT_EQ(ofC.text, expected);
  EXPECT_THAT(ofC.text, HasSubstr(R"("revenue": 139.120,)"));
  EXPECT_THAT(ofC.text, HasSubstr(R"("category_3": "light")"));
}

TEST_F(CServerSide, SendsToTheUrlOfSiteAndKey) {
  create();
  EXPECT_TRUE(send().isPresent());
  EXPECT_EQ(requests().back().url,
            JXString("https://collect.example.com/events?jx_s=1234&token=key"));
}

TEST_F(CServerSide, ExecutesAChangedEventAgain) {
  create();
  const Object event = makeEvent("JXViewCartEvent");
  const Object item = makeItem("1", 1, nullptr);
  for (int i = 0; i < 2; ++i) {
    ASSERT_EQ(jx_object_add_item(event.get(), "items", item.get()), JX_OK);
    ASSERT_EQ(jx_execute(serverSide, event.get()), JX_OK);
  }
  ASSERT_EQ(requests().size(), 2u);
  EXPECT_EQ(requests()[0].body.get("items").array().size(), 1u);
  EXPECT_EQ(requests()[1].body.get("items").array().size(), 2u);
}

TEST_F(CServerSide, AddsPermanentDataUntilItIsRemoved) {
  create();
  ASSERT_EQ(jx_set_permanent(serverSide, "store", "uk"), JX_OK);
  ASSERT_EQ(jx_set_permanent_json(serverSide, "depth", R"({"a":[1.50]})"), JX_OK);
  const JXJsonObject body = send();
  EXPECT_EQ(body.get("store").string(), JXString("uk"));
  EXPECT_EQ(jsonText(body.get("depth").object()), R"({"a":[1.50]})");

  char text[20];
  size_t length = 0;
  EXPECT_EQ(jx_get_permanent_json(serverSide, "store", text, sizeof text, &length), JX_OK);
  EXPECT_STREQ(text, R"("uk")");
  EXPECT_EQ(length, 4u);
  EXPECT_EQ(jx_get_permanent_json(serverSide, "depth", text, sizeof text, nullptr), JX_OK);
  EXPECT_STREQ(text, R"({"a":[1.50]})");

  EXPECT_EQ(jx_remove_permanent(serverSide, "store"), JX_OK);
  EXPECT_EQ(jx_remove_permanent(serverSide, "store"), JX_ERROR_NOT_SET);
  EXPECT_EQ(jx_get_permanent_json(serverSide, "store", text, sizeof text, &length),
            JX_ERROR_NOT_SET);
  EXPECT_EQ(jx_set_permanent(serverSide, "depth", nullptr), JX_OK);
  EXPECT_FALSE(send().contains("depth"));
}

TEST_F(CServerSide, SendsNothingWhileDisabled) {
  create(2);  // disabled by default
  EXPECT_EQ(state(), JX_STATE_DISABLED);
  EXPECT_FALSE(send().isPresent());
  EXPECT_EQ(jx_enable(serverSide), JX_OK);
  EXPECT_EQ(state(), JX_STATE_ENABLED);
  EXPECT_TRUE(send().isPresent());
  EXPECT_EQ(jx_disable(serverSide), JX_OK);
  EXPECT_EQ(state(), JX_STATE_DISABLED);
}

TEST_F(CServerSide, IgnoresDisableIfAlwaysEnabled) {
  create(JX_BEHAVIOUR_ALWAYS_ENABLED);
  EXPECT_EQ(jx_disable(serverSide), JX_OK);
  EXPECT_EQ(state(), JX_STATE_ENABLED);
}

TEST_F(CServerSide, WaitsForConsentWithARegisteredModule) {
  ASSERT_EQ(jx_register_module("JXMobileConsent"), JX_OK);
  create();
  EXPECT_EQ(state(), JX_STATE_WAITING_FOR_CONSENT);
  EXPECT_EQ(send().get("user").string(), JXString(JX_WAITING_FOR_CONSENT));
  EXPECT_EQ(jx_set_consent_id("consent-7"), JX_OK);
  EXPECT_EQ(jx_enable(serverSide), JX_OK);
  EXPECT_EQ(send().get("user").object().get("consent_id").string(), JXString("consent-7"));
  EXPECT_EQ(jx_unregister_module("JXMobileConsent"), JX_OK);
  EXPECT_FALSE(JXClassRegistry::sharedInstance().hasClass("JXMobileConsent"));
}

TEST_F(CServerSide, SetsTheAnonymousId) {
  create();
  ASSERT_EQ(jx_set_anonymous_id("viewer-1"), JX_OK);
  char text[20];
  EXPECT_EQ(jx_get_anonymous_id(text, sizeof text, nullptr), JX_OK);
  EXPECT_STREQ(text, "viewer-1");
  EXPECT_EQ(send().get("user").object().get("anonymous_id").string(), JXString("viewer-1"));
  EXPECT_EQ(jx_set_anonymous_id(nullptr), JX_OK);
  EXPECT_EQ(JXUser::sharedInstance().anonymous_id(), JXString("viewer-1"));
}

TEST_F(CServerSide, UsesTheLegacyUniqueId) {
  create();
  char unique[80];
  char anonymous[80];
  ASSERT_EQ(jx_get_variable(::kJXPredefinedVariable_UniqueID, unique, sizeof unique, nullptr),
            JX_OK);
  EXPECT_EQ(jx_use_legacy_unique_id_for_anonymous_id(), JX_OK);
  EXPECT_EQ(jx_use_legacy_unique_id_for_consent_id(), JX_OK);
  EXPECT_EQ(jx_get_anonymous_id(anonymous, sizeof anonymous, nullptr), JX_OK);
  EXPECT_STREQ(anonymous, unique);
  EXPECT_EQ(JXUser::sharedInstance().consentID(), JXString(unique));
}

TEST_F(CServerSide, WritesAdvertisingIdsToTheDeviceBlock) {
  platform->trackingAllowed = true;
  create();
  EXPECT_EQ(jx_add_advertising_ids(serverSide), JX_OK);
  const JXJsonObject device = inside(send(), {"context", "device"});
  EXPECT_EQ(device.get("idfa").string(), platform->advertisingId);
  EXPECT_EQ(device.get("idfv").string(), platform->vendorId);
  platform->trackingAllowed = false;
  EXPECT_EQ(jx_set_advertising_tracking_enabled(serverSide), JX_OK);
  EXPECT_EQ(jx_set_idfa(serverSide), JX_OK);
  char text[40];
  EXPECT_EQ(jx_get_core_variable(::kJXPredefinedVariable_IDFA, text, sizeof text, nullptr), JX_OK);
  EXPECT_EQ(text, std::string(STATIC_IDFA));
}

TEST_F(CServerSide, AddsValuesToTheBlocks) {
  create();
  EXPECT_EQ(jx_block_add(JX_BLOCK_USER, "plan", "gold"), JX_OK);
  EXPECT_EQ(jx_block_add(JX_BLOCK_DEVICE, "remote", "voice"), JX_OK);
  EXPECT_EQ(jx_block_add_json(JX_BLOCK_APP, "shelf", "3"), JX_OK);
  EXPECT_EQ(jx_block_add(JX_BLOCK_LIFECYCLE, "boot", "cold"), JX_OK);
  EXPECT_EQ(jx_block_add(JX_BLOCK_NETWORK, "operator", "one"), JX_OK);
  EXPECT_EQ(jx_block_add(JX_BLOCK_USER, "nothing", nullptr), JX_OK);
  const JXJsonObject body = send();
  EXPECT_EQ(inside(body, {"user"}).get("plan").string(), JXString("gold"));
  EXPECT_FALSE(inside(body, {"user"}).contains("nothing"));
  const JXJsonObject device = inside(body, {"context", "device"});
  EXPECT_EQ(device.get("remote").string(), JXString("voice"));
  EXPECT_EQ(inside(device, {"lifecycle"}).get("boot").string(), JXString("cold"));
  EXPECT_EQ(inside(device, {"network"}).get("operator").string(), JXString("one"));
  EXPECT_THAT(requests().back().text, HasSubstr(R"("shelf": 3)"));
  EXPECT_EQ(jx_block_add(5, "a", "b"), JX_ERROR_UNKNOWN_ENUMERATOR);
}

TEST_F(CServerSide, ReadsSetsAndRemovesVariables) {
  create();
  char text[20];
  EXPECT_EQ(jx_get_variable(::kJXPredefinedVariable_Longitude, text, sizeof text, nullptr),
            JX_ERROR_NOT_SET);
  EXPECT_EQ(jx_set_variable(::kJXPredefinedVariable_Longitude, "-0.12"), JX_OK);
  EXPECT_EQ(jx_get_variable(::kJXPredefinedVariable_Longitude, text, sizeof text, nullptr), JX_OK);
  EXPECT_STREQ(text, "-0.12");
  EXPECT_EQ(jx_set_core_variable(::JX_ConsentVersion, "2.1"), JX_OK);
  EXPECT_THAT(jsonText(send()), HasSubstr(R"("consent_version":"2.1")"));
  EXPECT_EQ(jx_set_core_variable(::JX_ConsentVersion, nullptr), JX_OK);
  EXPECT_EQ(jx_get_core_variable(::JX_ConsentVersion, text, sizeof text, nullptr),
            JX_ERROR_NOT_SET);
}

TEST_F(CServerSide, ReportsBackgroundTransitionsToTheLibrary) {
  create();
  EXPECT_EQ(jx_enable_running_in_background(serverSide), JX_OK);
  EXPECT_EQ(jx_wait_for_user_agent(serverSide), JX_OK);
  EXPECT_EQ(jx_application_did_enter_background(), JX_OK);
  EXPECT_EQ(jx_application_will_enter_foreground(), JX_OK);
  EXPECT_EQ(posted(kJXNotification_OnBackground).size(), 1u);
  EXPECT_EQ(posted(kJXNotification_OnForeground).size(), 1u);
}

struct Mirror {
  std::string calls;
  int releases = 0;
};

void setDefault(void* context, const char* name, const char* value) {
  static_cast<Mirror*>(context)->calls += std::string(name) + "=" + value + ";";
}
void logEvent(void* context, const char* name, const char* parameters) {
  static_cast<Mirror*>(context)->calls +=
      std::string(name != nullptr ? name : "(null)") + " " + parameters + ";";
}
void release(void* context) { ++static_cast<Mirror*>(context)->releases; }

TEST_F(CServerSide, MirrorsEventsToFirebaseUntilReleased) {
  Mirror mirror;
  const jx_firebase firebase = {sizeof(jx_firebase), &mirror, &setDefault, &logEvent, &release};
  create(JX_BEHAVIOUR_DEFAULT, &firebase);
  send();
  EXPECT_EQ(mirror.calls, R"(developer_id=jx_serverside;quiz {"event_name":"quiz"};)");
  EXPECT_EQ(mirror.releases, 0);
  EXPECT_EQ(jx_server_side_free(serverSide), JX_OK);
  serverSide = nullptr;
  EXPECT_EQ(mirror.releases, 1);
}

TEST_F(CServerSide, DoesNotCallNullFirebaseFunctions) {
  Mirror mirror;
  const jx_firebase firebase = {sizeof(jx_firebase), &mirror, nullptr, &logEvent, nullptr};
  create(JX_BEHAVIOUR_DEFAULT, &firebase);
  send();
  EXPECT_EQ(mirror.calls, R"(quiz {"event_name":"quiz"};)");
}

TEST_F(CServerSide, MirrorsAnEventWithoutANameWithANullName) {
  Mirror mirror;
  const jx_firebase firebase = {sizeof(jx_firebase), &mirror, nullptr, &logEvent, nullptr};
  create(JX_BEHAVIOUR_DEFAULT, &firebase);
  jx_object* event = nullptr;
  ASSERT_EQ(jx_custom_event_create(nullptr, &event), JX_OK);
  const Object nameless(event);
  EXPECT_EQ(jx_execute(serverSide, event), JX_OK);
  ASSERT_EQ(JXEvent_setName(event, ""), JX_OK);
  EXPECT_EQ(jx_execute(serverSide, event), JX_OK);
  EXPECT_EQ(mirror.calls, R"((null) {}; {"event_name":""};)");
}

TEST_F(CServerSide, RejectsAFirebaseTableOfUnknownSize) {
  start();
  Mirror mirror;
  // The last size ends inside `set_default_parameter`, which must not be called.
  for (const size_t size : {sizeof(jx_firebase) + 8, offsetof(jx_firebase, log_event) - 1}) {
    const jx_firebase firebase = {size, &mirror, &setDefault, nullptr, &release};
    jx_server_side* made = reinterpret_cast<jx_server_side*>(&mirror);
    EXPECT_EQ(jx_server_side_create(1, "key", JX_BEHAVIOUR_DEFAULT, &firebase, &made),
              JX_ERROR_STRUCT_SIZE);
    EXPECT_EQ(made, nullptr);
  }
  EXPECT_EQ(mirror.releases, 0);
}

TEST_F(CServerSide, IgnoresCallsInAForkedChild) {
  create();
  const Object event = makeEvent("JXCustomEvent");
  EXPECT_EQ(0, statusOfForkedChild([&] {
              jx_server_side* created = nullptr;
              const bool isIgnored =
                  jx_execute(serverSide, event.get()) == JX_ERROR_INTERNAL &&
                  jx_server_side_create(1, "key", 0, nullptr, &created) == JX_ERROR_INTERNAL &&
                  jx_server_side_free(serverSide) == JX_ERROR_INTERNAL &&
                  jx_object_class(event.get()) == nullptr && jx_handle_count() == 0;
              const std::string detail = jx_error_detail();
              return isIgnored && detail == "called in a forked child process; ignored" ? 0 : 1;
            }));
  EXPECT_EQ(0u, requests().size());
}

}  // namespace
}  // namespace jx::test
