// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXBlockClass.h"

#include <gtest/gtest.h>

#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/core/json/JXJsonWriter.h"

namespace jx::test {
namespace {

// A base class and a class that derives from it.
struct Animal : JXAdditionalProperties {
  JXString name;

  static const JXBlockClass& blockClass() {
    static const JXFieldTable fields{{"animal_name", "name", &Animal::name}};
    static const JXBlockClass type{"Animal", nullptr, &fields, {neverValid()}};
    return type;
  }
};

struct Cat : Animal {
  std::optional<JXDecimal> lives;
  JXString owner;
  JXList<JXString> kittens;
  JXString secret;

  static const JXBlockClass& blockClass() {
    static const JXFieldTable fields{
        {"lives", "lives", &Cat::lives},
        {"owner_name", "owner", &Cat::owner},
        {"kitten_", "kittens", JXNumberedStrings<Cat>{&Cat::kittens}},
    };
    static const JXFieldTable unwritten{{"secret", "secret", &Cat::secret}};
    static const JXBlockClass type{"Cat",
                                   &Animal::blockClass(),
                                   &fields,
                                   {onlyFor(nonEmptyList("kitten_"), {"birth"}),
                                    nonEmptyString("animal_name"), together("lives", "owner_name")},
                                   &unwritten};
    return type;
  }
};

std::string written(const Cat& cat, const JXBlockClass* excluded = nullptr) {
  JXJsonObject json;
  JXJsonTreeSink sink(json);
  Cat::blockClass().writeFields(cat, sink, excluded);
  return JXJsonWriter::write(json, JXJsonStyle::Compact).text;
}

std::string failed(const Cat& cat, std::string_view eventName = {}) {
  const JXCondition* const condition = Cat::blockClass().firstFailed(cat, eventName);
  return condition != nullptr ? Cat::blockClass().describe(*condition) : "";
}

TEST(BlockClass, DerivesFromItselfAndItsBases) {
  EXPECT_TRUE(Cat::blockClass().isOrDerivesFrom("Cat"));
  EXPECT_TRUE(Cat::blockClass().isOrDerivesFrom("Animal"));
  EXPECT_FALSE(Cat::blockClass().isOrDerivesFrom("Dog"));
  EXPECT_FALSE(Animal::blockClass().isOrDerivesFrom("Cat"));
}

TEST(BlockClass, FindsFieldsOfTheClassAndItsBases) {
  const JXBlockClass& type = Cat::blockClass();
  ASSERT_NE(type.fieldOfKey("owner_name"), nullptr);
  EXPECT_EQ(type.fieldOfKey("owner_name")->property, "owner");
  ASSERT_NE(type.fieldOfKey("animal_name"), nullptr);
  EXPECT_EQ(type.fieldOfKey("owner"), nullptr) << "a property is not a key";
  ASSERT_NE(type.fieldOfProperty("name"), nullptr);
  EXPECT_EQ(type.fieldOfProperty("name")->key, "animal_name");
  EXPECT_EQ(type.fieldOfProperty("animal_name"), nullptr) << "a key is not a property";
}

TEST(BlockClass, FindsUnwrittenFieldsOnlyByProperty) {
  const JXBlockClass& type = Cat::blockClass();
  EXPECT_NE(type.fieldOfProperty("secret"), nullptr);
  EXPECT_EQ(type.fieldOfKey("secret"), nullptr);
  EXPECT_EQ(type.fieldWriting("secret"), nullptr);
}

TEST(BlockClass, FindsTheFieldThatWritesANumberedKey) {
  const JXBlockClass& type = Cat::blockClass();
  for (const char* key : {"kitten_1", "kitten_9", "kitten_12"}) {
    ASSERT_NE(type.fieldWriting(key), nullptr) << key;
    EXPECT_EQ(type.fieldWriting(key)->property, "kittens");
  }
  for (const char* key : {"kitten_", "kitten_0", "kitten_01", "kitten_x", "kitten_1x", "kitten"})
    EXPECT_EQ(type.fieldWriting(key), nullptr) << key;
}

TEST(BlockClass, SetsPropertiesOfTheClassAndItsBases) {
  Cat cat;
  const JXBlockClass& type = Cat::blockClass();
  EXPECT_EQ(type.setProperty(cat, "lives", 9), "");
  EXPECT_EQ(type.setProperty(cat, "name", "Tom"), "");
  EXPECT_EQ(type.setProperty(cat, "secret", "fish"), "");
  EXPECT_EQ(cat.lives, JXDecimal(9));
  EXPECT_EQ(cat.name, JXString("Tom"));
  EXPECT_EQ(cat.secret, JXString("fish"));
  EXPECT_EQ(type.setProperty(cat, "lives", true), "must be a decimal number");
  EXPECT_EQ(type.setProperty(cat, "tail", 1), "is not a field of Cat");
  EXPECT_EQ(cat.lives, JXDecimal(9));
}

TEST(BlockClass, WritesBasesFirst) {
  Cat cat;
  cat.name = "Tom";
  cat.lives = JXDecimal(9);
  cat.secret = "fish";
  cat.kittens = {"Tim", "Tam"};
  EXPECT_EQ(written(cat), R"({"animal_name":"Tom","lives":9,"kitten_1":"Tim","kitten_2":"Tam"})");
  EXPECT_EQ(written(cat, &Animal::blockClass()),
            R"({"lives":9,"kitten_1":"Tim","kitten_2":"Tam"})");
  EXPECT_EQ(written(cat, &Cat::blockClass()), "{}");
}

TEST(BlockClass, ReturnsTheFirstFailedConditionThatApplies) {
  Cat cat;
  EXPECT_EQ(failed(cat, "birth"), "kittens must contain at least one element");
  EXPECT_EQ(failed(cat), "name must be a non-empty string");
  cat.name = "";
  EXPECT_EQ(failed(cat), "name must be a non-empty string");
  cat.name = "Tom";
  EXPECT_EQ(failed(cat), "");
  cat.lives = JXDecimal(0);
  EXPECT_EQ(failed(cat), "lives and owner must be set together");
  cat.owner = "Eve";
  EXPECT_EQ(failed(cat), "");
  cat.lives = JXDecimal::nan();
  EXPECT_EQ(failed(cat), "lives and owner must be set together") << "NaN counts as null";
  cat.kittens.append("Tim");
  cat.lives = std::nullopt;
  cat.owner = nullptr;
  EXPECT_EQ(failed(cat, "birth"), "");
}

TEST(BlockClass, DoesNotInheritConditions) {
  Cat cat;
  cat.name = "Tom";
  EXPECT_EQ(Cat::blockClass().firstFailed(cat), nullptr);
  EXPECT_NE(Animal::blockClass().firstFailed(cat), nullptr);
}

TEST(BlockClass, DescribesEachKindOfCondition) {
  const JXBlockClass& type = Cat::blockClass();
  EXPECT_EQ(type.describe(neverValid()), "Cat is a base class and never passes validation");
  EXPECT_EQ(type.describe(nonEmptyString("owner_name")), "owner must be a non-empty string");
  EXPECT_EQ(type.describe(present("lives")), "lives must be set");
  EXPECT_EQ(type.describe(present("lives"), "`"), "`lives` must be set");
  EXPECT_EQ(type.describe(nonEmptyList("kitten_")), "kittens must contain at least one element");
  EXPECT_EQ(type.describe(together("lives", "owner_name"), "`"),
            "`lives` and `owner` must be set together");
  EXPECT_EQ(type.describe(present("tail")), "tail must be set") << "not a field";
}

TEST(FieldState, FollowsFromTheTypeAndSizeOfTheJson) {
  using Kind = JXJsonValue::Kind;
  const auto flags = [](Kind kind, std::size_t size) {
    const JXFieldState state = JXFieldState::ofJson(kind, size);
    return std::string(state.isPresent ? "present " : "") +
           (state.isNonEmptyString ? "string " : "") + (state.hasEntries ? "entries " : "");
  };
  EXPECT_EQ(flags(Kind::Absent, 0), "");
  EXPECT_EQ(flags(Kind::Null, 0), "");
  EXPECT_EQ(flags(Kind::Bool, 0), "present ");
  EXPECT_EQ(flags(Kind::Number, 3), "present ");
  EXPECT_EQ(flags(Kind::Object, 1), "present ");
  EXPECT_EQ(flags(Kind::String, 0), "present ");
  EXPECT_EQ(flags(Kind::String, 1), "present string ");
  EXPECT_EQ(flags(Kind::Array, 0), "present ");
  EXPECT_EQ(flags(Kind::Array, 1), "present entries ");
}

TEST(FieldTable, WritesAFieldThatIsListedTwiceOnce) {
  const JXFieldTable table{{"animal_name", "name", &Cat::name},
                           {"lives", "lives", &Cat::lives},
                           {"animal_name", "name", &Cat::name}};
  EXPECT_FALSE(table.fields()[0].isDuplicate);
  EXPECT_FALSE(table.fields()[1].isDuplicate);
  EXPECT_TRUE(table.fields()[2].isDuplicate);
}

TEST(FieldTable, MarksDuplicatesOfAnotherTable) {
  JXFieldTable table{{"lives", "lives", &Cat::lives}, {"animal_name", "name", &Cat::name}};
  table.markDuplicatesOf(*Animal::blockClass().written);
  EXPECT_FALSE(table.fields()[0].isDuplicate);
  EXPECT_TRUE(table.fields()[1].isDuplicate);
  Cat cat;
  cat.name = "Tom";
  cat.lives = JXDecimal(9);
  JXJsonObject json;
  JXJsonTreeSink sink(json);
  table.write(cat, sink);
  EXPECT_EQ(JXJsonWriter::write(json, JXJsonStyle::Compact).text, R"({"lives":9})");
}

}  // namespace
}  // namespace jx::test
