// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDeadLetters.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

#include "jx/core/storage/JXFolder.h"

namespace jx {
namespace {

// An attempt fails only when another process replaces or deletes the file at the same time.
constexpr int kOpenAttempts = 3;

}  // namespace

JXDeadLetters::JXDeadLetters(const std::string& folder, std::size_t keep)
    : path_(folder + "/dead"),
      keep_(std::min<std::size_t>(keep, std::numeric_limits<std::uint32_t>::max())) {}

int JXDeadLetters::append(const JXOutboxRequest& request, int status) {
  if (keep_ == 0) return 0;
  const std::lock_guard<std::mutex> lock(mutex_);
  int error = lockFile();
  if (error != 0) return error;
  error = appendLocked(request, status);
  // Compacts the file when at least half of it is obsolete. A failure only leaves the file longer.
  if (error == 0 && locations_.size() >= 2 * keep_) rewrite();
  knownSize_ = journal_.size();
  journal_.file().unlock();
  return error;
}

// Opens and locks the file that is at the path now, and reads it if it has changed.
int JXDeadLetters::lockFile() {
  for (int attempt = 0; attempt < kOpenAttempts; ++attempt) {
    if (!journal_.isOpen()) {
      int error = makeFolder(folderOf(path_));
      if (error != 0) return error;
      journal_ = JXJournal(JXFile::open(path_, JXFile::Access::Append, error), path_);
      if (error != 0) return error;
      // Matches no file size, so that the file is read.
      knownSize_ = std::numeric_limits<std::uint64_t>::max();
    }
    if (!journal_.file().tryLock(JXFile::Lock::Exclusive)) return EWOULDBLOCK;
    if (journal_.file().isAt(path_)) return readLocations();
    journal_.close();
  }
  return EWOULDBLOCK;
}

int JXDeadLetters::readLocations() {
  std::uint64_t size = 0;
  int error = journal_.file().size(size);
  if (error != 0 || size == knownSize_) return error;
  locations_.clear();
  const JXJournal::Recovery recovery =
      journal_.recover(JXJournal::Writers::One, [&](const JXFrame& frame) {
        locations_.push_back({frame.offset, frame.payload.size()});
      });
  damaged_ = damaged_ || recovery.quarantined;
  return 0;
}

int JXDeadLetters::appendLocked(const JXOutboxRequest& request, int status) {
  const JXDeadLetterHead head = encodeDeadLetterHead(request.url, request.createdMs, status,
                                                     static_cast<std::uint32_t>(keep_));
  std::uint64_t offset = 0;
  const int error =
      journal_.append({{head.data(), head.size()}, request.url, request.body}, &offset);
  if (error != 0) return error;
  locations_.push_back({offset, head.size() + request.url.size() + request.body.size()});
  dirty_ = true;
  return 0;
}

// Replaces the file with one that contains only the requests to keep.
int JXDeadLetters::rewrite() {
  const std::string freshPath = path_ + ".new";
  int error = 0;
  JXJournal fresh(JXFile::open(freshPath, JXFile::Access::AppendEmptied, error), path_);
  std::deque<Location> kept;
  for (std::size_t i = locations_.size() - keep_; error == 0 && i < locations_.size(); ++i) {
    std::string payload;
    error = journal_.read(locations_[i].offset, locations_[i].length, payload);
    if (error != 0) break;
    kept.push_back({0, payload.size()});
    error = fresh.append({payload}, &kept.back().offset);
  }
  if (error == 0) error = fresh.sync();
  error = replaceFile(freshPath, path_, error);
  if (error != 0) return error;
  journal_ = std::move(fresh);
  locations_ = std::move(kept);
  return 0;
}

int JXDeadLetters::sync() {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!dirty_ || !journal_.isOpen()) return 0;
  const int error = journal_.sync();
  dirty_ = error != 0;
  return error != 0 ? error : synchronizeFolder(folderOf(path_));
}

bool JXDeadLetters::needsSync() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return dirty_;
}

int JXDeadLetters::clear() {
  const std::lock_guard<std::mutex> lock(mutex_);
  journal_.close();
  dirty_ = false;
  return ::unlink(path_.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR ? 0 : errno;
}

bool JXDeadLetters::takeDamaged() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return std::exchange(damaged_, false);
}

}  // namespace jx
