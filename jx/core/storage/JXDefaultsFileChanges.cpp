// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// The operations of JXDefaultsFile that set several values together, store changes with requests,
// and find them again.
#include <algorithm>
#include <iterator>
#include <random>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXDeferredChanges.h"

namespace jx {
namespace {

// Returns a random number, 0 if the system has none.
std::uint64_t newWriter() noexcept {
  try {
    std::random_device random;
    return std::uint64_t{random()} << 32 | random();
  } catch (...) {
    return 0;
  }
}

}  // namespace

void JXDefaultsFile::beginChanges() {
  const std::lock_guard<std::mutex> lock(mutex_);
  // While another thread is between beginChanges and endChanges, changes are written one by one.
  if (changing_ == std::thread::id()) changing_ = std::this_thread::get_id();
}

void JXDefaultsFile::endChanges() {
  JXReportingLock locked(mutex_, report_);
  if (changing_ != std::this_thread::get_id()) return;
  changing_ = std::thread::id();
  if (!earlier_.empty()) ++changes_;
  earlier_.clear();
  dropErased();
  // Also without a change: a deleted file may mean an erase.
  const bool isCurrent = isOpenAtPath();
  if (isCurrent && (unsaved_.empty() || defersChanges())) return;
  if (unsaved_.empty() && journal_ == nullptr) return;
  ensureOpen();
  writeUnsaved();
}

// Returns the value of the key that may be written: while a thread is setting several, the value
// before.
JXString JXDefaultsFile::completeValueOf(const JXString& key) const {
  for (const auto& [changedKey, value] : earlier_)
    if (*changedKey == key) return value;
  return valueOf(key);
}

// Another thread has set the value.
void JXDefaultsFile::forgetEarlierValueOf(const JXString& key) {
  const auto isIt = [&](const auto& each) { return *each.first == key; };
  earlier_.erase(std::remove_if(earlier_.begin(), earlier_.end(), isIt), earlier_.end());
}

// Leaves the values that a thread is setting together, which `endChanges` writes.
void JXDefaultsFile::forgetWritten() {
  const auto isChanging = [&](const JXString& key) {
    return std::any_of(earlier_.begin(), earlier_.end(),
                       [&](const auto& each) { return *each.first == key; });
  };
  for (auto key = unsaved_.begin(); key != unsaved_.end();)
    key = isChanging(*key) ? std::next(key) : unsaved_.erase(key);
}

// Returns whether the unsaved values are left to the scope of this thread.
bool JXDefaultsFile::defersChanges() {
  JXDeferredChanges* const scope = JXDeferredChanges::current();
  if (scope == nullptr || !hasCheckpoint_) return false;
  // Events of the same millisecond change nothing.
  if (storedChanges_ != changes_) scope->defer(*this);
  return true;
}

void JXDefaultsFile::allowDeferral() {
  const std::uint64_t writer = newWriter();
  const JXReportingLock locked(mutex_, report_);
  writer_ = writer;
}

std::uint64_t JXDefaultsFile::encodeChanges(std::string& payload) {
  const JXReportingLock locked(mutex_, report_);
  dropErased();
  if (unsaved_.empty() || !hasCheckpoint_) return 0;
  encodeStoredChanges(writer_, ++sequence_, payload);
  for (const JXString& key : unsaved_)
    encodeStoredChange(key, completeValueOf(key), payload);
  return changes_;
}

void JXDefaultsFile::changesStored(std::uint64_t changes) {
  const std::lock_guard<std::mutex> lock(mutex_);
  storedChanges_ = std::max(storedChanges_, changes);
}

bool JXDefaultsFile::saveChanges() {
  const JXReportingLock locked(mutex_, report_);
  dropErased();
  if (unsaved_.empty()) return true;
  ensureOpen();
  return writeUnsaved();
}

void JXDefaultsFile::restore() {
  const JXReportingLock locked(mutex_, report_);
  dropErased();
  pathCheck_.forget();
  ensureOpen();
  writeUnsaved();
}

// Of a value that was stored several times, keeps the last one.
void JXDefaultsFile::addStored(std::string_view payload) {
  JXStoredChanges changes(payload);
  const std::lock_guard<std::mutex> lock(mutex_);
  const JXDefaultsCheckpoint* const checkpoint = content_.checkpointOf(changes.writer());
  if (checkpoint == nullptr || changes.sequence() <= checkpoint->sequence) return;
  JXString key;
  JXString value;
  while (changes.next(key, value)) {
    Stored& last = stored_[key];
    const JXDefaultsCheckpoint* const other = content_.checkpointOf(last.writer);
    const bool isLater = last.writer == changes.writer()
                             ? last.sequence < changes.sequence()
                             : other == nullptr || other->position < checkpoint->position;
    if (isLater) last = {value, changes.writer(), changes.sequence()};
  }
}

// Returns whether a process set the value after the last checkpoint of `writer`.
bool JXDefaultsFile::isSetLater(const JXString& key, std::uint64_t writer) const {
  const JXDefaultsCheckpoint* const checkpoint = content_.checkpointOf(writer);
  const auto found = content_.values.find(key);
  return checkpoint == nullptr || unsaved_.count(key) != 0 ||
         (found != content_.values.end() && found->second.position > checkpoint->position);
}

void JXDefaultsFile::applyStored() {
  JXReportingLock locked(mutex_, report_);
  dropErased();
  for (auto each = stored_.begin(); each != stored_.end(); each = stored_.erase(each)) {
    const auto& [key, stored] = *each;
    if (isSetLater(key, stored.writer) || valueOf(key) == stored.value) continue;
    // Nothing is changed if memory is exhausted.
    JXString& value = content_.values[key].value;
    if (rewriting_) changed_.insert(key);
    unsaved_.insert(key);
    value = stored.value;
  }
  if (unsaved_.empty()) return;
  ensureOpen();
  writeUnsaved();
}

}  // namespace jx
