// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXProduct.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXProduct, WritesAllFieldsInOrder) {
  const auto product =
      JXProduct::initWithProductId_withName_withPrice("85123A", "LANTERN", decimal("3.390"));
  product->setSize("M");
  product->setCurrency("GBP");
  product->categories().append("home");
  product->categories().append("light");
  product->setBrand("Glow");
  product->colors().append("white");
  product->colors().append("red");
  product->addAdditionalProperty_withStringValue("gift", "yes");
  EXPECT_EQ(jsonText(product->getJsonObject()),
            R"({"gift":"yes","id":"85123A","size":"M","name":"LANTERN","price":3.390,)"
            R"("currency":"GBP","category_1":"home","category_2":"light","brand":"Glow",)"
            R"("colors":["white","red"]})");
}

TEST(JXProduct, StartsWithEmptyListsAndIsInvalid) {
  const auto product = JXProduct::init();
  EXPECT_TRUE(product->categories().isPresent());
  EXPECT_TRUE(product->colors().isPresent());
  EXPECT_EQ(product->ID(), JXString());
  EXPECT_EQ(product->name(), JXString());
  EXPECT_EQ(product->price(), std::nullopt);
  EXPECT_FALSE(product->verifyProduct());
  EXPECT_EQ(jsonText(product->getJsonObject()), R"({"colors":[]})");
}

TEST(JXProduct, RequiresAnIDANameAndAPrice) {
  const auto validProduct = [] {
    return JXProduct::initWithProductId_withName_withPrice("p", "Lamp", 1);
  };
  EXPECT_TRUE(validProduct()->verifyProduct());
  const auto withoutId = validProduct();
  withoutId->setID("");
  EXPECT_FALSE(withoutId->verifyProduct());
  const auto withoutName = validProduct();
  withoutName->setName(nullptr);
  EXPECT_FALSE(withoutName->verifyProduct());
  const auto withoutPrice = validProduct();
  withoutPrice->setPrice(std::nullopt);
  EXPECT_FALSE(withoutPrice->verifyProduct());
}

TEST(JXProduct, AcceptsAPriceOfZeroOrBelow) {
  EXPECT_TRUE(JXProduct::initWithProductId_withName_withPrice("p", "Lamp", 0)->verifyProduct());
  EXPECT_TRUE(JXProduct::initWithProductId_withName_withPrice("p", "Lamp", -5)->verifyProduct());
}

TEST(JXProduct, NumbersItsCategoriesFromOne) {
  const auto product = JXProduct::init();
  product->setCategories({"a", "b", "c"});
  EXPECT_EQ(jsonText(product->getJsonObject()),
            R"({"category_1":"a","category_2":"b","category_3":"c","colors":[]})");
}

TEST(JXProduct, SkipsTheNumberOfANullCategory) {
  const auto product = JXProduct::init();
  product->setCategories({"a", nullptr, "", "d"});
  EXPECT_EQ(jsonText(product->getJsonObject()),
            R"({"category_1":"a","category_3":"","category_4":"d","colors":[]})");
}

TEST(JXProduct, TreatsNullListsAsEmpty) {
  const auto product = JXProduct::init();
  product->setCategories(nullptr);
  product->setColors(nullptr);
  EXPECT_EQ(jsonText(product->getJsonObject()), R"({"colors":[]})");
}

TEST(JXProduct, OmitsANullColor) {
  const auto product = JXProduct::init();
  product->setColors({"red", nullptr, ""});
  EXPECT_EQ(jsonText(product->getJsonObject()), R"({"colors":["red",""]})");
}

TEST(JXProduct, OverridesAnAdditionalBrandIfSet) {
  const auto product = JXProduct::init();
  product->addAdditionalProperty_withStringValue("brand", "extra");
  EXPECT_EQ(product->getJsonObject().get("brand").string(), JXString("extra"));
  product->setBrand("own");
  EXPECT_EQ(product->getJsonObject().get("brand").string(), JXString("own"));
}

TEST(JXProduct, ReturnsEqualButSeparateObjects) {
  const auto product = JXProduct::initWithProductId_withName_withPrice("p", "Lamp", 1);
  JXJsonObject first = product->getJsonObject();
  EXPECT_EQ(jsonText(first), jsonText(product->getJsonObject()));
  first.set("id", "changed");
  EXPECT_EQ(product->getJsonObject().get("id").string(), JXString("p"));
}

}  // namespace
}  // namespace jx::test
