// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXItem.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXItem, WritesAllFieldsInOrderAndNestsItsProduct) {
  const auto item = lampItem();
  item->setVariant("tall");
  item->setList_position(4);
  item->setDiscount(decimal("0.50"));
  item->setCoupon("C");
  item->setAffiliation("shop");
  item->addAdditionalProperty_withStringValue("note", "n");
  EXPECT_EQ(jsonText(item->getJsonObject()),
            R"({"note":"n","id":"1","quantity":2,"variant":"tall","list_position":4,)"
            R"("discount":0.50,"coupon":"C","affiliation":"shop",)"
            R"("product":{"id":"L7","name":"Lamp","price":12.50,"colors":[]}})");
}

TEST(JXItem, StartsWithAnEmptyProductAndIsInvalidUntilItIsFilled) {
  const auto item = JXItem::init();
  ASSERT_NE(item->product(), nullptr);
  EXPECT_EQ(jsonText(item->getJsonObject()), R"({"product":{"colors":[]}})");
  item->setID("1");
  item->setQuantity(1);
  EXPECT_FALSE(item->verifyItem());
  item->product()->setID("p");
  item->product()->setName("Lamp");
  item->product()->setPrice(1);
  EXPECT_TRUE(item->verifyItem());
}

TEST(JXItem, RequiresAnIDAValidProductAndAQuantity) {
  EXPECT_TRUE(lampItem()->verifyItem());
  const auto withoutId = lampItem();
  withoutId->setID("");
  EXPECT_FALSE(withoutId->verifyItem());
  const auto withoutProduct = lampItem();
  withoutProduct->setProduct(nullptr);
  EXPECT_FALSE(withoutProduct->verifyItem());
  const auto withInvalidProduct = lampItem();
  withInvalidProduct->setProduct(JXProduct::init());
  EXPECT_FALSE(withInvalidProduct->verifyItem());
  const auto withoutQuantity = lampItem();
  withoutQuantity->setQuantity(std::nullopt);
  EXPECT_FALSE(withoutQuantity->verifyItem());
}

TEST(JXItem, AcceptsAQuantityOfZero) {
  const auto item = JXItem::initWithItemId_withProduct_withQuantity("1", lampItem()->product(), 0);
  EXPECT_TRUE(item->verifyItem());
  EXPECT_EQ(item->getJsonObject().get("quantity").numberString(), JXString("0"));
}

TEST(JXItem, AcceptsTheWholeRangeOfQuantities) {
  const auto lowest =
      JXItem::initWithItemId_withProduct_withQuantity("1", lampItem()->product(), INT32_MIN);
  EXPECT_EQ(lowest->getJsonObject().get("quantity").numberString(), JXString("-2147483648"));
}

TEST(JXItem, KeepsAndOmitsANullProduct) {
  const auto item = JXItem::initWithItemId_withProduct_withQuantity("1", nullptr, 2);
  EXPECT_EQ(item->product(), nullptr);
  EXPECT_EQ(jsonText(item->getJsonObject()), R"({"id":"1","quantity":2})");
}

TEST(JXItem, WritesProductKeysOnlyInsideTheProduct) {
  const JXJsonObject json = lampItem()->getJsonObject();
  EXPECT_FALSE(json.contains("name"));
  EXPECT_FALSE(json.contains("price"));
  EXPECT_EQ(json.get("id").string(), JXString("1"));
  EXPECT_EQ(json.get("product").object().get("id").string(), JXString("L7"));
}

TEST(JXItem, IsWrittenInFullEvenIfInvalid) {
  const auto item = JXItem::init();
  item->setVariant("tall");
  ASSERT_FALSE(item->verifyItem());
  const auto event = JXViewCartEvent::initWithItems({item});
  EXPECT_EQ(eventJson(*event), R"({"event_name":"view_cart","context":{"event_id":"E"},)"
                               R"("items":[{"variant":"tall","product":{"colors":[]}}]})");
}

}  // namespace
}  // namespace jx::test
