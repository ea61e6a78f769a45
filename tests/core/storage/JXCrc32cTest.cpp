// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXCrc32c.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

namespace jx {
namespace {

std::uint32_t both(const std::string& bytes) {
  const std::uint32_t crc = crc32c(0, bytes.data(), bytes.size());
  EXPECT_EQ(crc32cPortable(0, bytes.data(), bytes.size()), crc);
  return crc;
}

TEST(Crc32c, ReturnsThePublishedCheckValues) {
  std::string ascending(32, '\0');
  std::iota(ascending.begin(), ascending.end(), '\0');
  const std::string descending(ascending.rbegin(), ascending.rend());

  EXPECT_EQ(both("123456789"), 0xE3069283u);
  EXPECT_EQ(both(""), 0u);
  EXPECT_EQ(both("a"), 0xC1D04330u);
  EXPECT_EQ(both(std::string(32, '\0')), 0x8A9136AAu);
  EXPECT_EQ(both(std::string(32, '\xFF')), 0x62A8AB43u);
  EXPECT_EQ(both(ascending), 0x46DD794Eu);
  EXPECT_EQ(both(descending), 0x113FDB5Cu);
}

TEST(Crc32c, PortableAndHardwareAgreeAtEveryLengthAndAlignment) {
  std::vector<unsigned char> bytes(2000);
  std::uint32_t state = 1;
  for (unsigned char& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<unsigned char>(state >> 24);
  }
  for (std::size_t from = 0; from < 9; ++from) {
    for (std::size_t length = 0; from + length <= bytes.size(); ++length) {
      ASSERT_EQ(crc32c(7, bytes.data() + from, length),
                crc32cPortable(7, bytes.data() + from, length))
          << from << " " << length;
    }
  }
}

TEST(Crc32c, ReturnsTheSameValueForPiecesAsForTheWhole) {
  const std::string whole = "123456789";
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    const std::uint32_t first = crc32c(0, whole.data(), cut);
    EXPECT_EQ(crc32c(first, whole.data() + cut, whole.size() - cut), 0xE3069283u);
  }
}

}  // namespace
}  // namespace jx
