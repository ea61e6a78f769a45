// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jx::fuzz {

// An independent implementation of the journal file format, to compare the library with.

/// Returns the CRC-32C of the bytes, computed bit by bit.
std::uint32_t slowCrc32c(std::string_view bytes);
/// Returns a frame: "\xF7JX\xF8", length, CRC of length and payload, payload.
std::string frameOf(std::string_view payload);
/// Returns the number as little-endian bytes, and converts four bytes back.
std::string littleEndian(std::uint64_t value, std::size_t bytes);
std::uint32_t number32At(std::string_view bytes, std::size_t at);

struct FoundFrame {
  std::size_t offset = 0;
  std::string payload;
};
/// Returns the frames of a file in order: every complete frame that is not inside another one.
std::vector<FoundFrame> framesIn(std::string_view file);

/// A longer file may contain so many false marks that the library ignores the rest of it.
constexpr std::size_t kMaxFile = 8 * 1024;

}  // namespace jx::fuzz
