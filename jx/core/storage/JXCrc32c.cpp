// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXCrc32c.h"

#include <array>
#include <cstring>

#if defined(__x86_64__)
#include <cpuid.h>
#include <nmmintrin.h>
#include <wmmintrin.h>
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

#define JX_CRC_INSTRUCTIONS __attribute__((target("sse4.2,pclmul")))

// The length of each of three parts of a block whose CRCs are computed at once, because the
// instruction takes three times as long as until the next one can begin.
constexpr std::size_t kPart = 256;

JX_CRC_INSTRUCTIONS std::uint64_t addWord(std::uint64_t state, const unsigned char* at) noexcept {
  std::uint64_t word;
  std::memcpy(&word, at, sizeof word);
  return _mm_crc32_u64(state, word);
}

// The factor by which a state is multiplied to append zero bits: a power of x. The product of two
// reflected polynomials and its reduction append 33 of them.
constexpr std::uint32_t factorOfZeros(std::size_t bytes) {
  std::uint32_t power = 0x80000000;
  for (std::size_t bit = 33; bit < 8 * bytes; ++bit)
    power = power >> 1 ^ ((power & 1) != 0 ? kReflectedPolynomial : 0);
  return power;
}

JX_CRC_INSTRUCTIONS std::uint64_t appendZeros(std::uint64_t state, std::uint32_t factor) noexcept {
  const __m128i product = _mm_clmulepi64_si128(_mm_cvtsi64_si128(static_cast<long long>(state)),
                                               _mm_cvtsi64_si128(factor), 0);
  return _mm_crc32_u64(0, static_cast<std::uint64_t>(_mm_cvtsi128_si64(product)));
}

JX_CRC_INSTRUCTIONS std::uint32_t crc32cHardware(std::uint32_t crc, const void* data,
                                                 std::size_t size) noexcept {
  const auto* at = static_cast<const unsigned char*>(data);
  std::uint64_t state = ~crc;
  for (; size >= 3 * kPart; size -= 3 * kPart, at += 2 * kPart) {
    std::uint64_t second = 0;
    std::uint64_t third = 0;
    for (const unsigned char* const end = at + kPart; at != end; at += 8) {
      state = addWord(state, at);
      second = addWord(second, at + kPart);
      third = addWord(third, at + 2 * kPart);
    }
    constexpr std::uint32_t kOnePart = factorOfZeros(kPart);
    constexpr std::uint32_t kTwoParts = factorOfZeros(2 * kPart);
    state = appendZeros(state, kTwoParts) ^ appendZeros(second, kOnePart) ^ third;
  }
  for (; size >= 8; size -= 8, at += 8)
    state = addWord(state, at);
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
  constexpr unsigned kRequired = bit_SSE4_2 | bit_PCLMUL;
  return __get_cpuid(1, &a, &b, &c, &d) != 0 && (c & kRequired) == kRequired;
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
