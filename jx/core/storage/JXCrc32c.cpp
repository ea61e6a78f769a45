// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXCrc32c.h"

#include <array>
#include <cstring>

#if defined(__x86_64__)
#include <cpuid.h>
#include <nmmintrin.h>
#elif defined(__ARM_FEATURE_CRC32)
#include <arm_acle.h>
#endif

namespace jx {
namespace {

constexpr std::uint32_t kReflectedPolynomial = 0x82F63B78;

// table[0] advances a CRC by one byte; table[n] by one byte and n zero bytes, so that eight bytes
// take eight independent look-ups.
using Tables = std::array<std::array<std::uint32_t, 256>, 8>;

Tables makeTables() {
  Tables tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t crc = byte;
    for (int bit = 0; bit < 8; ++bit)
      crc = crc >> 1 ^ ((crc & 1) != 0 ? kReflectedPolynomial : 0);
    tables[0][byte] = crc;
  }
  for (std::size_t n = 1; n < 8; ++n) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t before = tables[n - 1][byte];
      tables[n][byte] = before >> 8 ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}

// Created on first use, because most CPUs have an instruction for CRC-32C.
const Tables& tables() {
  static const Tables instance = makeTables();
  return instance;
}

std::uint32_t littleEndian(const unsigned char* at) {
  return static_cast<std::uint32_t>(at[0]) | static_cast<std::uint32_t>(at[1]) << 8 |
         static_cast<std::uint32_t>(at[2]) << 16 | static_cast<std::uint32_t>(at[3]) << 24;
}

#if defined(__x86_64__)

__attribute__((target("sse4.2"))) std::uint32_t crc32cHardware(std::uint32_t crc, const void* data,
                                                               std::size_t size) noexcept {
  const auto* at = static_cast<const unsigned char*>(data);
  std::uint64_t state = ~crc;
  for (; size >= 8; size -= 8, at += 8) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    state = _mm_crc32_u64(state, word);
  }
  auto narrow = static_cast<std::uint32_t>(state);
  for (; size != 0; --size, ++at)
    narrow = _mm_crc32_u8(narrow, *at);
  return ~narrow;
}

bool hasHardware() noexcept {
  unsigned a = 0;
  unsigned b = 0;
  unsigned c = 0;
  unsigned d = 0;
  return __get_cpuid(1, &a, &b, &c, &d) != 0 && (c & bit_SSE4_2) != 0;
}

#elif defined(__ARM_FEATURE_CRC32)

std::uint32_t crc32cHardware(std::uint32_t crc, const void* data, std::size_t size) noexcept {
  const auto* at = static_cast<const unsigned char*>(data);
  std::uint32_t state = ~crc;
  for (; size >= 8; size -= 8, at += 8) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    state = __crc32cd(state, word);
  }
  for (; size != 0; --size, ++at)
    state = __crc32cb(state, *at);
  return ~state;
}

bool hasHardware() noexcept { return true; }

#else

std::uint32_t crc32cHardware(std::uint32_t crc, const void* data, std::size_t size) noexcept {
  return crc32cPortable(crc, data, size);
}

bool hasHardware() noexcept { return false; }

#endif

}  // namespace

std::uint32_t crc32cPortable(std::uint32_t crc, const void* data, std::size_t size) noexcept {
  const Tables& table = tables();
  const auto* at = static_cast<const unsigned char*>(data);
  std::uint32_t state = ~crc;
  for (; size >= 8; size -= 8, at += 8) {
    const std::uint32_t low = state ^ littleEndian(at);
    const std::uint32_t high = littleEndian(at + 4);
    state = table[7][low & 0xFF] ^ table[6][low >> 8 & 0xFF] ^ table[5][low >> 16 & 0xFF] ^
            table[4][low >> 24] ^ table[3][high & 0xFF] ^ table[2][high >> 8 & 0xFF] ^
            table[1][high >> 16 & 0xFF] ^ table[0][high >> 24];
  }
  for (; size != 0; --size, ++at)
    state = state >> 8 ^ table[0][(state ^ *at) & 0xFF];
  return ~state;
}

std::uint32_t crc32c(std::uint32_t crc, const void* data, std::size_t size) noexcept {
  static const bool hardware = hasHardware();
  return hardware ? crc32cHardware(crc, data, size) : crc32cPortable(crc, data, size);
}

}  // namespace jx
