// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXReadAhead.h"

#include <new>

#include "jx/core/storage/JXFrame.h"

namespace jx {

std::string_view JXReadAhead::payload(JXOutboxSegment& segment, std::uint32_t offset,
                                      std::uint32_t bytes) noexcept {
  const std::uint64_t whole = kJXFrameHeaderSize + kJXRequestHeadSize + std::uint64_t{bytes};
  if (whole > kRun) return {};
  const bool isRead =
      segment_ == &segment && offset >= offset_ && offset + whole <= offset_ + size_;
  if (!isRead) {
    if (bytes_ == nullptr) bytes_.reset(new (std::nothrow) char[kRun]);
    if (bytes_ == nullptr) return {};
    segment_ = &segment;
    offset_ = offset;
    size_ = segment.readRun(offset, bytes_.get(), kRun);
    if (size_ < whole) return {};
  }
  const std::string_view frame(bytes_.get() + (offset - offset_), static_cast<std::size_t>(whole));
  return isWholeFrame(frame) ? frame.substr(kJXFrameHeaderSize) : std::string_view();
}

void JXReadAhead::forget(const JXOutboxSegment& segment) noexcept {
  if (segment_ == &segment) clear();
}

void JXReadAhead::clear() noexcept {
  segment_ = nullptr;
  size_ = 0;
  bytes_.reset();
}

}  // namespace jx
