// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxSegments.h"

#include <algorithm>
#include <cerrno>

#include "jx/core/storage/JXFolder.h"

namespace jx {
namespace {

// An attempt fails only when another process uses the same number at the same time.
constexpr int kCreateAttempts = 8;

}  // namespace

JXOutboxSegments::~JXOutboxSegments() { finishCurrent(); }

void JXOutboxSegments::adoptAll(JXOutboxHosts& hosts,
                                const std::function<void(const JXOutboxEntry&)>& adopted) {
  int error = makeFolder(folder_);
  std::vector<std::uint64_t> numbers;
  if (error == 0) numbers = JXOutboxSegment::numbersIn(folder_, error);
  if (error != 0) report_.failed("open the folder", error);
  for (const std::uint64_t number : numbers) {
    std::vector<JXOutboxEntry> requests;
    JXJournal::Recovery recovery;
    auto segment = JXOutboxSegment::adopt(folder_, number, hosts, requests, recovery);
    if (recovery.error != 0) report_.failed("read a segment", recovery.error);
    if (segment == nullptr) continue;
    if (recovery.quarantined) report_.damaged(segment->path());
    segments_.push_back(segment);
    if (requests.empty() && recovery.error == 0) {
      drop(*segment);
      continue;
    }
    std::for_each(requests.begin(), requests.end(), adopted);
    // New requests go to the newest segment, so that frequent starts do not create many files.
    current_ = segment.get();
  }
  if (!numbers.empty()) lastNumber_ = numbers.back();
}

JXOutboxSegment* JXOutboxSegments::append(std::string_view url, std::string_view body,
                                          std::int64_t createdMs, const JXRequestOrigin& origin,
                                          std::uint32_t& offset) {
  if (!isOpen) return nullptr;
  if (current_ != nullptr && !current_->isLinked()) {
    current_->lost = true;
    current_ = nullptr;
  }
  if (current_ != nullptr && current_->isFull()) {
    JXOutboxSegment& full = *current_;
    current_ = nullptr;
    if (full.live() == 0) drop(full);
  }
  if (current_ == nullptr && !startSegment()) return nullptr;
  const int error = current_->append(url, body, createdMs, origin, offset);
  if (error == 0) return current_;
  report_.failed("append a request", error);
  return nullptr;
}

bool JXOutboxSegments::startSegment() {
  int error = makeFolder(folder_);
  std::shared_ptr<JXOutboxSegment> segment;
  for (int attempt = 0; error == 0 && segment == nullptr && attempt < kCreateAttempts; ++attempt) {
    // Follows the numbers of other processes too, so that numbers give the order of all segments.
    const std::vector<std::uint64_t> numbers = JXOutboxSegment::numbersIn(folder_, error);
    if (error != 0) break;
    if (!numbers.empty()) lastNumber_ = std::max(lastNumber_, numbers.back());
    segment = JXOutboxSegment::create(folder_, ++lastNumber_, error);
    if (error == EEXIST) error = 0;
  }
  if (segment == nullptr) {
    report_.failed("create a segment", error != 0 ? error : EEXIST);
    return false;
  }
  current_ = segment.get();
  segments_.push_back(std::move(segment));
  folderDirty = true;
  if (erasures_ != nullptr) erasures_->check();
  return true;
}

void JXOutboxSegments::finish(JXOutboxSegment& segment) {
  if (segment.live() == 0 && &segment != current_) {
    drop(segment);
    return;
  }
  const int error = segment.writeAcknowledgements();
  if (error != 0) report_.failed("append acknowledgements", error);
}

void JXOutboxSegments::finishCurrent() {
  if (current_ == nullptr || current_->live() != 0) return;
  JXOutboxSegment& finished = *current_;
  current_ = nullptr;
  drop(finished);
}

// Deletes the file. After a failure `retry` tries again.
void JXOutboxSegments::drop(JXOutboxSegment& segment) {
  if (&segment == current_) current_ = nullptr;
  const int error = segment.remove();
  if (error != 0) {
    report_.failed("delete a segment", error);
    segment.writeAcknowledgements();
    return;
  }
  const auto isIt = [&](const auto& each) { return each.get() == &segment; };
  segments_.erase(std::find_if(segments_.begin(), segments_.end(), isIt));
}

std::vector<JXOutboxSegments::Purged> JXOutboxSegments::markedForPurge() {
  std::vector<Purged> marked;
  if (segments_.empty() || !watch_.mayHaveChanged()) return marked;
  // The deletion of segments also changes the folder, repeatedly while a long queue is delivered.
  if (!mayContainFileWithSuffix(folder_, kJXPurgeMarkSuffix)) return marked;
  for (const auto& segment : segments_) {
    const std::uint64_t end = readPurgeMark(segment->path());
    if (end != 0) marked.push_back({segment, end});
  }
  return marked;
}

void JXOutboxSegments::retry() {
  // A copy, because finish() may remove a segment from the list.
  const std::vector<std::shared_ptr<JXOutboxSegment>> all = segments_;
  for (const auto& segment : all) {
    const bool toDelete = segment->live() == 0 && segment.get() != current_;
    if (toDelete || segment->hasUnwrittenAcknowledgements()) finish(*segment);
  }
}

void JXOutboxSegments::detectDeletedSegments() {
  for (const auto& segment : segments_) {
    if (segment->lost || segment->isLinked()) continue;
    segment->lost = true;
    if (segment.get() == current_) current_ = nullptr;
  }
}

bool JXOutboxSegments::hasLost() const {
  return std::any_of(segments_.begin(), segments_.end(),
                     [](const auto& each) { return each->lost && each->live() != 0; });
}

std::vector<std::shared_ptr<JXOutboxSegment>> JXOutboxSegments::takeDirty() {
  std::vector<std::shared_ptr<JXOutboxSegment>> dirty;
  for (const auto& segment : segments_) {
    if (segment->dirty && !segment->lost) dirty.push_back(segment);
    segment->dirty = false;
  }
  return dirty;
}

bool JXOutboxSegments::needsSync() const {
  const auto needs = [&](const std::shared_ptr<JXOutboxSegment>& each) {
    return each->dirty || each->lost || each->hasUnwrittenAcknowledgements() ||
           (each->live() == 0 && each.get() != current_);
  };
  return folderDirty || std::any_of(segments_.begin(), segments_.end(), needs);
}

}  // namespace jx
