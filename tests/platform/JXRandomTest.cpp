// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXRandom.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

namespace jx {
namespace {

constexpr std::size_t kUuidLength = 36;

bool isVersion4(std::string_view text) {
  if (text.size() != kUuidLength) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isHyphen = i == 8 || i == 13 || i == 18 || i == 23;
    const bool isHex = (text[i] >= '0' && text[i] <= '9') || (text[i] >= 'A' && text[i] <= 'F');
    if (isHyphen ? text[i] != '-' : !isHex) return false;
  }
  return text[14] == '4' && std::string_view("89AB").find(text[19]) != std::string_view::npos;
}

TEST(UUID, SetsVersionAndVariant) {
  EXPECT_EQ(randomUUIDString({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}),
            JXString("00000000-0000-4000-8000-000000000000"));
  EXPECT_EQ(randomUUIDString(
                {255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255}),
            JXString("FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF"));
  EXPECT_EQ(randomUUIDString({0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0x01, 0x23, 0x45,
                              0x67, 0x89, 0xAB, 0xCD, 0xEF}),
            JXString("01234567-89AB-4DEF-8123-456789ABCDEF"));
}

TEST(UUID, ReturnsWellFormedUniqueValues) {
  std::unordered_set<std::string> seen;
  for (int i = 0; i < 100000; ++i) {
    const JXString uuid = makeRandomUUID();
    ASSERT_TRUE(isVersion4(uuid.view())) << uuid;
    ASSERT_TRUE(seen.insert(uuid.toStdString()).second) << uuid;
  }
}

TEST(UUID, ReturnsUniqueValuesOnAllThreads) {
  std::vector<std::vector<std::string>> created(4);
  std::vector<std::thread> threads;
  for (auto& list : created) {
    threads.emplace_back([&list] {
      for (int i = 0; i < 5000; ++i)
        list.push_back(makeRandomUUID().toStdString());
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  std::unordered_set<std::string> seen;
  for (const auto& list : created)
    seen.insert(list.begin(), list.end());
  EXPECT_EQ(seen.size(), 20000U);
}

// Returns UUIDs that a child of this process creates, read from a pipe.
std::vector<std::string> uuidsOfChild(int count, int depth) {
  int ends[2];
  if (::pipe(ends) != 0) return {};
  pid_t child = ::fork();
  if (child == 0) {
    // Only the last descendant writes; the others create no UUIDs.
    for (int level = 1; level < depth; ++level) {
      const pid_t next = ::fork();
      if (next == 0) continue;
      ::waitpid(next, nullptr, 0);
      ::_exit(0);
    }
    for (int i = 0; i < count; ++i) {
      const JXString uuid = makeRandomUUID();
      if (::write(ends[1], uuid.c_str(), kUuidLength) != ssize_t{kUuidLength}) ::_exit(1);
    }
    ::_exit(0);
  }
  ::close(ends[1]);
  std::vector<std::string> uuids;
  std::array<char, kUuidLength> text{};
  while (::read(ends[0], text.data(), text.size()) == ssize_t{kUuidLength}) {
    uuids.emplace_back(text.data(), text.size());
  }
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  return uuids;
}

TEST(UUID, ReturnsUniqueValuesInAForkedChild) {
  makeRandomUUID();  // fills the buffer of the parent
  std::set<std::string> seen;
  const auto first = uuidsOfChild(100, 1);
  const auto second = uuidsOfChild(100, 1);
  const auto grandchild = uuidsOfChild(100, 2);
  seen.insert(first.begin(), first.end());
  seen.insert(second.begin(), second.end());
  seen.insert(grandchild.begin(), grandchild.end());
  for (int i = 0; i < 100; ++i)
    seen.insert(makeRandomUUID().toStdString());
  EXPECT_EQ(seen.size(), 400U);
}

TEST(Random, SetsAndClearsEveryBit) {
  std::uint32_t everSet = 0;
  std::uint32_t alwaysSet = 0xFFFFFFFFU;
  for (int i = 0; i < 1000; ++i) {
    const std::uint32_t bits = drawRandomBits();
    everSet |= bits;
    alwaysSet &= bits;
  }
  EXPECT_EQ(everSet, 0xFFFFFFFFU);
  EXPECT_EQ(alwaysSet, 0U);
}

TEST(Random, FillsRequestsLargerThanTheBuffer) {
  std::vector<std::uint8_t> bytes(5000, 0);
  fillRandom(bytes.data(), bytes.size());
  EXPECT_LT(std::count(bytes.begin(), bytes.end(), 0), 200);
  EXPECT_FALSE(std::equal(bytes.begin(), bytes.begin() + 1024, bytes.begin() + 1024));
}

bool fails(std::uint8_t* bytes, std::size_t) {
  bytes[0] = 1;
  return false;
}
bool fillsSevens(std::uint8_t* bytes, std::size_t count) {
  std::fill_n(bytes, count, std::uint8_t{7});
  return true;
}
bool mustNotBeCalled(std::uint8_t*, std::size_t) { std::abort(); }

TEST(Random, UsesTheFirstSourceThatSucceeds) {
  const JXRandomSource sources[] = {fails, fillsSevens, mustNotBeCalled};
  std::array<std::uint8_t, 5> bytes{};
  fillFromFirst(sources, 3, bytes.data(), bytes.size());
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 5>{7, 7, 7, 7, 7}));
}

TEST(Random, ReturnsDifferentBytesWithoutAnySource) {
  const JXRandomSource sources[] = {fails};
  std::set<std::array<std::uint8_t, 16>> seen;
  for (int i = 0; i < 10000; ++i) {
    std::array<std::uint8_t, 16> bytes{};
    fillFromFirst(sources, 1, bytes.data(), bytes.size());
    seen.insert(bytes);
  }
  EXPECT_EQ(seen.size(), 10000U);
}

}  // namespace
}  // namespace jx
