// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Walking a table of fields, over a class that has one of each kind.

#include "jx/events/JXFields.h"

#include <gtest/gtest.h>

#include <array>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace jx::test {
namespace {

constexpr std::array<std::string_view, 2> kTexts{"first text", "second text"};
constexpr std::array<std::string_view, 2> kMembers{"FIRST", "SECOND"};

struct Sample : JXAdditionalProperties {
  JXString text;
  std::optional<JXDecimal> number;
  bool flag = false;
  JXList<JXString> texts = nullptr;
  JXList<JXString> numbered = nullptr;
  JXJsonArray values = nullptr;
  int choice = -1;
  JXList<std::shared_ptr<JXItem>> items = nullptr;
  std::shared_ptr<JXProduct> product;

  static const JXFields<Sample>& fields() {
    static const JXFields<Sample> table{
        {"text_key", "text", &Sample::text},
        {"number_key", "number", &Sample::number},
        {"flag_key", "flag", &Sample::flag},
        {"texts_key", "texts", &Sample::texts},
        {"numbered_", "numbered", JXNumberedStrings<Sample>{&Sample::numbered}},
        {"values_key", "values", &Sample::values},
        {"choice_key", "choice", JXEnumField<Sample>{&Sample::choice, {kTexts, kMembers}}},
        {"items_key", "items", &Sample::items},
        {"product_key", "product", &Sample::product},
    };
    return table;
  }
};

std::string written(const Sample& sample, JXJsonObject dict = {}) {
  JXJsonTreeSink sink(dict);
  Sample::fields().write(sample, sink);
  return JXJsonWriter::write(dict, JXJsonStyle::Compact).text;
}

JXJsonValue json(const std::string& text) { return JXJsonReader::read(text).value; }

std::string set(Sample& sample, std::string_view property, const std::string& text) {
  const JXFieldTable& table = Sample::fields();
  return table.set(sample, table.findProperty(property), json(text));
}

JXFieldState state(const Sample& sample, std::string_view property) {
  const JXFieldTable& table = Sample::fields();
  return table.state(sample, table.findProperty(property));
}

TEST(Fields, WriteNothingButFlagsAndCopiedListsOfAnEmptyObject) {
  EXPECT_EQ(written(Sample()), R"({"flag_key":false,"texts_key":[],"items_key":[]})");
}

TEST(Fields, WriteInTheOrderOfTheTable) {
  Sample sample;
  sample.text = "t";
  sample.number = JXDecimal::fromString("12.50");
  sample.flag = true;
  sample.texts = {"a", nullptr, ""};
  sample.numbered = {"x", nullptr, "z"};
  sample.values = json(R"([1,"two",null])").array();
  sample.choice = 1;
  sample.items = JXList<std::shared_ptr<JXItem>>();
  sample.product = JXProduct::init();
  EXPECT_EQ(written(sample),
            R"({"text_key":"t","number_key":12.50,"flag_key":true,"texts_key":["a",""],)"
            R"("numbered_1":"x","numbered_3":"z","values_key":[1,"two",null],)"
            R"("choice_key":"second text","items_key":[],"product_key":{"colors":[]}})");
}

TEST(Fields, AnAbsentFieldLeavesWhatStoodThere) {
  JXJsonObject dict;
  dict.set("text_key", "extra");
  dict.set("flag_key", "extra");
  EXPECT_EQ(written(Sample(), dict),
            R"({"text_key":"extra","flag_key":false,"texts_key":[],"items_key":[]})");
}

TEST(Fields, ANotANumberIsLeftOut) {
  Sample sample;
  sample.number = JXDecimal::nan();
  EXPECT_EQ(written(sample), R"({"flag_key":false,"texts_key":[],"items_key":[]})");
}

TEST(Fields, AChoiceOutsideItsEnumerationIsLeftOut) {
  Sample sample;
  for (const int choice : {-1, 2, 2147483647, -2147483647 - 1}) {
    sample.choice = choice;
    EXPECT_EQ(written(sample), R"({"flag_key":false,"texts_key":[],"items_key":[]})") << choice;
  }
}

TEST(Fields, AreFoundByPropertyAndByKey) {
  const JXFieldTable& table = Sample::fields();
  EXPECT_EQ(table.fields().size(), 9u);
  EXPECT_EQ(table.findProperty("number"), 1u);
  EXPECT_EQ(table.findKey("number_key"), 1u);
  EXPECT_EQ(table.findProperty("number_key"), JXFieldTable::npos);
  EXPECT_EQ(table.findKey(""), JXFieldTable::npos);
}

TEST(Fields, TellTheirKinds) {
  const std::vector<JXFieldKind> expected = {
      JXFieldKind::String,      JXFieldKind::Number,          JXFieldKind::Boolean,
      JXFieldKind::Strings,     JXFieldKind::NumberedStrings, JXFieldKind::Values,
      JXFieldKind::Enumeration, JXFieldKind::Items,           JXFieldKind::Product};
  std::vector<JXFieldKind> found;
  for (const JXFieldInfo& field : Sample::fields().fields())
    found.push_back(field.kind);
  EXPECT_EQ(found, expected);
  EXPECT_EQ(Sample::fields().fields()[6].enumStrings.count, 2u);
  EXPECT_EQ(Sample::fields().fields()[0].enumStrings.count, 0u);
}

TEST(Fields, AbsentOnesAreNeitherPresentNorUsable) {
  const Sample sample;
  for (const char* property :
       {"text", "number", "texts", "numbered", "values", "choice", "items", "product"}) {
    EXPECT_FALSE(state(sample, property).isPresent) << property;
    EXPECT_FALSE(state(sample, property).isNonEmptyString) << property;
    EXPECT_FALSE(state(sample, property).hasEntries) << property;
  }
  EXPECT_TRUE(state(sample, "flag").isPresent) << "a flag always is";
}

TEST(Fields, EmptyOnesArePresentButNotUsable) {
  Sample sample;
  sample.text = "";
  sample.number = JXDecimal();
  sample.texts = JXList<JXString>();
  sample.numbered = JXList<JXString>();
  sample.values = JXJsonArray();
  sample.items = JXList<std::shared_ptr<JXItem>>();
  sample.product = JXProduct::init();
  for (const char* property :
       {"text", "number", "texts", "numbered", "values", "items", "product"}) {
    EXPECT_TRUE(state(sample, property).isPresent) << property;
    EXPECT_FALSE(state(sample, property).isNonEmptyString) << property;
    EXPECT_FALSE(state(sample, property).hasEntries) << property;
  }
  sample.text = "t";
  EXPECT_TRUE(state(sample, "text").isNonEmptyString);
  sample.texts.append("t");
  EXPECT_TRUE(state(sample, "texts").hasEntries);
}

TEST(Fields, AreReadFromJson) {
  Sample sample;
  EXPECT_EQ(set(sample, "text", R"("t")"), "");
  EXPECT_EQ(set(sample, "number", "1e2"), "");
  EXPECT_EQ(set(sample, "flag", "true"), "");
  EXPECT_EQ(set(sample, "texts", R"(["a",null])"), "");
  EXPECT_EQ(set(sample, "numbered", R"(["n"])"), "");
  EXPECT_EQ(set(sample, "values", R"([{"deep":1.50}])"), "");
  EXPECT_EQ(set(sample, "choice", R"("FIRST")"), "");
  EXPECT_EQ(set(sample, "items", R"([{"ID":"1","quantity":"2","parameters":{"gift":true}}])"), "");
  EXPECT_EQ(set(sample, "product", R"({"name":"LANTERN","price":3.39,"categories":["home"]})"), "");
  EXPECT_EQ(written(sample),
            R"({"text_key":"t","number_key":100,"flag_key":true,"texts_key":["a"],)"
            R"("numbered_1":"n","values_key":[{"deep":1.50}],"choice_key":"first text",)"
            R"("items_key":[{"gift":true,"id":"1","quantity":2,"product":{"colors":[]}}],)"
            R"("product_key":{"name":"LANTERN","price":3.39,"category_1":"home","colors":[]}})");
}

TEST(Fields, NullSetsThemToAbsent) {
  Sample sample;
  sample.text = "t";
  sample.number = JXDecimal(1);
  sample.texts = {"a"};
  sample.numbered = {"a"};
  sample.values = JXJsonArray();
  sample.items = {JXItem::init()};
  sample.product = JXProduct::init();
  for (const char* property :
       {"text", "number", "texts", "numbered", "values", "items", "product"}) {
    EXPECT_EQ(set(sample, property, "null"), "") << property;
    EXPECT_FALSE(state(sample, property).isPresent) << property;
  }
  EXPECT_NE(set(sample, "flag", "null"), "") << "a flag cannot be absent";
  EXPECT_NE(set(sample, "choice", "null"), "");
}

TEST(Fields, ANullProductInAnItemIsNoneAndAnUnnamedOneIsEmpty) {
  Sample sample;
  ASSERT_EQ(set(sample, "items", R"([{"product":null},{}])"), "");
  EXPECT_EQ(written(sample),
            R"({"flag_key":false,"texts_key":[],"items_key":[{},{"product":{"colors":[]}}]})");
}

TEST(Fields, AWrongValueIsNamedAndChangesNothing) {
  Sample sample;
  sample.text = "kept";
  sample.number = JXDecimal(7);
  sample.texts = {"kept"};
  sample.choice = 0;
  const std::string before = written(sample);
  EXPECT_NE(set(sample, "text", "1"), "");
  EXPECT_NE(set(sample, "number", R"("abc")"), "");
  EXPECT_NE(set(sample, "number", R"("")"), "");
  EXPECT_NE(set(sample, "number", "true"), "");
  EXPECT_NE(set(sample, "flag", R"("true")"), "");
  EXPECT_NE(set(sample, "flag", "1"), "");
  EXPECT_NE(set(sample, "texts", R"(["a",1])"), "");
  EXPECT_NE(set(sample, "texts", R"("a")"), "");
  EXPECT_NE(set(sample, "values", "{}"), "");
  EXPECT_NE(set(sample, "choice", R"("THIRD")"), "");
  EXPECT_NE(set(sample, "choice", R"("first text")"), "") << "the member's name is asked for";
  EXPECT_NE(set(sample, "choice", "0"), "");
  EXPECT_NE(set(sample, "items", R"([{"colour":"red"}])"), "");
  EXPECT_NE(set(sample, "items", R"([1])"), "");
  EXPECT_NE(set(sample, "product", R"({"price":"free"})"), "");
  EXPECT_NE(set(sample, "product", R"({"parameters":1})"), "");
  EXPECT_EQ(written(sample), before);
}

TEST(Fields, TheTextOfAnEnumerationIsNeverReadOutOfBounds) {
  const JXEnumStrings table{kTexts, kMembers};
  EXPECT_EQ(table.stringOf(0), JXString("first text"));
  EXPECT_EQ(table.stringOf(1), JXString("second text"));
  EXPECT_FALSE(table.stringOf(2).isPresent());
  EXPECT_FALSE(table.stringOf(-1).isPresent());
  EXPECT_FALSE(JXEnumStrings().stringOf(0).isPresent());
}

}  // namespace
}  // namespace jx::test
