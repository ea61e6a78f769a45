// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The field table of a class with one field of each type.

#include "jx/catalogue/JXFieldTable.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace jx::test {
namespace {

constexpr std::array<std::string_view, 2> kStrings{"first string", "second string"};
constexpr std::array<std::string_view, 2> kEnumerators{"FIRST", "SECOND"};

struct Sample : JXAdditionalProperties {
  JXString string;
  std::optional<JXDecimal> number;
  bool boolean = false;
  JXList<JXString> strings = nullptr;
  JXList<JXString> numbered = nullptr;
  JXJsonArray values = nullptr;
  int enumeration = -1;
  JXList<std::shared_ptr<JXItem>> items = nullptr;
  std::shared_ptr<JXProduct> product;

  static const JXFieldTable& fields() {
    static const JXFieldTable table{
        {"string_key", "string", &Sample::string},
        {"number_key", "number", &Sample::number},
        {"boolean_key", "boolean", &Sample::boolean},
        {"strings_key", "strings", &Sample::strings},
        {"numbered_", "numbered", JXNumberedStrings<Sample>{&Sample::numbered}},
        {"values_key", "values", &Sample::values},
        {"enumeration_key", "enumeration",
         JXEnumField<Sample>{&Sample::enumeration, {kStrings, kEnumerators}}},
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

// Returns the value of the property as JSON in an array; "[]" if it is absent.
std::string get(const Sample& sample, std::string_view property) {
  const JXFieldTable& table = Sample::fields();
  JXJsonObject wrapper;
  wrapper.set("v", JXJsonArray({table.get(sample, table.findProperty(property))}));
  return JXJsonWriter::write(wrapper, JXJsonStyle::Compact).text.substr(sizeof(R"({"v":)") - 1);
}

JXFieldState state(const Sample& sample, std::string_view property) {
  const JXFieldTable& table = Sample::fields();
  return table.state(sample, table.findProperty(property));
}

TEST(Fields, WriteOnlyBooleansAndEmptyListsByDefault) {
  EXPECT_EQ(written(Sample()), R"({"boolean_key":false,"strings_key":[],"items_key":[]})");
}

TEST(Fields, WriteInTableOrder) {
  Sample sample;
  sample.string = "t";
  sample.number = JXDecimal::fromString("12.50");
  sample.boolean = true;
  sample.strings = {"a", nullptr, ""};
  sample.numbered = {"x", nullptr, "z"};
  sample.values = json(R"([1,"two",null])").array();
  sample.enumeration = 1;
  sample.items = JXList<std::shared_ptr<JXItem>>();
  sample.product = JXProduct::init();
  EXPECT_EQ(written(sample),
            R"({"string_key":"t","number_key":12.50,"boolean_key":true,"strings_key":["a",""],)"
            R"("numbered_1":"x","numbered_3":"z","values_key":[1,"two",null],)"
            R"("enumeration_key":"second string","items_key":[],"product_key":{"colors":[]}})");
}

TEST(Fields, KeepTheExistingValueForANullField) {
  JXJsonObject dict;
  dict.set("string_key", "extra");
  dict.set("boolean_key", "extra");
  EXPECT_EQ(written(Sample(), dict),
            R"({"string_key":"extra","boolean_key":false,"strings_key":[],"items_key":[]})");
}

TEST(Fields, OmitNaN) {
  Sample sample;
  sample.number = JXDecimal::nan();
  EXPECT_EQ(written(sample), R"({"boolean_key":false,"strings_key":[],"items_key":[]})");
}

TEST(Fields, OmitAnUnknownEnumerationValue) {
  Sample sample;
  for (const int value : {-1, 2, 2147483647, -2147483647 - 1}) {
    sample.enumeration = value;
    EXPECT_EQ(written(sample), R"({"boolean_key":false,"strings_key":[],"items_key":[]})") << value;
  }
}

TEST(Fields, FindFieldsByPropertyAndByKey) {
  const JXFieldTable& table = Sample::fields();
  EXPECT_EQ(table.fields().size(), 9u);
  EXPECT_EQ(table.findProperty("number"), 1u);
  EXPECT_EQ(table.findKey("number_key"), 1u);
  EXPECT_EQ(table.findProperty("number_key"), JXFieldTable::npos);
  EXPECT_EQ(table.findKey(""), JXFieldTable::npos);
}

TEST(Fields, ReportTheirKinds) {
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

TEST(Fields, ReportNullFieldsAsNotPresent) {
  const Sample sample;
  for (const char* property :
       {"string", "number", "strings", "numbered", "values", "enumeration", "items", "product"}) {
    EXPECT_FALSE(state(sample, property).isPresent) << property;
    EXPECT_FALSE(state(sample, property).isNonEmptyString) << property;
    EXPECT_FALSE(state(sample, property).hasEntries) << property;
  }
  EXPECT_TRUE(state(sample, "boolean").isPresent) << "a Boolean is always present";
}

TEST(Fields, ReportEmptyFieldsAsPresentButEmpty) {
  Sample sample;
  sample.string = "";
  sample.number = JXDecimal();
  sample.strings = JXList<JXString>();
  sample.numbered = JXList<JXString>();
  sample.values = JXJsonArray();
  sample.items = JXList<std::shared_ptr<JXItem>>();
  sample.product = JXProduct::init();
  for (const char* property :
       {"string", "number", "strings", "numbered", "values", "items", "product"}) {
    EXPECT_TRUE(state(sample, property).isPresent) << property;
    EXPECT_FALSE(state(sample, property).isNonEmptyString) << property;
    EXPECT_FALSE(state(sample, property).hasEntries) << property;
  }
  sample.string = "t";
  EXPECT_TRUE(state(sample, "string").isNonEmptyString);
  sample.strings.append("t");
  EXPECT_TRUE(state(sample, "strings").hasEntries);
}

TEST(Fields, ReadValuesFromJson) {
  Sample sample;
  EXPECT_EQ(set(sample, "string", R"("t")"), "");
  EXPECT_EQ(set(sample, "number", "1e2"), "");
  EXPECT_EQ(set(sample, "boolean", "true"), "");
  EXPECT_EQ(set(sample, "strings", R"(["a",null])"), "");
  EXPECT_EQ(set(sample, "numbered", R"(["n"])"), "");
  EXPECT_EQ(set(sample, "values", R"([{"deep":1.50}])"), "");
  EXPECT_EQ(set(sample, "enumeration", R"("FIRST")"), "");
  EXPECT_EQ(set(sample, "items", R"([{"ID":"1","quantity":"2","parameters":{"gift":true}}])"), "");
  EXPECT_EQ(set(sample, "product", R"({"name":"LANTERN","price":3.39,"categories":["home"]})"), "");
  EXPECT_EQ(written(sample),
            R"({"string_key":"t","number_key":100,"boolean_key":true,"strings_key":["a"],)"
            R"("numbered_1":"n","values_key":[{"deep":1.50}],"enumeration_key":"first string",)"
            R"("items_key":[{"gift":true,"id":"1","quantity":2,"product":{"colors":[]}}],)"
            R"("product_key":{"name":"LANTERN","price":3.39,"category_1":"home","colors":[]}})");
}

TEST(Fields, GetValuesInTheFormThatSetAccepts) {
  const std::pair<const char*, const char*> values[] = {
      {"string", R"("t")"},
      {"string", R"("")"},
      {"number", "12.50"},
      {"boolean", "true"},
      {"boolean", "false"},
      {"strings", R"(["a",null,""])"},
      {"strings", "[]"},
      {"numbered", R"(["n"])"},
      {"values", R"([{"deep":1.50},null])"},
      {"enumeration", R"("SECOND")"},
      {"items", R"([{"ID":"1","quantity":2,"product":null,"parameters":{"gift":true}},null])"},
      {"product", R"({"name":"LANTERN","categories":null,"colors":["red"]})"},
  };
  for (const auto& [property, value] : values) {
    Sample sample;
    ASSERT_EQ(set(sample, property, value), "") << property;
    EXPECT_EQ(get(sample, property), '[' + std::string(value) + "]}");
  }
}

TEST(Fields, GetNoValueForNullFields) {
  Sample sample;
  for (const char* property :
       {"string", "number", "strings", "numbered", "values", "enumeration", "items", "product"})
    EXPECT_EQ(get(sample, property), "[]}") << property;
  sample.number = JXDecimal::nan();
  EXPECT_EQ(get(sample, "number"), "[]}");
}

TEST(Fields, GetCopiesOfLists) {
  Sample sample;
  sample.values = JXJsonArray({1});
  const JXFieldTable& table = Sample::fields();
  table.get(sample, table.findProperty("values")).array().append(2);
  EXPECT_EQ(sample.values.size(), 1u);
}

TEST(Fields, SetFieldsToNullFromJsonNull) {
  Sample sample;
  sample.string = "t";
  sample.number = JXDecimal(1);
  sample.strings = {"a"};
  sample.numbered = {"a"};
  sample.values = JXJsonArray();
  sample.items = {JXItem::init()};
  sample.product = JXProduct::init();
  for (const char* property :
       {"string", "number", "strings", "numbered", "values", "items", "product"}) {
    EXPECT_EQ(set(sample, property, "null"), "") << property;
    EXPECT_FALSE(state(sample, property).isPresent) << property;
  }
  EXPECT_NE(set(sample, "boolean", "null"), "") << "a Boolean cannot be null";
  EXPECT_NE(set(sample, "enumeration", "null"), "");
}

TEST(Fields, ReadANullProductAsNullAndAMissingOneAsEmpty) {
  Sample sample;
  ASSERT_EQ(set(sample, "items", R"([{"product":null},{}])"), "");
  EXPECT_EQ(written(sample),
            R"({"boolean_key":false,"strings_key":[],"items_key":[{},{"product":{"colors":[]}}]})");
}

TEST(Fields, RejectInvalidValuesWithoutChangingTheObject) {
  Sample sample;
  sample.string = "kept";
  sample.number = JXDecimal(7);
  sample.strings = {"kept"};
  sample.enumeration = 0;
  const std::string before = written(sample);
  EXPECT_NE(set(sample, "string", "1"), "");
  EXPECT_NE(set(sample, "number", R"("abc")"), "");
  EXPECT_NE(set(sample, "number", R"("")"), "");
  EXPECT_NE(set(sample, "number", "true"), "");
  EXPECT_NE(set(sample, "boolean", R"("true")"), "");
  EXPECT_NE(set(sample, "boolean", "1"), "");
  EXPECT_NE(set(sample, "strings", R"(["a",1])"), "");
  EXPECT_NE(set(sample, "strings", R"("a")"), "");
  EXPECT_NE(set(sample, "values", "{}"), "");
  EXPECT_NE(set(sample, "enumeration", R"("THIRD")"), "");
  EXPECT_NE(set(sample, "enumeration", R"("first string")"), "")
      << "only the enumerator's name is accepted";
  EXPECT_NE(set(sample, "enumeration", "0"), "");
  EXPECT_NE(set(sample, "items", R"([{"colour":"red"}])"), "");
  EXPECT_NE(set(sample, "items", R"([1])"), "");
  EXPECT_NE(set(sample, "product", R"({"price":"free"})"), "");
  EXPECT_NE(set(sample, "product", R"({"parameters":1})"), "");
  EXPECT_EQ(written(sample), before);
}

TEST(Fields, ReturnNullStringsOutsideTheEnumeration) {
  const JXEnumStrings table{kStrings, kEnumerators};
  EXPECT_EQ(table.stringOf(0), JXString("first string"));
  EXPECT_EQ(table.stringOf(1), JXString("second string"));
  EXPECT_FALSE(table.stringOf(2).isPresent());
  EXPECT_FALSE(table.stringOf(-1).isPresent());
  EXPECT_FALSE(JXEnumStrings().stringOf(0).isPresent());
  EXPECT_EQ(table.enumeratorOf(1), JXString("SECOND"));
  EXPECT_FALSE(table.enumeratorOf(2).isPresent());
  EXPECT_FALSE(table.enumeratorOf(-1).isPresent());
}

}  // namespace
}  // namespace jx::test
