// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXFile.h"

namespace jx {

// A journal file is a sequence of frames. A frame is: magic, length, CRC-32C of length and payload
// (4 bytes each, little-endian), payload. The magic cannot occur in UTF-8 text, so a reader finds
// the next frame after damaged data. A file begins with eight bytes that identify the format.
// Readers skip them wherever they occur, because two processes may both write them to a new file.

constexpr std::size_t kJXFrameHeaderSize = 12;
constexpr std::uint32_t kJXMaxPayload = 64u * 1024 * 1024;
constexpr std::string_view kJXJournalMagic{"JXJRNL1\n", 8};

// Integers in files are always little-endian, so that a folder can be inspected on another machine.

inline void putU32(char* at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i)
    at[i] = static_cast<char>(value >> (8 * i));
}
inline void putU64(char* at, std::uint64_t value) {
  putU32(at, static_cast<std::uint32_t>(value));
  putU32(at + 4, static_cast<std::uint32_t>(value >> 32));
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

/// The payload of a frame is the concatenation of its parts, at most kJXMaxPayload bytes in total.
using JXFrameParts = std::initializer_list<std::string_view>;
using JXFrameHeader = std::array<char, kJXFrameHeaderSize>;

JXFrameHeader makeFrameHeader(JXFrameParts parts);
/// Appends a complete frame to `frames`.
void encodeFrame(JXFrameParts parts, std::string& frames);

/// Returns true when `frame` is exactly one undamaged frame, header included.
bool isWholeFrame(std::string_view frame);

/// A frame that was read from a file.
struct JXFrame {
  std::uint64_t offset = 0;  ///< of the header in the file
  std::string_view payload;
};

/// A range of bytes that belongs to no readable frame.
struct JXDamage {
  std::uint64_t offset = 0;
  std::uint64_t length = 0;
};

/// Reads the frames of a file in order and skips damaged data. Memory use is bounded by the largest
/// frame that fits in the file, whatever the file contains. Not synchronised.
class JXFrameReader {
 public:
  /// Reads `file` up to the offset `end`; `file` must outlive the reader.
  JXFrameReader(const JXFile& file, std::uint64_t end) : file_(file), end_(end) {}

  /// Reads the next intact frame; its payload is valid until the next call. Returns false at the
  /// end and on a read error.
  bool next(JXFrame& frame);
  /// Returns the damaged ranges skipped so far, in order.
  const std::vector<JXDamage>& damages() const { return damages_; }
  /// Returns the number of bytes that were checked and do not form a frame.
  std::uint64_t falseBytes() const { return falseBytes_; }
  /// Returns the errno value that stopped reading before the end of the file, or 0.
  int error() const { return error_; }

 private:
  std::string_view bytesAt(std::uint64_t offset, std::size_t size);
  std::size_t frameSizeAt(std::uint64_t offset);
  std::uint64_t nextMagic(std::uint64_t from);
  void addDamage(std::uint64_t from, std::uint64_t to);

  const JXFile& file_;
  std::uint64_t end_;
  std::uint64_t position_ = 0;
  std::vector<char> buffer_;
  std::uint64_t bufferOffset_ = 0;
  std::size_t buffered_ = 0;
  std::vector<JXDamage> damages_;
  unsigned falseMagicCount_ = 0;
  std::uint64_t falseBytes_ = 0;  ///< bytes that were checked and do not form a frame
  int error_ = 0;
};

}  // namespace jx
