// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fuzz/Fuzz.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>

#include "jx/core/JXLogger.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::fuzz {

void require(bool holds, const char* property) { require(holds, property, {}, {}); }

void require(bool holds, const char* property, std::string_view actual, std::string_view expected) {
  if (holds) return;
  std::cerr << "violated: " << property << '\n';
  if (!actual.empty() || !expected.empty())
    std::cerr << "actual:   " << actual << "\nexpected: " << expected << '\n';
  std::abort();
}

std::uint8_t Input::byte() { return static_cast<std::uint8_t>(number(1)); }

std::uint64_t Input::number(std::size_t bytes) {
  std::uint64_t value = 0;
  const std::string_view result = this->bytes(bytes);
  for (std::size_t i = 0; i < result.size(); ++i)
    value |= std::uint64_t{static_cast<unsigned char>(result[i])} << (8 * i);
  return value;
}

std::string_view Input::bytes(std::size_t count) {
  const std::string_view result = rest_.substr(0, count);
  rest_.remove_prefix(result.size());
  return result;
}

void silenceLog() { JXLogger::sharedInstance().setMaxLevel(0); }

const std::string& scratchFolder() {
  static const test::TemporaryFolder folder;
  return folder.path();
}

void writeFile(const std::string& path, std::string_view content) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  require(file.good(), "the file can be written", path, {});
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace jx::fuzz
