// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXString.h"

#include <gtest/gtest.h>

#include <atomic>
#include <sstream>
#include <string>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

namespace jx {
namespace {

const std::string kInline(38, 'a');  // the longest inline string
const std::string kShared(39, 'b');  // the shortest shared string

TEST(JXString, IsNullByDefaultAndForNullPointers) {
  const char* none = nullptr;
  EXPECT_FALSE(JXString().isPresent());
  EXPECT_FALSE(JXString(nullptr).isPresent());
  EXPECT_FALSE(JXString(none).isPresent());
  EXPECT_STREQ(JXString(none).c_str(), "");
  EXPECT_EQ(JXString().size(), 0U);
  EXPECT_TRUE(JXString().view().empty());
}

TEST(JXString, DistinguishesEmptyFromNull) {
  const JXString empty("");
  EXPECT_TRUE(empty.isPresent());
  EXPECT_FALSE(empty.testString());
  EXPECT_NE(empty, JXString());
  EXPECT_EQ(empty, JXString(std::string()));
  EXPECT_TRUE(JXString(std::string_view()).isPresent());
}

TEST(JXString, TestStringRequiresOneCharacter) {
  EXPECT_FALSE(JXString().testString());
  EXPECT_FALSE(JXString("").testString());
  EXPECT_TRUE(JXString(" ").testString());
  EXPECT_TRUE(JXString(std::string_view("\0", 1)).testString());
}

TEST(JXString, KeepsStringsOfAllLengthsAroundTheInlineCapacity) {
  for (const std::size_t length : {std::size_t{1}, std::size_t{37}, std::size_t{38},
                                   std::size_t{39}, std::size_t{40}, std::size_t{100000}}) {
    const std::string text(length, 'x');
    const JXString created(text);
    EXPECT_EQ(created.size(), length);
    EXPECT_EQ(created.toStdString(), text);
    EXPECT_EQ(std::string(created.c_str()), text);
  }
}

TEST(JXString, KeepsEmbeddedNuls) {
  const std::string shortText("a\0b", 3);
  const std::string longText = shortText + std::string(30, 'c');
  EXPECT_EQ(JXString(shortText).size(), 3U);
  EXPECT_EQ(JXString(shortText).toStdString(), shortText);
  EXPECT_EQ(JXString(longText).toStdString(), longText);
  EXPECT_NE(JXString(shortText), JXString("a"));
}

TEST(JXString, CopiesAreEqualAndIndependentOfTheOriginal) {
  for (const std::string& text : {kInline, kShared}) {
    JXString copy;
    {
      const JXString original(text);
      copy = original;
      const JXString second(original);
      EXPECT_EQ(second, original);
    }
    EXPECT_EQ(copy.toStdString(), text);
  }
}

TEST(JXString, SharesLongStringsBetweenCopies) {
  const JXString original(kShared);
  const JXString copy(original);
  EXPECT_EQ(copy.c_str(), original.c_str());
}

TEST(JXString, MoveLeavesTheSourceNull) {
  for (const std::string& text : {kInline, kShared}) {
    JXString source(text);
    JXString target(std::move(source));
    EXPECT_EQ(target.toStdString(), text);
    EXPECT_FALSE(source.isPresent());  // NOLINT(bugprone-use-after-move): the tested behaviour
    JXString assigned("old");
    assigned = std::move(target);
    EXPECT_EQ(assigned.toStdString(), text);
    EXPECT_FALSE(target.isPresent());  // NOLINT(bugprone-use-after-move)
  }
}

TEST(JXString, KeepsItsValueOnSelfAssignment) {
  for (const std::string& text : {kInline, kShared}) {
    JXString value(text);
    JXString& same = value;
    value = same;
    EXPECT_EQ(value.toStdString(), text);
    value = std::move(same);
    EXPECT_EQ(value.toStdString(), text);
  }
}

TEST(JXString, AssignsBetweenAllRepresentations) {
  const JXString kinds[] = {JXString(), JXString(""), JXString(kInline), JXString(kShared)};
  for (const JXString& before : kinds) {
    for (const JXString& after : kinds) {
      JXString value(before);
      value = after;
      EXPECT_EQ(value, after);
      EXPECT_EQ(value.isPresent(), after.isPresent());
    }
  }
}

TEST(JXString, ComparesBytes) {
  EXPECT_EQ(JXString(kShared), JXString(std::string(39, 'b')));
  EXPECT_NE(JXString(kShared), JXString(std::string(24, 'b')));
  EXPECT_NE(JXString("a"), JXString("A"));
}

TEST(JXString, PrintsTheStringOrAMarkerForNull) {
  std::ostringstream out;
  out << JXString("text") << '|' << JXString() << '|' << JXString("");
  EXPECT_EQ(out.str(), "text|(absent)|");
}

TEST(JXString, WorksAsAKeyOfUnorderedMaps) {
  std::unordered_map<JXString, int> numbers;
  numbers[JXString(kShared)] = 1;
  numbers[JXString(kInline)] = 2;
  EXPECT_EQ(numbers.at(JXString(std::string(39, 'b'))), 1);
  EXPECT_EQ(numbers.at(JXString(std::string(38, 'a'))), 2);
}

TEST(JXString, ReleasesASharedStringOnceOnManyThreads) {
  const JXString original(kShared);
  std::vector<std::thread> threads;
  std::atomic<int> wrong{0};
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&original, &wrong] {
      for (int i = 0; i < 10000; ++i) {
        JXString copy(original);
        const JXString moved(std::move(copy));
        if (moved.view() != kShared) ++wrong;
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(wrong.load(), 0);
  EXPECT_EQ(original.view(), kShared);
}

}  // namespace
}  // namespace jx
