// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace jx {

// Integers in files are always little-endian, so that a folder can be inspected on another machine.

inline void putU32(unsigned char* at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i)
    at[i] = static_cast<unsigned char>(value >> (8 * i));
}

inline void putU64(unsigned char* at, std::uint64_t value) {
  for (int i = 0; i < 8; ++i)
    at[i] = static_cast<unsigned char>(value >> (8 * i));
}

inline std::uint32_t getU32(const char* at) {
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i)
    value = value << 8 | static_cast<unsigned char>(at[i]);
  return value;
}

inline std::uint64_t getU64(const char* at) {
  return static_cast<std::uint64_t>(getU32(at + 4)) << 32 | getU32(at);
}

}  // namespace jx
