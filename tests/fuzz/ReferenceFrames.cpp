// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fuzz/ReferenceFrames.h"

namespace jx::fuzz {
namespace {

constexpr std::string_view kMark{"\xF7JX\xF8", 4};
constexpr std::size_t kHeader = 12;

// Returns the size of the frame at the front of the bytes, 0 if there is none.
std::size_t frameSize(std::string_view bytes) {
  if (bytes.size() < kHeader || bytes.substr(0, 4) != kMark) return 0;
  const std::size_t length = number32At(bytes, 4);
  if (length > bytes.size() - kHeader) return 0;
  std::string guarded(bytes.substr(4, 4));
  guarded.append(bytes.substr(kHeader, length));
  return slowCrc32c(guarded) == number32At(bytes, 8) ? kHeader + length : 0;
}

}  // namespace

std::uint32_t slowCrc32c(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char byte : bytes) {
    crc ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit)
      crc = (crc & 1) != 0 ? crc >> 1 ^ 0x82F63B78 : crc >> 1;
  }
  return ~crc;
}

std::string littleEndian(std::uint64_t value, std::size_t bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes; ++i)
    text.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
  return text;
}

std::uint32_t number32At(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
  return value;
}

std::string frameOf(std::string_view payload) {
  const std::string length = littleEndian(payload.size(), 4);
  const std::uint32_t crc = slowCrc32c(length + std::string(payload));
  return std::string(kMark) + length + littleEndian(crc, 4) + std::string(payload);
}

std::vector<FoundFrame> framesIn(std::string_view file) {
  std::vector<FoundFrame> frames;
  std::size_t at = 0;
  while (at < file.size()) {
    const std::size_t size = frameSize(file.substr(at));
    if (size == 0) {
      ++at;
      continue;
    }
    frames.push_back({at, std::string(file.substr(at + kHeader, size - kHeader))});
    at += size;
  }
  return frames;
}

}  // namespace jx::fuzz
