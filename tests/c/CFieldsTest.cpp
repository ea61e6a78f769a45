// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests reading fields and changing lists in C, and that lists change as in C++.

#include <gmock/gmock.h>

#include <functional>
#include <string>

#include "jx/c/jx.h"
#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "jx/events/video/JXVideoPlaybackEvent.h"
#include "tests/c/CTestTools.h"
#include "tests/core/storage/JXLogLines.h"

namespace jx::test {
namespace {

using Getter = std::function<jx_status(char*, size_t, size_t*)>;

// Returns the string that a getter writes, or the name of its status.
std::string read(const Getter& getter) {
  char buffer[256] = "unchanged";
  size_t length = 0;
  const jx_status status = getter(buffer, sizeof buffer, &length);
  if (status != JX_OK) {
    EXPECT_STREQ(buffer, "unchanged");
    return std::string("status: ") + jx_status_string(status);
  }
  EXPECT_EQ(length, std::string(buffer).size());
  return buffer;
}

std::string string(const Object& object, const char* field) {
  return read([&](char* buffer, size_t capacity, size_t* length) {
    return jx_object_get_string(object.get(), field, buffer, capacity, length);
  });
}

std::string number(const Object& object, const char* field) {
  return read([&](char* buffer, size_t capacity, size_t* length) {
    return jx_object_get_number(object.get(), field, buffer, capacity, length);
  });
}

std::string json(const Object& object, const char* field) {
  return read([&](char* buffer, size_t capacity, size_t* length) {
    return jx_object_get_json(object.get(), field, buffer, capacity, length);
  });
}

std::string stringAt(const Object& object, const char* field, size_t index) {
  return read([&](char* buffer, size_t capacity, size_t* length) {
    return jx_object_list_get_string(object.get(), field, index, buffer, capacity, length);
  });
}

std::string jsonAt(const Object& object, const char* field, size_t index) {
  return read([&](char* buffer, size_t capacity, size_t* length) {
    return jx_object_list_get_json(object.get(), field, index, buffer, capacity, length);
  });
}

size_t count(const Object& object, const char* field) {
  size_t count = 99;
  EXPECT_EQ(jx_object_list_count(object.get(), field, &count), JX_OK);
  return count;
}

constexpr const char* kNotSet = "status: no value is set";
constexpr const char* kWrongType = "status: field has another type";
constexpr const char* kOutOfRange = "status: index is out of range";

class CFields : public ::testing::Test {
 protected:
  CFields() { eventPlatform(); }

  const Object purchase = makeEvent("JXPurchaseEvent");
  const Object ad = makeEvent("JXVideoAdEvent", 8);
  const Object playback = makeEvent("JXVideoPlaybackEvent", 5);
  const Object setting = makeEvent("JXVideoSettingEvent", 1);
};

TEST_F(CFields, ReturnStringsAndDistinguishNullFromEmpty) {
  EXPECT_EQ(string(purchase, "coupon"), kNotSet);
  ASSERT_EQ(jx_object_set_string(purchase.get(), "coupon", ""), JX_OK);
  EXPECT_EQ(string(purchase, "coupon"), "");
  ASSERT_EQ(jx_object_set_string(purchase.get(), "coupon", "caf\xC3\xA9"), JX_OK);
  EXPECT_EQ(string(purchase, "JXPurchaseEvent.coupon"), "caf\xC3\xA9");
  ASSERT_EQ(jx_object_set_null(purchase.get(), "coupon"), JX_OK);
  EXPECT_EQ(string(purchase, "coupon"), kNotSet);
  EXPECT_EQ(string(purchase, "name"), "purchase");
}

TEST_F(CFields, ReturnFieldsOfBaseClasses) {
  ASSERT_EQ(JXEvent_setPageName(purchase.get(), "home"), JX_OK);
  EXPECT_EQ(string(purchase, "pageName"), "home");
  EXPECT_EQ(string(purchase, "JXEvent.pageName"), "home");
  EXPECT_EQ(string(purchase, "JXPurchaseEvent.pageName"), "home");
  EXPECT_EQ(string(ad, "videoSessionID"), "session");
}

TEST_F(CFields, ReturnNumbersAsExactDecimalStrings) {
  EXPECT_EQ(number(purchase, "revenue"), kNotSet);
  for (const char* exact : {"12.50", "0", "-0.001", "12345678901234567890123456789012345678"}) {
    ASSERT_EQ(jx_object_set_number(purchase.get(), "revenue", exact), JX_OK);
    EXPECT_EQ(number(purchase, "revenue"), exact);
  }
  ASSERT_EQ(jx_object_set_number(purchase.get(), "revenue", "+1e3"), JX_OK);
  EXPECT_EQ(number(purchase, "revenue"), "1000");
}

TEST_F(CFields, ReturnBooleans) {
  bool value = true;
  EXPECT_EQ(jx_object_get_boolean(setting.get(), "fullScreen", &value), JX_OK);
  EXPECT_FALSE(value);
  ASSERT_EQ(jx_object_set_boolean(setting.get(), "fullScreen", true), JX_OK);
  EXPECT_EQ(jx_object_get_boolean(setting.get(), "fullScreen", &value), JX_OK);
  EXPECT_TRUE(value);
  EXPECT_EQ(jx_object_get_boolean(setting.get(), "fullScreen", nullptr), JX_ERROR_NULL_ARGUMENT);
}

TEST_F(CFields, ReturnEnumerationsByValue) {
  uint32_t value = 99;
  EXPECT_EQ(jx_object_get_enum(ad.get(), "adType", &value), JX_OK);
  EXPECT_EQ(value, 0u);
  ASSERT_EQ(jx_object_set_enum(ad.get(), "adType", 2), JX_OK);
  EXPECT_EQ(jx_object_get_enum(ad.get(), "adType", &value), JX_OK);
  EXPECT_EQ(value, 2u);
  EXPECT_EQ(json(ad, "adType"), R"("POST_ROLL")");
  EXPECT_EQ(jx_object_get_enum(ad.get(), "adType", nullptr), JX_ERROR_NULL_ARGUMENT);
}

TEST_F(CFields, ReturnJsonThatCanBeSetAgain) {
  const Object product = makeProduct("p", "1.0");
  const Object item = makeItem("1", 2, product.get());
  ASSERT_EQ(jx_object_add_parameter(item.get(), "gift", "no"), JX_OK);
  ASSERT_EQ(jx_object_add_item(purchase.get(), "items", item.get()), JX_OK);
  const std::string items = json(purchase, "items");
  EXPECT_EQ(items, R"([{"ID":"1","quantity":2,"product":{"ID":"p","price":1.0,"categories":[],)"
                   R"("colors":[]},"parameters":{"gift":"no"}}])");
  const Object other = makeEvent("JXPurchaseEvent");
  ASSERT_EQ(jx_object_set_json(other.get(), "items", items.c_str()), JX_OK);
  EXPECT_EQ(objectJson(other.get()), objectJson(purchase.get()));
  EXPECT_EQ(json(purchase, "coupon"), kNotSet);
  EXPECT_EQ(json(item, "product"), R"({"ID":"p","price":1.0,"categories":[],"colors":[]})");
}

TEST_F(CFields, RejectFieldsOfAnotherTypeAndUnknownFields) {
  EXPECT_EQ(string(purchase, "revenue"), kWrongType);
  EXPECT_STREQ(jx_error_detail(), "revenue must be a number");
  EXPECT_EQ(number(purchase, "coupon"), kWrongType);
  EXPECT_EQ(stringAt(purchase, "items", 0), kWrongType);
  EXPECT_EQ(stringAt(purchase, "coupon", 0), kWrongType);
  EXPECT_EQ(jsonAt(purchase, "coupon", 0), kWrongType);
  EXPECT_EQ(string(purchase, "coupn"), "status: unknown field");
  EXPECT_EQ(string(purchase, "JXItem.coupon"), "status: object belongs to another class");
  bool boolean = false;
  uint32_t value = 0;
  size_t elements = 99;
  EXPECT_EQ(jx_object_get_boolean(purchase.get(), "coupon", &boolean), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_get_enum(purchase.get(), "coupon", &value), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_list_count(purchase.get(), "coupon", &elements), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(elements, 0u);
  EXPECT_EQ(jx_object_list_count(purchase.get(), "items", nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_object_list_clear(purchase.get(), "coupon"), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_list_remove(purchase.get(), "coupon", 0), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_list_insert_string(purchase.get(), "items", 0, "a"), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_list_insert_number(purchase.get(), "items", 0, "1"), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_list_insert_boolean(purchase.get(), "items", 0, true), JX_ERROR_WRONG_TYPE);
  EXPECT_EQ(jx_object_list_insert_json(purchase.get(), "items", 0, "{}"), JX_ERROR_WRONG_TYPE);
}

TEST_F(CFields, ReportTheRequiredLengthOfASmallBuffer) {
  ASSERT_EQ(jx_object_set_string(purchase.get(), "coupon", "SPRING"), JX_OK);
  char buffer[6] = "?????";
  size_t length = 0;
  EXPECT_EQ(jx_object_get_string(purchase.get(), "coupon", buffer, sizeof buffer, &length),
            JX_ERROR_TOO_SMALL);
  EXPECT_EQ(length, 6u);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(jx_object_get_string(purchase.get(), "coupon", nullptr, 0, &length),
            JX_ERROR_TOO_SMALL);
}

TEST_F(CFields, ReturnElementsOfListsOfStrings) {
  const Object product = makeProduct("p", "1");
  const char* const colors[] = {"red", nullptr, ""};
  ASSERT_EQ(jx_object_set_strings(product.get(), "colors", colors, 3), JX_OK);
  EXPECT_EQ(count(product, "colors"), 3u);
  EXPECT_EQ(stringAt(product, "colors", 0), "red");
  EXPECT_EQ(stringAt(product, "colors", 1), kNotSet);
  EXPECT_EQ(stringAt(product, "colors", 2), "");
  EXPECT_EQ(stringAt(product, "colors", 3), kOutOfRange);
  EXPECT_STREQ(jx_error_detail(), "colors has no element at index 3");
  EXPECT_EQ(stringAt(product, "colors", SIZE_MAX), kOutOfRange);
  EXPECT_EQ(json(product, "colors"), R"(["red",null,""])");
}

TEST_F(CFields, ChangeListsOfStrings) {
  const Object product = makeProduct("p", "1");
  ASSERT_EQ(jx_object_list_insert_string(product.get(), "categories", JX_LIST_END, "b"), JX_OK);
  ASSERT_EQ(jx_object_list_insert_string(product.get(), "categories", 0, "a"), JX_OK);
  ASSERT_EQ(jx_object_list_insert_string(product.get(), "categories", 7, "d"), JX_OK);
  ASSERT_EQ(jx_object_list_insert_string(product.get(), "categories", 2, nullptr), JX_OK);
  EXPECT_EQ(json(product, "categories"), R"(["a","b",null,"d"])");
  EXPECT_EQ(objectJson(product.get()), R"({"id":"p","price":1,"category_1":"a",)"
                                       R"("category_2":"b","category_4":"d","colors":[]})");
  ASSERT_EQ(jx_object_list_remove(product.get(), "categories", 1), JX_OK);
  EXPECT_EQ(jx_object_list_remove(product.get(), "categories", 3), JX_ERROR_OUT_OF_RANGE);
  EXPECT_EQ(json(product, "categories"), R"(["a",null,"d"])");
  ASSERT_EQ(jx_object_list_clear(product.get(), "categories"), JX_OK);
  EXPECT_EQ(count(product, "categories"), 0u);
  EXPECT_EQ(objectJson(product.get()), R"({"id":"p","price":1,"colors":[]})");
}

TEST_F(CFields, ChangeListsOfAnyValuesWithoutJson) {
  const char* const ids = "contentAssetID";
  ASSERT_EQ(jx_object_list_clear(playback.get(), ids), JX_OK);
  EXPECT_EQ(json(playback, ids), "[]");
  ASSERT_EQ(jx_object_list_insert_string(playback.get(), ids, JX_LIST_END, "film"), JX_OK);
  ASSERT_EQ(jx_object_list_insert_number(playback.get(), ids, JX_LIST_END, "12.50"), JX_OK);
  ASSERT_EQ(jx_object_list_insert_boolean(playback.get(), ids, JX_LIST_END, true), JX_OK);
  ASSERT_EQ(jx_object_list_insert_null(playback.get(), ids, JX_LIST_END), JX_OK);
  ASSERT_EQ(jx_object_list_insert_json(playback.get(), ids, 0, R"({"n":1.0})"), JX_OK);
  EXPECT_EQ(json(playback, ids), R"([{"n":1.0},"film",12.50,true,null])");
  EXPECT_THAT(objectJson(playback.get()),
              ::testing::HasSubstr(R"("content_asset_id":[{"n":1.0},"film",12.50,true,null])"));
  EXPECT_EQ(count(playback, ids), 5u);
  EXPECT_EQ(stringAt(playback, ids, 1), "film");
  EXPECT_EQ(stringAt(playback, ids, 2), kWrongType);
  EXPECT_STREQ(jx_error_detail(), "element 2 of contentAssetID is not a string");
  EXPECT_EQ(stringAt(playback, ids, 4), kNotSet);
  EXPECT_EQ(jsonAt(playback, ids, 2), "12.50");
  EXPECT_EQ(jsonAt(playback, ids, 4), "null");
  EXPECT_EQ(jsonAt(playback, ids, 5), kOutOfRange);
  ASSERT_EQ(jx_object_list_remove(playback.get(), ids, 0), JX_OK);
  EXPECT_EQ(json(playback, ids), R"(["film",12.50,true,null])");
}

TEST_F(CFields, InsertNothingForNullAndForInvalidValues) {
  const char* const keywords = "keywords";
  ASSERT_EQ(jx_object_set_json(setting.get(), keywords, R"(["a"])"), JX_OK);
  EXPECT_EQ(jx_object_list_insert_string(setting.get(), keywords, 0, nullptr), JX_OK);
  EXPECT_EQ(jx_object_list_insert_number(setting.get(), keywords, 0, nullptr), JX_OK);
  EXPECT_EQ(jx_object_list_insert_json(setting.get(), keywords, 0, nullptr), JX_OK);
  EXPECT_EQ(jx_object_list_insert_number(setting.get(), keywords, 0, "many"),
            JX_ERROR_INVALID_NUMBER);
  EXPECT_EQ(jx_object_list_insert_json(setting.get(), keywords, 0, "[1"), JX_ERROR_INVALID_JSON);
  EXPECT_EQ(json(setting, keywords), R"(["a"])");
}

TEST_F(CFields, ChangeListsOfItems) {
  const Object first = makeItem("1", 1, nullptr);
  const Object second = makeItem("2", 2, nullptr);
  ASSERT_EQ(jx_object_add_item(purchase.get(), "items", second.get()), JX_OK);
  ASSERT_EQ(jx_object_list_insert_item(purchase.get(), "items", 0, first.get()), JX_OK);
  ASSERT_EQ(jx_object_list_insert_null(purchase.get(), "items", 1), JX_OK);
  EXPECT_EQ(count(purchase, "items"), 3u);
  EXPECT_EQ(jsonAt(purchase, "items", 2), R"({"ID":"2","quantity":2,"product":null})");
  EXPECT_THAT(objectJson(purchase.get()),
              ::testing::HasSubstr(R"("items":[{"id":"1","quantity":1},{"id":"2","quantity":2}])"));
  ASSERT_EQ(jx_object_list_remove(purchase.get(), "items", 0), JX_OK);
  ASSERT_EQ(jx_object_list_remove(purchase.get(), "items", 0), JX_OK);
  EXPECT_EQ(json(purchase, "items"), R"([{"ID":"2","quantity":2,"product":null}])");
  EXPECT_EQ(jx_object_list_insert_item(purchase.get(), "items", 0, purchase.get()),
            JX_ERROR_WRONG_CLASS);
}

TEST_F(CFields, KeepAppendedItemsWhenAnotherValueIsRejected) {
  const Object item = makeItem("1", 1, nullptr);
  ASSERT_EQ(jx_object_add_item(purchase.get(), "items", item.get()), JX_OK);
  EXPECT_EQ(jx_object_set_json(purchase.get(), "items", "1"), JX_ERROR_WRONG_TYPE);
  ASSERT_EQ(jx_object_set_string(purchase.get(), "coupon", "c"), JX_OK);
  EXPECT_EQ(json(purchase, "items"), R"([{"ID":"1","quantity":1,"product":null}])");
}

TEST_F(CFields, IgnoreChangesOfNullListsLikeCpp) {
  const Object cart = makeEvent("JXViewCartEvent");
  const auto cartInCpp = JXViewCartEvent::init();
  cartInCpp->setItems(nullptr);
  cartInCpp->items().append(JXItem::init());
  const Object item = makeItem("1", 1, nullptr);
  LogLines log;
  ASSERT_EQ(jx_object_set_null(cart.get(), "items"), JX_OK);
  EXPECT_EQ(jx_object_add_item(cart.get(), "items", item.get()), JX_ERROR_NOT_SET);
  EXPECT_EQ(jx_object_list_insert_item(cart.get(), "items", 0, item.get()), JX_ERROR_NOT_SET);
  EXPECT_EQ(jx_object_list_remove(cart.get(), "items", 0), JX_ERROR_NOT_SET);
  EXPECT_EQ(log.with("jx_object"), 0u);
  EXPECT_EQ(json(cart, "items"), kNotSet);
  EXPECT_EQ(objectJson(cart.get()), eventJson(*cartInCpp));
  size_t elements = 99;
  EXPECT_EQ(jx_object_list_count(cart.get(), "items", &elements), JX_ERROR_NOT_SET);
  EXPECT_EQ(elements, 0u);

  const auto playbackInCpp = JXVideoPlaybackEvent::initWithMode_andSessionId(
      EJXVideoPlaybackMode_BUFFER_COMPLETE, "session");
  playbackInCpp->setContentAssetID(nullptr);
  playbackInCpp->contentAssetID().append("film");
  ASSERT_EQ(jx_object_set_null(playback.get(), "contentAssetID"), JX_OK);
  EXPECT_EQ(jx_object_list_insert_string(playback.get(), "contentAssetID", 0, "film"),
            JX_ERROR_NOT_SET);
  EXPECT_EQ(objectJson(playback.get()), eventJson(*playbackInCpp));
}

}  // namespace
}  // namespace jx::test
