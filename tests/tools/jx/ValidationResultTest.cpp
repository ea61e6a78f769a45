// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/ValidationResult.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using Found = std::vector<std::string>;

constexpr const char* kQuery = "jx_s=7&token=key";

// The context blocks that the library adds to every event.
const std::string kContext = R"("context":{"event_id":"e-1","event_timestamp":1700000000123,
  "app":{"name":"TV"},"device":{"network":{"connection_type":"wifi"},"os":{"name":"linux"},
  "screen":{"height":1080,"width":1920},"lifecycle":{"session_id":"s-1","new_session":true,
  "first_execute":false,"is_first_visit":true}}},"user":{"anonymous_id":"u-1"})";

std::string eventWith(const std::string& members) { return "{" + members + "," + kContext + "}"; }

Found codesIn(const ValidationResult& validation) {
  Found found;
  for (const Diagnostic& diagnostic : validation.diagnostics.kept())
    found.push_back(std::string(diagnostic.code) + " " + diagnostic.key);
  return found;
}

Found codesOf(const std::string& body, const char* query = kQuery) {
  return codesIn(ValidationResult::of(query, body));
}

const std::string kItem =
    R"({"id":"1","quantity":6,"product":{"id":"p","name":"LANTERN","price":3.39,"colors":[]}})";

std::string purchaseWith(const std::string& items, const std::string& more = "") {
  return eventWith(R"("event_name":"purchase","id":"536365","revenue":139.12,"value":139.12,
    "currency":"GBP","type":"a","payment_method":"card","status":"ok","items":)" +
                   items + more);
}

TEST(ValidationResult, AcceptsACompleteEvent) {
  const ValidationResult validation = ValidationResult::of(kQuery, purchaseWith("[" + kItem + "]"));
  EXPECT_EQ(codesIn(validation), Found{});
  EXPECT_TRUE(validation.isValid());
  EXPECT_EQ(validation.className, "JXPurchaseEvent");
  EXPECT_EQ(validation.line, "1 item, 139.12 GBP, card");
  EXPECT_EQ(validation.metadata.session, std::optional<std::string>("s-1"));
}

TEST(ValidationResult, ReportsBodiesThatAreNotObjects) {
  EXPECT_EQ(codesOf("\xFF"), Found{"not_utf8 "});
  EXPECT_EQ(codesOf("not JSON"), Found{"not_json "});
  EXPECT_EQ(codesOf(std::string(2000, '[')), Found{"too_deep "});
  std::string many = "[0";
  for (int i = 0; i < 250'000; ++i)
    many += ",0";
  EXPECT_EQ(codesOf(many + "]"), Found{"too_large "});
  EXPECT_EQ(codesOf("[1]"), Found{"not_an_object "});
  EXPECT_EQ(ValidationResult::of(kQuery, "[1]").className, "");
}

TEST(ValidationResult, RequiresSiteAndTokenInTheQuery) {
  const std::string body = eventWith(R"("event_name":"quiz")");
  EXPECT_EQ(codesOf(body, "jx_s=0&token=k"), Found{});
  EXPECT_EQ(codesOf(body, "token=k"), Found{"wrong_query "});
  EXPECT_EQ(codesOf(body, "jx_s=x&token=k"), Found{"wrong_query "});
  EXPECT_EQ(codesOf(body, "jx_s=1"), Found{"wrong_query "});
  EXPECT_EQ(codesOf(body, "jx_s=1&token="), Found{"wrong_query "});
  EXPECT_EQ(codesOf(body, ""), (Found{"wrong_query ", "wrong_query "}));
}

TEST(ValidationResult, TreatsUnknownNamesAsCustomEventsUnlessMisspelt) {
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"quiz")")), Found{});
  EXPECT_EQ(ValidationResult::of(kQuery, eventWith(R"("event_name":"quiz")")).className,
            "JXCustomEvent");
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"purchse")")), Found{"unknown_name event_name"});
}

TEST(ValidationResult, RequiresAnEventName) {
  const ValidationResult none = ValidationResult::of(kQuery, eventWith(R"("page_name":"home")"));
  EXPECT_EQ(codesIn(none), Found{"missing_field event_name"});
  EXPECT_EQ(none.className, "");
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"")")), Found{"missing_field event_name"});
  EXPECT_EQ(codesOf(eventWith(R"("event_name":5)")), Found{"wrong_type event_name"});
}

TEST(ValidationResult, ChecksEveryConditionOfTheClass) {
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"purchase","id":"","items":[])")),
            (Found{"missing_field items", "missing_field id", "missing_field revenue",
                   "missing_field value", "missing_field currency", "missing_field type",
                   "missing_field payment_method", "missing_field status"}));
}

TEST(ValidationResult, AppliesConditionsToTheirEventNamesOnly) {
  const std::string fields = R"("video_session_id":"v","content_asset_id":[],"total_length":1)";
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"video_start",)" + fields)),
            Found{"missing_field cursor_position"});
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"video_buffer_start",)" + fields)), Found{});
}

TEST(ValidationResult, RequiresAmountAndCurrencyTogether) {
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"generate_lead")")), Found{});
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"generate_lead","value":0)")),
            Found{"missing_field currency"});
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"generate_lead","currency":"EUR")")),
            Found{"missing_field value"});
}

TEST(ValidationResult, ChecksItemsAndProducts) {
  EXPECT_EQ(codesOf(purchaseWith(R"([{"id":"1","product":{"id":"p","price":1}},{"quantity":1}])")),
            (Found{"missing_field items[0].product.name", "missing_field items[0].quantity",
                   "missing_field items[1].id", "missing_field items[1].product"}));
}

TEST(ValidationResult, MessagesNameTheLibraryProperty) {
  const ValidationResult validation = ValidationResult::of(
      kQuery, purchaseWith(R"([{"id":"","quantity":1,"product":{"id":"p","price":1}}])"));
  ASSERT_EQ(validation.diagnostics.kept().size(), 2u);
  EXPECT_EQ(validation.diagnostics.kept()[0].text, "name must be a non-empty string");
  EXPECT_EQ(validation.diagnostics.kept()[1].text, "ID must be a non-empty string");
}

TEST(ValidationResult, MessagesNameBothPropertiesOfAPair) {
  const auto messageFor = [](const std::string& member) {
    const ValidationResult validation =
        ValidationResult::of(kQuery, eventWith(R"("event_name":"generate_lead",)" + member));
    return validation.diagnostics.kept().at(0).text;
  };
  EXPECT_EQ(messageFor(R"("value":0)"), "value and currency must be set together");
  EXPECT_EQ(messageFor(R"("currency":"EUR")"), "value and currency must be set together");
}

TEST(ValidationResult, ChecksTheTypeOfEachKindOfField) {
  EXPECT_EQ(codesOf(purchaseWith("\"two\"")), Found{"wrong_type items"});
  EXPECT_EQ(codesOf(purchaseWith("[1]")), Found{"wrong_type items[0]"});
  EXPECT_EQ(codesOf(purchaseWith("[" + kItem + "]", R"(,"tax_amount":"1.00")")),
            Found{"wrong_type tax_amount"});
  EXPECT_EQ(codesOf(purchaseWith("[" + kItem + "]", R"(,"coupon":null)")),
            Found{"wrong_type coupon"});
  EXPECT_EQ(
      codesOf(purchaseWith(R"([{"id":"1","quantity":6,"product":{"id":"p","name":"L",
    "price":1,"colors":["red",2],"category_1":"a","category_2":3}}])")),
      (Found{"wrong_type items[0].product.colors[1]", "wrong_type items[0].product.category_2"}));
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"video_ad_start","video_session_id":"v",
    "ad_asset_id":"a","ad_pod_id":"p","cursor_position":1,"total_length":2,
    "ad_type":"inside","load_type":"linear")")),
            Found{"wrong_type ad_type"});
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"video_start","video_session_id":"v",
    "content_asset_id":"a","cursor_position":1,"total_length":2,"livestream":1)")),
            (Found{"wrong_type content_asset_id", "wrong_type livestream"}));
}

TEST(ValidationResult, ReportsNumbersThatLostPrecision) {
  EXPECT_EQ(codesOf(purchaseWith("[" + kItem + "]", R"(,"tax_amount":2.3200000000000003)")),
            Found{"lossy_number tax_amount"});
  EXPECT_EQ(codesOf(purchaseWith("[" + kItem + "]",
                                 R"(,"tax_amount":123456789012345678901234567890123456789)")),
            Found{"lossy_number tax_amount"});
  EXPECT_EQ(codesOf(eventWith(R"("event_name":"quiz","own":{"scores":[1,0.30000000000000004]})")),
            (Found{"unknown_key own", "lossy_number own.scores[1]"}));
}

TEST(ValidationResult, WarnsAboutUnknownKeys) {
  const ValidationResult validation = ValidationResult::of(
      kQuery, purchaseWith(R"([{"id":"1","quantity":6,"gift":true,"product":{"id":"p","name":"L",
        "price":1,"category_1":"a","category_0":"b"}}])",
                           R"(,"store":"uk")"));
  EXPECT_EQ(codesIn(validation),
            (Found{"unknown_key items[0].gift", "unknown_key items[0].product.category_0",
                   "unknown_key store"}));
  EXPECT_TRUE(validation.isValid());
  EXPECT_EQ(validation.diagnostics.warnings(), 3);
}

TEST(ValidationResult, RequiresTheContextBlocks) {
  EXPECT_EQ(codesOf(R"({"event_name":"quiz"})"),
            (Found{"missing_context context", "missing_context user"}));
  EXPECT_EQ(codesOf(R"({"event_name":"quiz","context":7,"user":[]})"),
            (Found{"wrong_type context", "wrong_type user"}));
  EXPECT_EQ(codesOf(R"({"event_name":"quiz","user":"waiting_for_consent","context":{
    "event_id":"","event_timestamp":"12","app":{"name":1,"store":"x"},"device":{"os":{"version":2},
    "network":{},"screen":{},"lifecycle":{"session_id":"s","new_session":1,"first_execute":false}}}})"),
            (Found{"wrong_type context.event_timestamp", "wrong_type context.app.name",
                   "unknown_key context.app.store", "wrong_type context.device.os.version",
                   "wrong_type context.device.lifecycle.new_session",
                   "missing_context context.device.lifecycle.is_first_visit",
                   "missing_context context.event_id"}));
}

TEST(ValidationResult, AcceptsWaitingForConsentInPlaceOfTheUser) {
  const std::string body = eventWith(R"("event_name":"quiz")");
  const std::string user = R"("user":{"anonymous_id":"u-1"})";
  std::string waiting = body;
  waiting.replace(waiting.find(user), user.size(), R"("user":"waiting_for_consent")");
  EXPECT_EQ(codesOf(waiting), Found{});
  std::string other = body;
  other.replace(other.find(user), user.size(), R"("user":"nobody")");
  EXPECT_EQ(codesOf(other), Found{"wrong_type user"});
}

TEST(ValidationResult, CountsAllDiagnosticsAndKeepsAHundredPerLevel) {
  std::string members = R"("event_name":"quiz")";
  for (int i = 0; i < 1000; ++i)
    members += ",\"k" + std::to_string(i) + "\":0.30000000000000004";
  const ValidationResult validation = ValidationResult::of(kQuery, eventWith(members));
  EXPECT_EQ(validation.diagnostics.errors(), 1000);
  EXPECT_EQ(validation.diagnostics.warnings(), 1000);
  EXPECT_EQ(validation.diagnostics.kept().size(), 200u);
}

TEST(ValidationResult, SummarisesTheEventInOneLine) {
  const auto line = [](const std::string& members) {
    return ValidationResult::of(kQuery, eventWith(members)).line;
  };
  EXPECT_EQ(line(R"("event_name":"search","search_term":"lighthouse")"), "lighthouse");
  EXPECT_EQ(line(R"("event_name":"video_pause","video_title":"Fox","cursor_position":12,
                    "total_length":5400)"),
            "Fox, at 12 of 5400");
  EXPECT_EQ(line(R"("event_name":"quiz","page_name":"home","score":3,"why":{"a":1})"),
            "home, score 3");
  EXPECT_EQ(line(R"("event_name":"quiz","a":"x\ny")"), "a x y");
  EXPECT_EQ(line(R"("event_name":"login")"), "");
  EXPECT_LE(line(R"("event_name":"quiz","a":")" + std::string(5000, 'x') + "\"").size(), 130u);
}

}  // namespace
}  // namespace jx
