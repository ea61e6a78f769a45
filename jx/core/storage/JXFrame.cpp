// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFrame.h"

#include <algorithm>
#include <cstring>

#include "jx/core/storage/JXCrc32c.h"

namespace jx {
namespace {

constexpr std::string_view kFrameMagic{"\xF7JX\xF8", 4};
constexpr std::size_t kChunk = 64 * 1024;
// A damaged file may contain the magic where no frame begins. Each occurrence costs a CRC over up
// to the rest of the file, so their number is limited, far above what accidental damage causes.
constexpr unsigned kMaxFalseMagics = 1'000;
constexpr std::uint64_t kMaxChecks = 2;  // of the whole file
// In addition, so that a few damaged lengths in a small file never hide the frames after them.
constexpr std::uint64_t kAlwaysChecked = 4 * 1024 * 1024;

}  // namespace

JXFrameHeader makeFrameHeader(JXFrameParts parts) {
  std::size_t length = 0;
  for (const std::string_view part : parts)
    length += part.size();
  JXFrameHeader header{};
  std::memcpy(header.data(), kFrameMagic.data(), kFrameMagic.size());
  putU32(header.data() + 4, static_cast<std::uint32_t>(length));
  std::uint32_t crc = crc32c(0, header.data() + 4, 4);
  for (const std::string_view part : parts)
    crc = crc32c(crc, part.data(), part.size());
  putU32(header.data() + 8, crc);
  return header;
}

void encodeFrame(JXFrameParts parts, std::string& frames) {
  const JXFrameHeader header = makeFrameHeader(parts);
  frames.append(header.data(), header.size());
  for (const std::string_view part : parts)
    frames.append(part);
}

bool isWholeFrame(std::string_view frame) {
  if (frame.size() < kJXFrameHeaderSize || frame.substr(0, 4) != kFrameMagic) return false;
  if (getU32(frame.data() + 4) != frame.size() - kJXFrameHeaderSize) return false;
  const std::uint32_t crc = crc32c(0, frame.data() + 4, 4);
  const std::string_view payload = frame.substr(kJXFrameHeaderSize);
  return crc32c(crc, payload.data(), payload.size()) == getU32(frame.data() + 8);
}

bool JXFrameReader::next(JXFrame& frame) {
  std::uint64_t damagedFrom = position_;
  while (position_ < end_) {
    if (const std::size_t size = frameSizeAt(position_)) {
      addDamage(damagedFrom, position_);
      frame.offset = position_;
      frame.payload = bytesAt(position_, size).substr(kJXFrameHeaderSize);
      position_ += size;
      return true;
    }
    if (error_ != 0) return false;
    if (bytesAt(position_, kJXJournalMagic.size()) == kJXJournalMagic) {
      addDamage(damagedFrom, position_);
      position_ += kJXJournalMagic.size();
      damagedFrom = position_;
      continue;
    }
    position_ = nextMagic(position_ + 1);
    if (error_ != 0) return false;
  }
  addDamage(damagedFrom, end_);
  return false;
}

// Returns the size of the intact frame at `offset`, header included; 0 when there is none.
std::size_t JXFrameReader::frameSizeAt(std::uint64_t offset) {
  const std::string_view header = bytesAt(offset, kJXFrameHeaderSize);
  if (header.size() < kJXFrameHeaderSize || header.substr(0, 4) != kFrameMagic) return 0;
  const std::uint32_t length = getU32(header.data() + 4);
  const std::uint64_t size = kJXFrameHeaderSize + std::uint64_t{length};
  if (length > kJXMaxPayload || size > end_ - offset) return 0;
  const auto whole = static_cast<std::size_t>(size);
  if (isWholeFrame(bytesAt(offset, whole))) return whole;
  ++falseMagicCount_;
  falseBytes_ += size;
  return 0;
}

// Returns the first offset at or after `from` where a frame or the file's magic may begin, or the
// end.
std::uint64_t JXFrameReader::nextMagic(std::uint64_t from) {
  // Crafted lengths could make each byte part of a thousand checksums.
  while (from < end_ && falseMagicCount_ < kMaxFalseMagics &&
         falseBytes_ <= kMaxChecks * end_ + kAlwaysChecked) {
    const std::string_view bytes = bytesAt(from, kFrameMagic.size());
    if (bytes.size() < kFrameMagic.size()) return end_;
    // The whole buffered range, not only the four bytes requested.
    const std::string_view buffered(bytes.data(),
                                    static_cast<std::size_t>(bufferOffset_ + buffered_ - from));
    const std::size_t found =
        std::min(buffered.find(kFrameMagic), buffered.find(kJXJournalMagic.substr(0, 4)));
    if (found != std::string_view::npos) return from + found;
    from += buffered.size() - (kFrameMagic.size() - 1);
  }
  return end_;
}

// Returns `size` bytes at `offset`, fewer at the end of the file. Valid until the next call that
// requests bytes outside the buffer.
std::string_view JXFrameReader::bytesAt(std::uint64_t offset, std::size_t size) {
  if (offset >= end_) return {};
  size = static_cast<std::size_t>(std::min<std::uint64_t>(size, end_ - offset));
  const std::uint64_t bufferEnd = bufferOffset_ + buffered_;
  if (offset < bufferOffset_ || offset + size > bufferEnd) {
    const bool overlaps = offset >= bufferOffset_ && offset < bufferEnd;
    const std::size_t kept = overlaps ? static_cast<std::size_t>(bufferEnd - offset) : 0;
    if (kept != 0) std::memmove(buffer_.data(), buffer_.data() + (buffered_ - kept), kept);
    bufferOffset_ = offset;
    buffered_ = kept;
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(std::max(size, kChunk), end_ - offset));
    if (buffer_.size() < wanted) buffer_.resize(wanted);
    std::size_t got = 0;
    error_ = file_.read(offset + kept, buffer_.data() + kept, wanted - kept, got);
    buffered_ += got;
    // The file was truncated while it was read, or the rest cannot be read.
    if (buffered_ < wanted) end_ = bufferOffset_ + buffered_;
    size = std::min(size, buffered_);
  }
  return {buffer_.data() + (offset - bufferOffset_), size};
}

void JXFrameReader::addDamage(std::uint64_t from, std::uint64_t to) {
  if (from < to) damages_.push_back({from, to - from});
}

}  // namespace jx
