// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jx::fuzz {

// The format of a journal file, told a second time, so that the library is not judged by itself.

/// The CRC-32C of the bytes, bit by bit.
std::uint32_t slowCrc32c(std::string_view bytes);
/// "\xF7JX\xF8", length, CRC of length and payload, payload.
std::string frameOf(std::string_view payload);
/// The number as four bytes, the least significant first, and back.
std::string littleEndian(std::uint64_t value, std::size_t bytes);
std::uint32_t number32At(std::string_view bytes, std::size_t at);

struct FoundFrame {
  std::size_t offset = 0;
  std::string payload;
};
/// The frames of a file: from the front, each place that is a whole frame, none inside another.
std::vector<FoundFrame> framesIn(std::string_view file);

/// A longer file may hold so many false marks that the library gives up on the rest of it.
constexpr std::size_t kMaxFile = 8 * 1024;

}  // namespace jx::fuzz
