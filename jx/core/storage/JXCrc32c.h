// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace jx {

/// The CRC-32C (Castagnoli) of `size` bytes that follow those whose CRC is `crc`; 0 starts. Uses
/// the processor's instruction where it has one.
std::uint32_t crc32c(std::uint32_t crc, const void* data, std::size_t size) noexcept;

/// The same in plain C++, for processors without the instruction.
std::uint32_t crc32cPortable(std::uint32_t crc, const void* data, std::size_t size) noexcept;

}  // namespace jx
