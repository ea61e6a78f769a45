// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXFile.h"

namespace jx {

// A journal file is a run of frames: mark, length, CRC-32C of length and payload (4 bytes each,
// little-endian), payload. The mark cannot occur in UTF-8 text, so that after a damaged place the
// next frame is found again. A file begins with eight bytes that name the format; a reader passes
// them wherever they stand, because two processes may both write them into a new file.

constexpr std::size_t kJXFrameHeaderSize = 12;
constexpr std::uint32_t kJXMaxPayload = 64u * 1024 * 1024;
constexpr std::string_view kJXJournalMark{"JXJRNL1\n", 8};

struct JXFrameHeader {
  unsigned char bytes[kJXFrameHeaderSize];
};

/// The header of a frame whose payload is the `count` parts one after the other, at most
/// kJXMaxPayload bytes together.
JXFrameHeader makeFrameHeader(const std::string_view* parts, std::size_t count);
/// Puts a whole frame behind what `frames` holds; its payload is the parts one after the other.
void encodeFrame(const std::string_view* parts, std::size_t count, std::string& frames);

/// True when `frame` is one whole undamaged frame, header included.
bool isWholeFrame(std::string_view frame);

struct JXFrame {
  std::uint64_t offset = 0;
  std::string_view payload;
};

/// Bytes that belong to no readable frame.
struct JXDamage {
  std::uint64_t offset = 0;
  std::uint64_t length = 0;
};

/// Reads the frames of a file one after the other, past damaged places. What the file holds decides
/// nothing but the frames found: memory is bounded by the largest frame that fits in the file.
class JXFrameReader {
 public:
  /// Reads the part of `file` before `end`; `file` must outlive the reader.
  JXFrameReader(const JXFile& file, std::uint64_t end) : file_(file), end_(end) {}

  /// The next readable frame; its payload is valid until the next call. False at the end.
  bool next(JXFrame& frame);
  /// The places passed so far that hold no frame, in order.
  const std::vector<JXDamage>& damages() const { return damages_; }
  /// Why reading stopped before the end of the file: an errno value, or 0.
  int error() const { return error_; }

 private:
  std::string_view bytesAt(std::uint64_t offset, std::size_t size);
  std::size_t frameSizeAt(std::uint64_t offset);
  std::uint64_t nextMark(std::uint64_t from);
  void noteDamage(std::uint64_t from, std::uint64_t to);

  const JXFile& file_;
  std::uint64_t end_;
  std::uint64_t position_ = 0;
  std::vector<char> buffer_;
  std::uint64_t bufferOffset_ = 0;
  std::size_t buffered_ = 0;
  std::vector<JXDamage> damages_;
  unsigned falseMagicCount_ = 0;
  int error_ = 0;
};

}  // namespace jx
