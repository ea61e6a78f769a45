// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFrame.h"

#include <algorithm>
#include <cstring>

#include "jx/core/storage/JXBytes.h"
#include "jx/core/storage/JXCrc32c.h"

namespace jx {
namespace {

constexpr std::string_view kFrameMark{"\xF7JX\xF8", 4};
constexpr std::size_t kChunk = 64 * 1024;
// A damaged file may hold marks in front of no frame. Each costs a CRC of up to the rest of the
// file, so their number is bounded; no accident comes near it.
constexpr unsigned kMaxDeceptions = 1'000;

}  // namespace

JXFrameHeader makeFrameHeader(const std::string_view* parts, std::size_t count) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < count; ++i)
    length += parts[i].size();
  JXFrameHeader header{};
  std::memcpy(header.bytes, kFrameMark.data(), kFrameMark.size());
  putU32(header.bytes + 4, static_cast<std::uint32_t>(length));
  std::uint32_t crc = crc32c(0, header.bytes + 4, 4);
  for (std::size_t i = 0; i < count; ++i)
    crc = crc32c(crc, parts[i].data(), parts[i].size());
  putU32(header.bytes + 8, crc);
  return header;
}

void encodeFrame(const std::string_view* parts, std::size_t count, std::string& frames) {
  const JXFrameHeader header = makeFrameHeader(parts, count);
  frames.append(reinterpret_cast<const char*>(header.bytes), sizeof header.bytes);
  for (std::size_t i = 0; i < count; ++i)
    frames.append(parts[i]);
}

bool isWholeFrame(std::string_view frame) {
  if (frame.size() < kJXFrameHeaderSize || frame.substr(0, 4) != kFrameMark) return false;
  if (getU32(frame.data() + 4) != frame.size() - kJXFrameHeaderSize) return false;
  const std::uint32_t crc = crc32c(0, frame.data() + 4, 4);
  const std::string_view payload = frame.substr(kJXFrameHeaderSize);
  return crc32c(crc, payload.data(), payload.size()) == getU32(frame.data() + 8);
}

bool JXFrameReader::next(JXFrame& frame) {
  std::uint64_t damagedFrom = position_;
  while (position_ < end_) {
    if (const std::size_t size = frameSizeAt(position_)) {
      noteDamage(damagedFrom, position_);
      frame.offset = position_;
      frame.payload = bytesAt(position_, size).substr(kJXFrameHeaderSize);
      position_ += size;
      return true;
    }
    if (error_ != 0) return false;
    if (bytesAt(position_, kJXJournalMark.size()) == kJXJournalMark) {
      noteDamage(damagedFrom, position_);
      position_ += kJXJournalMark.size();
      damagedFrom = position_;
      continue;
    }
    position_ = nextMark(position_ + 1);
    if (error_ != 0) return false;
  }
  noteDamage(damagedFrom, end_);
  return false;
}

// The size of the readable frame at `offset`, header included; 0 when there is none.
std::size_t JXFrameReader::frameSizeAt(std::uint64_t offset) {
  const std::string_view header = bytesAt(offset, kJXFrameHeaderSize);
  if (header.size() < kJXFrameHeaderSize || header.substr(0, 4) != kFrameMark) return 0;
  const std::uint32_t length = getU32(header.data() + 4);
  const std::uint64_t size = kJXFrameHeaderSize + std::uint64_t{length};
  if (length > kJXMaxPayload || size > end_ - offset) return 0;
  const auto whole = static_cast<std::size_t>(size);
  if (isWholeFrame(bytesAt(offset, whole))) return whole;
  ++falseMagicCount_;
  return 0;
}

// The first place from `from` on where a frame or a file mark may begin; the end when none does.
std::uint64_t JXFrameReader::nextMark(std::uint64_t from) {
  while (from < end_ && falseMagicCount_ < kMaxDeceptions) {
    const std::string_view bytes = bytesAt(from, kFrameMark.size());
    if (bytes.size() < kFrameMark.size()) return end_;
    // All that is in the buffer, not only the four bytes asked for.
    const std::string_view buffered(bytes.data(),
                                    static_cast<std::size_t>(bufferOffset_ + buffered_ - from));
    const std::size_t found =
        std::min(buffered.find(kFrameMark), buffered.find(kJXJournalMark.substr(0, 4)));
    if (found != std::string_view::npos) return from + found;
    from += buffered.size() - (kFrameMark.size() - 1);
  }
  return end_;
}

// The bytes at `offset`: `size` of them, or fewer at the end of the file. Valid until the next call
// that asks for bytes outside the buffer.
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
    // The file became shorter while it was read, or the disk refuses the rest.
    if (buffered_ < wanted) end_ = bufferOffset_ + buffered_;
    size = std::min(size, buffered_);
  }
  return {buffer_.data() + (offset - bufferOffset_), size};
}

void JXFrameReader::noteDamage(std::uint64_t from, std::uint64_t to) {
  if (from < to) damages_.push_back({from, to - from});
}

}  // namespace jx
