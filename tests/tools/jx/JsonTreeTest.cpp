// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/JsonTree.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using Problem = JsonTree::Problem;
using Kind = JsonNode::Kind;

TEST(JsonTree, KeepsTheDigitsOfNumbers) {
  const JsonTree tree = JsonTree::read("[12.50,1e300,-0,123456789012345678901234567890]");
  ASSERT_EQ(tree.problem(), Problem::None);
  EXPECT_EQ(tree.node(1).text, "12.50");
  EXPECT_EQ(tree.node(2).text, "1e300");
  EXPECT_EQ(tree.node(3).text, "-0");
  EXPECT_EQ(tree.node(4).text, "123456789012345678901234567890");
}

TEST(JsonTree, FindsTheLastValueOfADuplicateKey) {
  const JsonTree tree = JsonTree::read(R"({"a":{"b":1},"b":2,"a":"last"})");
  const auto found = tree.find(0, "a");
  ASSERT_TRUE(found);
  EXPECT_EQ(tree.node(*found).kind, Kind::String);
  EXPECT_EQ(tree.node(*found).text, "last");
  EXPECT_FALSE(tree.find(0, "c"));
  EXPECT_FALSE(tree.find(*found, "a"));
  EXPECT_EQ(tree.sizeOf(0), 3u);
}

TEST(JsonTree, ReturnsThePathOfAValue) {
  const JsonTree tree =
      JsonTree::read(R"({"items":[{},{"product":{"name":1,"two words":2,"a\"b":3}}]})");
  const auto product = tree.find(3, "product");
  ASSERT_TRUE(product);
  EXPECT_EQ(tree.pathOf(0), "");
  EXPECT_EQ(tree.pathOf(3), "items[1]");
  EXPECT_EQ(tree.pathOf(*product + 1), "items[1].product.name");
  EXPECT_EQ(tree.pathOf(*product + 2), "items[1].product[\"two words\"]");
  EXPECT_EQ(tree.pathOf(*product + 3), "items[1].product[\"a\\\"b\"]");
  EXPECT_EQ(tree.pathOf(*product, "id"), "items[1].product.id");
  EXPECT_EQ(tree.pathOf(0, "items"), "items");
}

TEST(JsonTree, ShortensPathsOfLongKeys) {
  std::string text;
  for (int i = 0; i < 20; ++i)
    text += "{\"" + std::string(500, 'k') + "\":";
  text += "1" + std::string(20, '}');
  const JsonTree tree = JsonTree::read(text);
  ASSERT_EQ(tree.problem(), Problem::None);
  const std::string path = tree.pathOf(20);
  EXPECT_LT(path.size(), 1500u);
  EXPECT_EQ(path.substr(path.size() - 3), "...");
}

TEST(JsonTree, RejectsInvalidJson) {
  EXPECT_EQ(JsonTree::read("").problem(), Problem::NotJson);
  EXPECT_EQ(JsonTree::read("{} {}").problem(), Problem::NotJson);
  EXPECT_EQ(JsonTree::read(std::string("{}\0", 3)).problem(), Problem::NotJson);
  EXPECT_EQ(JsonTree::read("{\"a\":\"\xFF\"}").problem(), Problem::NotUtf8);
  EXPECT_TRUE(JsonTree::read("[1,2").nodes().empty());
}

// The library writes numbers of any size without rounding.
TEST(JsonTree, KeepsTheDigitsOfNumbersOutsideTheRangeOfADouble) {
  const std::string nines(400, '9');
  const JsonTree tree =
      JsonTree::read("[1e400,\"1e400 \\\"9\",1.5e2,7,-" + nines + ",{\"1e400\":-1E+400}]");
  ASSERT_EQ(tree.problem(), Problem::None);
  EXPECT_EQ(tree.node(1).text, "1e400");
  EXPECT_EQ(tree.node(2).text, "1e400 \"9");
  EXPECT_EQ(tree.node(3).text, "1.5e2");
  EXPECT_EQ(tree.node(4).text, "7");
  EXPECT_EQ(tree.node(5).text, "-" + nines);
  EXPECT_EQ(tree.node(7).key, "1e400");
  EXPECT_EQ(tree.node(7).text, "-1E+400");
  EXPECT_EQ(tree.pathOf(7), "[5].1e400");
}

TEST(JsonTree, RejectsInvalidJsonThatContainsLargeNumbers) {
  for (const char* text :
       {"[1e400", "[1e400,01]", "[1e400,1e]", "[1e400,-]", "[1e400,1.e400]", "[1e400,\"open]",
        "[1e400] 1", "[01e400]", "[1e400,+1]", "[1e400,\"\\"}) {
    EXPECT_EQ(JsonTree::read(text).problem(), Problem::NotJson) << text;
  }
  EXPECT_EQ(JsonTree::read("[1e400,2,3]", 3).problem(), Problem::TooMany);
}

TEST(JsonTree, LimitsDepthAndNumberOfValues) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
  };
  EXPECT_EQ(JsonTree::read(nested(1000)).problem(), Problem::None);
  EXPECT_EQ(JsonTree::read(nested(1001)).problem(), Problem::TooDeep);
  EXPECT_EQ(JsonTree::read("[1,2]", 3).problem(), Problem::None);
  EXPECT_EQ(JsonTree::read("[1,2,3]", 3).problem(), Problem::TooMany);
}

}  // namespace
}  // namespace jx
