// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace jx {

/// Returns the CRC-32C (Castagnoli) of `size` bytes that continue a sequence whose CRC is `crc`;
/// pass 0 to start. Uses the CPU instruction where available.
std::uint32_t crc32c(std::uint32_t crc, const void* data, std::size_t size) noexcept;

/// Same as `crc32c`, in portable C++, for CPUs without the instruction.
std::uint32_t crc32cPortable(std::uint32_t crc, const void* data, std::size_t size) noexcept;

}  // namespace jx
