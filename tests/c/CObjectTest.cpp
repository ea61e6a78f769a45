// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests events, items and products of the C API: valid and invalid input.

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <string>
#include <thread>

#include "jx/c/jx.h"
#include "tests/c/CTestTools.h"
#include "tests/core/storage/JXLogLines.h"

namespace jx::test {
namespace {

using ::testing::HasSubstr;

std::string detail() { return jx_error_detail(); }

class CObject : public ::testing::Test {
 protected:
  CObject() { eventPlatform(); }

  // Returns the JSON of the event after the context block.
  std::string fields() const { return fieldsOf(cart.get()); }
  static std::string fieldsOf(const jx_object* object) {
    const std::string json = objectJson(object);
    const std::string before = R"("context":{"event_id":"E"},)";
    const std::size_t at = json.find(before);
    return at == std::string::npos ? json : json.substr(at + before.size());
  }

  const Object cart = makeEvent("JXViewCartEvent");
};

TEST_F(CObject, OmitsNullAndWritesTheEmptyString) {
  ASSERT_EQ(jx_object_set_string(cart.get(), "currency", ""), JX_OK);
  EXPECT_EQ(fields(), R"("currency":"","items":[]})");
  ASSERT_EQ(jx_object_set_string(cart.get(), "currency", nullptr), JX_OK);
  EXPECT_EQ(fields(), R"("items":[]})");
}

TEST_F(CObject, KeepsTheScaleOfDecimalStrings) {
  ASSERT_EQ(jx_object_set_number(cart.get(), "value", "12.50"), JX_OK);
  EXPECT_EQ(fields(), R"("value":12.50,"items":[]})");
  ASSERT_EQ(jx_object_set_number(cart.get(), "value", "+1e3"), JX_OK);
  EXPECT_EQ(fields(), R"("value":1000,"items":[]})");
  ASSERT_EQ(jx_object_set_double(cart.get(), "value", 0.1), JX_OK);
  EXPECT_EQ(fields(), R"("value":0.1,"items":[]})");
  ASSERT_EQ(jx_object_set_integer(cart.get(), "value", INT64_MIN), JX_OK);
  EXPECT_EQ(fields(), R"("value":-9223372036854775808,"items":[]})");
  ASSERT_EQ(jx_object_set_number(cart.get(), "value", nullptr), JX_OK);
  EXPECT_EQ(fields(), R"("items":[]})");
}

TEST_F(CObject, RejectsInvalidNumbersWithoutChanges) {
  ASSERT_EQ(jx_object_set_number(cart.get(), "value", "1"), JX_OK);
  EXPECT_EQ(jx_object_set_number(cart.get(), "value", "a lot"), JX_ERROR_INVALID_NUMBER);
  EXPECT_EQ(jx_object_set_number(cart.get(), "value", ""), JX_ERROR_INVALID_NUMBER);
  EXPECT_EQ(jx_object_set_double(cart.get(), "value", std::nan("")), JX_ERROR_INVALID_NUMBER);
  EXPECT_EQ(jx_object_set_double(cart.get(), "value", -INFINITY), JX_ERROR_INVALID_NUMBER);
  EXPECT_EQ(detail(), "value must be a finite decimal number");
  EXPECT_EQ(fields(), R"("value":1,"items":[]})");
}

TEST_F(CObject, RejectsValuesOfAnotherType) {
  EXPECT_EQ(jx_object_set_integer(cart.get(), "currency", 1), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(detail(), "currency must be a string");
  EXPECT_EQ(jx_object_set_string(cart.get(), "value", "1"), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_set_boolean(cart.get(), "value", true), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_set_enum(cart.get(), "value", 0), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_set_strings(cart.get(), "items", nullptr, 0), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_set_product(cart.get(), "items", nullptr), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_add_item(cart.get(), "value", nullptr), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_set_json(cart.get(), "value", "[]"), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(detail(), "value must be a decimal number");
  EXPECT_EQ(fields(), R"("items":[]})");
}

TEST_F(CObject, RejectsUnknownFieldsAndFieldsOfOtherClasses) {
  EXPECT_EQ(jx_object_set_string(cart.get(), "coupn", "x"), JX_ERROR_UNKNOWN_FIELD);
  EXPECT_EQ(detail(), "\"coupn\" is not a field of JXViewCartEvent");
  EXPECT_EQ(jx_object_set_string(cart.get(), "JXViewCartEvent.coupn", "x"), JX_ERROR_UNKNOWN_FIELD);
  EXPECT_EQ(JXPurchaseEvent_setCurrency(cart.get(), "GBP"), JX_ERROR_WRONG_CLASS);
  EXPECT_EQ(detail(), "\"JXPurchaseEvent.currency\" is not a field of JXViewCartEvent");
  EXPECT_EQ(JXItem_setID(cart.get(), "1"), JX_ERROR_WRONG_CLASS);
  EXPECT_EQ(JXProduct_setName(cart.get(), "1"), JX_ERROR_WRONG_CLASS);
  EXPECT_EQ(jx_object_set_string(cart.get(), "JXNothing.currency", "x"), JX_ERROR_UNKNOWN_CLASS);
  EXPECT_EQ(jx_object_set_string(cart.get(), "", "x"), JX_ERROR_UNKNOWN_FIELD);
  EXPECT_EQ(jx_object_set_string(cart.get(), ".", "x"), JX_ERROR_UNKNOWN_CLASS);
  EXPECT_EQ(jx_object_set_string(cart.get(), nullptr, "x"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(fields(), R"("items":[]})");
}

TEST_F(CObject, AcceptsFieldsOfBaseClasses) {
  EXPECT_EQ(JXEvent_setPageName(cart.get(), "home"), JX_OK);
  EXPECT_EQ(JXECommerceEvent_setCurrency(cart.get(), "GBP"), JX_OK);
  EXPECT_EQ(fields(), R"("currency":"GBP","items":[]})");
  EXPECT_THAT(objectJson(cart.get()), HasSubstr(R"("page_name":"home")"));
}

TEST_F(CObject, RejectsObjectsOfAnotherClassAsItemOrProduct) {
  const Object product = makeProduct("p", "1");
  const Object item = makeItem("1", 1, product.get());
  EXPECT_EQ(jx_object_add_item(cart.get(), "items", product.get()), JX_ERROR_WRONG_CLASS);
  EXPECT_EQ(detail(), "item must be a JXItem, not a JXProduct");
  EXPECT_EQ(jx_object_add_item(cart.get(), "items", cart.get()), JX_ERROR_WRONG_CLASS);
  EXPECT_EQ(jx_object_add_item(cart.get(), "items", nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_product(item.get(), "product", item.get()), JX_ERROR_WRONG_CLASS);
  EXPECT_EQ(fields(), R"("items":[]})");
}

TEST_F(CObject, CopiesItemsWhenTheyAreAdded) {
  const Object product = makeProduct("p", "1.0");
  const Object item = makeItem("1", 2, product.get());
  ASSERT_EQ(jx_object_add_parameter(item.get(), "gift", "no"), JX_OK);
  ASSERT_EQ(jx_object_add_item(cart.get(), "items", item.get()), JX_OK);
  ASSERT_EQ(JXProduct_setName(product.get(), "later"), JX_OK);
  ASSERT_EQ(JXItem_setQuantity_integer(item.get(), 9), JX_OK);
  ASSERT_EQ(jx_object_add_parameter(item.get(), "gift", "yes"), JX_OK);
  ASSERT_EQ(jx_object_add_parameter(item.get(), "more", "yes"), JX_OK);
  EXPECT_EQ(fields(), R"("items":[{"gift":"no","id":"1","quantity":2,)"
                      R"("product":{"id":"p","price":1.0,"colors":[]}}]})");
}

TEST_F(CObject, CreatesItemsWithAnEmptyProduct) {
  jx_object* handle = nullptr;
  ASSERT_EQ(jx_item_create(&handle), JX_OK);
  const Object item(handle);
  EXPECT_EQ(objectJson(item.get()), R"({"product":{"colors":[]}})");
  ASSERT_EQ(jx_object_add_item(cart.get(), "items", item.get()), JX_OK);
  ASSERT_EQ(jx_object_set_product(item.get(), "product", nullptr), JX_OK);
  EXPECT_EQ(objectJson(item.get()), "{}");
  ASSERT_EQ(jx_object_add_item(cart.get(), "items", item.get()), JX_OK);
  EXPECT_EQ(fields(), R"("items":[{"product":{"colors":[]}},{}]})");
}

TEST_F(CObject, AppendsItemsToAListSetFromJson) {
  const Object item = makeItem("2", 1, nullptr);
  ASSERT_EQ(jx_object_set_json(cart.get(), "items", R"([{"ID":"1","product":null}])"), JX_OK);
  ASSERT_EQ(jx_object_add_item(cart.get(), "items", item.get()), JX_OK);
  EXPECT_EQ(fields(), R"("items":[{"id":"1"},{"id":"2","quantity":1}]})");
  ASSERT_EQ(jx_object_list_clear(cart.get(), "items"), JX_OK);
  EXPECT_EQ(fields(), R"("items":[]})");
  ASSERT_EQ(jx_object_add_item(cart.get(), "items", item.get()), JX_OK);
  EXPECT_EQ(fields(), R"("items":[{"id":"2","quantity":1}]})");
}

TEST_F(CObject, RejectsUnknownModes) {
  jx_object* event = nullptr;
  ASSERT_EQ(JXVideoAdEvent_create(::EJXVideoAdMode_BREAK_START, "s", &event), JX_OK);
  const Object ad(event);
  EXPECT_THAT(objectJson(event), HasSubstr(R"("event_name":"video_ad_break_start")"));
  event = ad.get();
  EXPECT_EQ(jx_event_create_with_mode("JXVideoAdEvent", 8, "s", &event),
            JX_ERROR_UNKNOWN_ENUMERATOR);
  EXPECT_EQ(event, nullptr);
  EXPECT_EQ(detail(), "8 is not a mode of JXVideoAdEvent");
  EXPECT_EQ(jx_event_create_with_mode("JXVideoAdEvent", UINT32_MAX, "s", &event),
            JX_ERROR_UNKNOWN_ENUMERATOR);
  EXPECT_EQ(jx_event_create("JXVideoAdEvent", &event), JX_ERROR_UNKNOWN_ENUMERATOR);
  EXPECT_EQ(jx_event_create_with_mode("JXSearchEvent", 0, "s", &event),
            JX_ERROR_UNKNOWN_ENUMERATOR);
  EXPECT_EQ(jx_object_set_enum(ad.get(), "adType", 3), JX_ERROR_UNKNOWN_ENUMERATOR);
  EXPECT_EQ(jx_object_set_enum(ad.get(), "adType", UINT32_MAX), JX_ERROR_UNKNOWN_ENUMERATOR);
  EXPECT_EQ(jx_object_set_null(ad.get(), "adType"), JX_ERROR_WRONG_TYPE);
}

TEST_F(CObject, RejectsUnknownAndNullClasses) {
  jx_object* event = cart.get();
  EXPECT_EQ(jx_event_create("JXNothing", &event), JX_ERROR_UNKNOWN_CLASS);
  EXPECT_EQ(event, nullptr);
  EXPECT_EQ(jx_event_create("JXItem", &event), JX_ERROR_UNKNOWN_CLASS);
  EXPECT_EQ(jx_event_create(nullptr, &event), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_event_create("JXEvent", nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_item_create(nullptr), JX_ERROR_NULL_ARGUMENT);
}

TEST_F(CObject, CreatesACustomEventWithoutANameThatIsInvalid) {
  jx_object* event = nullptr;
  ASSERT_EQ(jx_custom_event_create(nullptr, &event), JX_OK);
  const Object custom(event);
  EXPECT_EQ(objectJson(event), R"({"context":{"event_id":"E"}})");
  EXPECT_EQ(jx_object_verify(event), JX_ERROR_INCOMPLETE);
  EXPECT_EQ(detail(), "name must be a non-empty string");
  ASSERT_EQ(JXEvent_setName(event, "quiz"), JX_OK);
  EXPECT_EQ(jx_object_verify(event), JX_OK);
}

TEST_F(CObject, ValidatesItemsAndProducts) {
  const Object product = makeProduct("p", "1");
  EXPECT_EQ(jx_object_verify(product.get()), JX_ERROR_INCOMPLETE);
  EXPECT_EQ(detail(), "name must be a non-empty string");
  const Object early = makeItem("1", 1, product.get());
  EXPECT_EQ(jx_object_verify(early.get()), JX_ERROR_INCOMPLETE);
  EXPECT_EQ(detail(), "product: name must be a non-empty string");
  ASSERT_EQ(JXProduct_setName(product.get(), "Lamp"), JX_OK);
  EXPECT_EQ(jx_object_verify(product.get()), JX_OK);
  const Object item = makeItem("1", 1, product.get());
  EXPECT_EQ(jx_object_verify(item.get()), JX_OK);
  EXPECT_EQ(jx_object_verify(cart.get()), JX_ERROR_INCOMPLETE);
  ASSERT_EQ(JXViewCartEvent_setValue(cart.get(), "1"), JX_OK);
  ASSERT_EQ(JXViewCartEvent_setCurrency(cart.get(), "GBP"), JX_OK);
  ASSERT_EQ(JXViewCartEvent_items_append(cart.get(), item.get()), JX_OK);
  EXPECT_EQ(jx_object_verify(cart.get()), JX_OK);
}

TEST_F(CObject, AcceptsStringAndJsonParameters) {
  jx_object* event = nullptr;
  ASSERT_EQ(jx_event_create("JXEvent", &event), JX_OK);
  const Object bare(event);
  EXPECT_EQ(jx_object_add_parameter(event, "a", "1"), JX_OK);
  EXPECT_EQ(jx_object_add_parameter_json(event, "b", R"({"n":1.50,"z":null})"), JX_OK);
  EXPECT_EQ(jx_object_add_parameter_json(event, "c", "null"), JX_OK);
  EXPECT_EQ(jx_object_add_parameter(event, "a", "2"), JX_OK);
  EXPECT_EQ(jx_object_add_parameter(event, "d", nullptr), JX_OK);
  EXPECT_EQ(jx_object_add_parameter_json(event, "d", nullptr), JX_OK);
  EXPECT_EQ(jx_object_add_parameter(event, nullptr, "x"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_object_add_parameter_json(event, "d", "{"), JX_ERROR_INVALID_JSON);
  EXPECT_THAT(detail(), HasSubstr("invalid JSON at byte 2"));
  EXPECT_EQ(objectJson(event),
            R"({"a":"2","b":{"n":1.50,"z":null},"c":null,"context":{"event_id":"E"}})");
}

TEST_F(CObject, ReplacesBytesThatAreNotUtf8) {
  ASSERT_EQ(JXViewCartEvent_setCurrency(cart.get(), "\xE9t\xE9"), JX_OK);
  ASSERT_EQ(jx_object_add_parameter(cart.get(), "cl\xE9", "\xFF\xFE"), JX_OK);
  EXPECT_EQ(fields(), "\"currency\":\"\xEF\xBF\xBDt\xEF\xBF\xBD\",\"items\":[]}");
  EXPECT_THAT(objectJson(cart.get()), HasSubstr("\"cl\xEF\xBF\xBD\":\"\xEF\xBF\xBD\xEF\xBF\xBD\""));
  EXPECT_EQ(jx_object_add_parameter_json(cart.get(), "k", "\"\xE9\""), JX_ERROR_INVALID_JSON);
  EXPECT_EQ(jx_object_set_string(cart.get(), "cl\xE9", "x"), JX_ERROR_UNKNOWN_FIELD);
  EXPECT_EQ(detail(), "\"cl\xEF\xBF\xBD\" is not a field of JXViewCartEvent");
}

TEST_F(CObject, WritesTheCompleteStringOrNothing) {
  const Object product = makeProduct("p", "1");
  const std::string json = R"({"id":"p","price":1,"colors":[]})";
  std::string buffer(json.size() + 1, '?');
  size_t length = 0;
  EXPECT_EQ(jx_object_json(product.get(), buffer.data(), json.size() + 1, &length), JX_OK);
  EXPECT_EQ(buffer.c_str(), json);
  EXPECT_EQ(length, json.size());
  buffer.assign(json.size() + 1, '?');
  EXPECT_EQ(jx_object_json(product.get(), buffer.data(), json.size(), nullptr), JX_ERROR_TOO_SMALL);
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(buffer[1], '?');
  EXPECT_EQ(jx_object_json(product.get(), nullptr, 0, &length), JX_ERROR_TOO_SMALL);
  EXPECT_EQ(length, json.size());
  EXPECT_EQ(jx_object_json(product.get(), nullptr, 8, &length), JX_ERROR_NULL_ARGUMENT);
}

TEST_F(CObject, LogsErrorsButNotExpectedResults) {
  LogLines log;
  EXPECT_EQ(jx_object_set_string(cart.get(), "coupn", "x"), JX_ERROR_UNKNOWN_FIELD);
  EXPECT_EQ(log.with("3 jx_object_set_string: \"coupn\" is not a field of JXViewCartEvent"), 1u);
  EXPECT_EQ(jx_object_verify(cart.get()), JX_ERROR_INCOMPLETE);
  EXPECT_EQ(log.with("jx_object_verify"), 0u);
}

TEST_F(CObject, TruncatesLongDetailsBetweenCharacters) {
  std::string field = "x";
  for (int i = 0; i < 200; ++i)
    field += "\u00e9";
  EXPECT_EQ(jx_object_set_string(cart.get(), field.c_str(), "x"), JX_ERROR_UNKNOWN_FIELD);
  // A quotation mark, an x and 126 characters of two bytes; another would need 256 bytes.
  EXPECT_EQ(detail(), '"' + field.substr(0, 253));
}

TEST_F(CObject, KeepsDetailsPerThread) {
  EXPECT_EQ(jx_object_set_string(cart.get(), "mine", "x"), JX_ERROR_UNKNOWN_FIELD);
  std::thread([] { EXPECT_STREQ(jx_error_detail(), ""); }).join();
  EXPECT_EQ(detail(), "\"mine\" is not a field of JXViewCartEvent");
}

TEST_F(CObject, DescribesEachStatus) {
  EXPECT_STREQ(jx_status_string(JX_OK), "success");
  EXPECT_STREQ(jx_status_string(JX_ERROR_INTERNAL), "internal error");
  EXPECT_STREQ(jx_status_string(JX_ERROR_OUT_OF_RANGE), "index is out of range");
  EXPECT_STREQ(jx_status_string(JX_ERROR_NOT_ERASED), "some stored data could not be erased");
  EXPECT_STREQ(jx_status_string(22), "unknown status");
  EXPECT_STREQ(jx_status_string(UINT32_MAX), "unknown status");
}

TEST_F(CObject, ReturnsTheVersionsOfLibraryAndEvents) {
  EXPECT_STREQ(jx_version(), JX_EXPECTED_VERSION);
  EXPECT_STREQ(jx_sdk_version(), "5.4.5");
}

}  // namespace
}  // namespace jx::test
