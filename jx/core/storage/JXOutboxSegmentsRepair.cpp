// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// The operations of JXOutboxSegments that find and restore lost segments.
#include <cerrno>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXOutboxSegments.h"

namespace jx {
namespace {

// Segments that are mostly acknowledged are rewritten when the files are larger than this many
// times the queue, plus some segments that are being sent.
constexpr std::uint64_t kMaxObsolete = 2;
constexpr std::uint64_t kObsoleteAllowance = 8u * 1024 * 1024;

}  // namespace

void JXOutboxSegments::restoreReplaced(JXOutboxSegment& segment) noexcept {
  if (!segment.isStillAtPath(pathWatch_.get())) detectLostSegments();
  if (!hasLost()) return;
  try {
    restoreLost();
  } catch (...) {
    // Out of memory: the next sync tries again. The request is written already.
  }
}

void JXOutboxSegments::detectLostSegments() {
  for (const auto& segment : segments_) {
    if (!segment->isAtPath()) segment->lost = true;
  }
}

bool JXOutboxSegments::restoreLost() {
  // An erase deletes the files too. The owner drops the requests when it notices it.
  if (erasures_ != nullptr) erasures_->check();
  int error = ensureFolder();
  if (error != 0) report_.failed("open the folder", error);
  if (defaults != nullptr) defaults->restore();
  for (const auto& segment : segments_) {
    if (error != 0) break;
    if (!segment->lost || segment->live() == 0) continue;
    error = restore(*segment);
    if (error != 0) report_.failed("restore a segment", error);
  }
  return error == 0;
}

// Under its number, unless the folder has another file of this name.
int JXOutboxSegments::restore(JXOutboxSegment& segment) {
  int error = EEXIST;
  std::uint64_t number = segment.number();
  for (int attempt = 0; error == EEXIST && attempt < kCreateAttempts; ++attempt) {
    if (attempt != 0) {
      const std::vector<std::uint64_t> numbers = JXOutboxSegment::numbersIn(*opened_.folder, error);
      if (error != 0) return error;
      number = nextNumber(numbers);
    }
    error = segment.moveTo(opened_, number);
  }
  folderDirty = folderDirty || error == 0;
  return error;
}

std::size_t JXOutboxSegments::lostRequests() const {
  std::size_t requests = 0;
  for (const auto& segment : segments_)
    requests += segment->lost ? segment->live() : 0;
  return requests;
}

JXOutboxSegment* JXOutboxSegments::toRetire() const {
  std::uint64_t size = 0;
  JXOutboxSegment* most = nullptr;
  for (const auto& segment : segments_) {
    size += segment->size();
    const bool isCandidate = segment.get() != current_ && segment->isMostlyObsolete();
    if (isCandidate && most == nullptr) most = segment.get();
  }
  return size > kMaxObsolete * maxBytes_ + kObsoleteAllowance ? most : nullptr;
}

}  // namespace jx
