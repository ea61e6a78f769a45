// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDeadLetters.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

#include "jx/core/storage/JXAge.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXRunningTime.h"

namespace jx {
namespace {

constexpr const char* kRewriteSuffix = ".new";

// Closes the file, which releases its lock, also after an exception.
struct Unlocking {
  explicit Unlocking(JXJournal& journal) : journal_(journal) {}
  ~Unlocking() { journal_.close(); }
  Unlocking(const Unlocking&) = delete;
  Unlocking& operator=(const Unlocking&) = delete;

 private:
  JXJournal& journal_;
};

}  // namespace

JXDeadLetters::JXDeadLetters(const std::string& folder, std::size_t keep, std::uint64_t maxBytes,
                             std::chrono::milliseconds maxAge)
    : path_(folder.empty() ? std::string() : folder + "/dead"),
      keep_(folder.empty()
                ? 0
                : std::min<std::size_t>(keep, std::numeric_limits<std::uint32_t>::max())),
      maxBytes_(maxBytes),
      maxAge_(maxAge) {}

int JXDeadLetters::append(const JXOutboxRequest& request, int status, const JXStoredTime& now) {
  if (keep_ == 0) return 0;
  const std::lock_guard<std::mutex> lock(mutex_);
  const Unlocking unlocking(journal_);
  int error = lockFile(JXFile::Access::Append, now);
  if (error != 0) return error;
  const std::uint64_t size = sizeWith(request);
  const bool fits = size - journal_.size() <= maxBytes_;
  // To half of the limit, so that the file is not rewritten with each request.
  if (fits && size > maxBytes_) error = rewrite(now, maxBytes_ / 2);
  if (error == 0 && fits && sizeWith(request) > maxBytes_) error = rewrite(now, 0);
  if (error == 0 && fits) error = appendLocked(request, status, now.series);
  // Compacts the file when at least half of it is obsolete. A failure only leaves the file longer:
  // the next append tries again.
  if (error == 0 && (locations_.size() >= 2 * keep_ || hasExpired(now.runningMs))) {
    rewrite(now, maxBytes_);
  }
  closeFile();
  return error;
}

// Returns an upper bound of the file's size after the request was appended.
std::uint64_t JXDeadLetters::sizeWith(const JXOutboxRequest& request) const {
  return journal_.size() + kJXJournalMagic.size() + 2 * kJXFrameHeaderSize + kJXTimeSize +
         kJXDeadLetterHeadSize + request.url.size() + request.body.size();
}

// Also releases the lock.
void JXDeadLetters::closeFile() {
  knownSize_ = journal_.size();
  identity_ = journal_.file().identity();
  journal_.close();
}

int JXDeadLetters::removeExpired(const JXStoredTime& now) {
  const std::lock_guard<std::mutex> lock(mutex_);
  const Unlocking unlocking(journal_);
  const int lockError = lockFile(JXFile::Access::AppendExisting, now);
  const bool isMissing = lockError == ENOENT || lockError == ENOTDIR;
  if (lockError != 0 && !isMissing) return lockError;
  // A process that was killed while it rewrote the file left a copy. Nobody writes it now.
  int error = removeFile(path_ + kRewriteSuffix);
  if (isMissing) return error;
  if (hasExpired(now.runningMs) || journal_.size() > maxBytes_) error = rewrite(now, maxBytes_ / 2);
  // The process that wrote the last ones may have been killed before it synced them.
  dirty_ = true;
  closeFile();
  return error;
}

bool JXDeadLetters::hasExpired(std::int64_t nowMs) const {
  return std::any_of(locations_.begin(), locations_.end(),
                     [&](const Location& each) { return isExpired(each.bornMs, nowMs, maxAge_); });
}

// Opens and locks the file that is at the path now, and reads it if it has changed.
int JXDeadLetters::lockFile(JXFile::Access access, const JXStoredTime& now) {
  // An attempt fails only when another process replaces or deletes the file at the same time.
  constexpr int kOpenAttempts = 3;
  for (int attempt = 0; attempt < kOpenAttempts; ++attempt) {
    int error = access == JXFile::Access::Append ? makeFolder(folderOf(path_)) : 0;
    if (error != 0) return error;
    JXFile file = JXFile::open(path_, access, error);
    if (error != 0) return error;
    if (!file.tryLock(JXFile::Lock::Exclusive)) return EWOULDBLOCK;
    if (!file.isAt(path_)) continue;
    if (file.identity() == identity_) {
      journal_.reopen(std::move(file), path_);
    } else {
      journal_ = JXJournal(std::move(file), path_);
      // Matches no file size, so that the file is read.
      knownSize_ = std::numeric_limits<std::uint64_t>::max();
    }
    error = readLocations(now);
    if (error != 0) journal_.close();
    return error;
  }
  return EWOULDBLOCK;
}

int JXDeadLetters::readLocations(const JXStoredTime& now) {
  std::uint64_t size = 0;
  int error = journal_.file().size(size);
  if (error != 0 || size == knownSize_) return error;
  locations_.clear();
  JXRecordTimes times(now);
  const auto visit = [&](const JXFrame& frame) {
    const JXOutboxRecord record = decodeRecord(frame.payload);
    if (record.kind == JXRecordKind::Time) return times.add(record.time);
    locations_.push_back({frame.offset, frame.payload.size(), times.runningMs(record.createdMs)});
  };
  const JXJournal::Recovery recovery = journal_.recover(JXJournal::Writers::One, visit);
  quarantined_.copied = quarantined_.copied || recovery.quarantined.copied;
  quarantined_.deleted += recovery.quarantined.deleted;
  timeOffset_ = times.offset();
  bool needsTime = false;
  for (Location& each : locations_) {
    if (each.bornMs != JXRecordTimes::kUnknown) continue;
    each.bornMs = times.unknownMs();
    needsTime = !times.hasFirst();
  }
  // Otherwise the letters of an earlier version would be new at each start.
  return needsTime ? appendTime(journal_, now) : 0;
}

// Appends a time that the next request needs, unless it follows from the latest one in the file.
int JXDeadLetters::appendTime(JXJournal& journal, const JXStoredTime& time) {
  if (time.series == 0 || !needsStoredTime(timeOffset_, time)) return 0;
  const int error = journal.append({encodeTime(time)}, nullptr);
  if (error == 0) timeOffset_ = offsetOf(time);
  dirty_ = true;
  return error;
}

int JXDeadLetters::appendLocked(const JXOutboxRequest& request, int status, std::uint64_t series) {
  const JXDeadLetterHead head = encodeDeadLetterHead(request.url, request.createdMs, status,
                                                     static_cast<std::uint32_t>(keep_));
  int error = appendTime(journal_, {series, request.createdMs, request.bornMs, 0, 0});
  if (error != 0) return error;
  // Before the write, so that it is not repeated when memory is exhausted.
  locations_.push_back({0, head.size() + request.url.size() + request.body.size(), request.bornMs});
  error = journal_.append({{head.data(), head.size()}, request.url, request.body},
                          &locations_.back().offset);
  if (error != 0) {
    locations_.pop_back();
    return error;
  }
  dirty_ = true;
  return 0;
}

// Replaces the file with one that contains only the requests to keep, and at most `maxBytes` of
// them.
int JXDeadLetters::rewrite(const JXStoredTime& now, std::uint64_t maxBytes) {
  const std::string freshPath = path_ + kRewriteSuffix;
  int error = 0;
  JXJournal fresh(JXFile::open(freshPath, JXFile::Access::AppendEmptied, error), path_);
  std::deque<Location> kept;
  const std::optional<std::int64_t> oldOffset = std::exchange(timeOffset_, std::nullopt);
  std::size_t first = locations_.size();
  std::uint64_t bytes = 0;
  while (first > 0 && locations_.size() - first < keep_) {
    bytes += locations_[first - 1].length + kJXFrameHeaderSize;
    if (bytes > maxBytes) break;
    --first;
  }
  for (std::size_t i = first; error == 0 && i < locations_.size(); ++i) {
    if (isExpired(locations_[i].bornMs, now.runningMs, maxAge_)) continue;
    std::string payload;
    error = journal_.read(locations_[i].offset, locations_[i].length, payload);
    if (error != 0) break;
    kept.push_back({0, payload.size(), locations_[i].bornMs});
    const std::int64_t createdMs = decodeRecord(payload).createdMs;
    error = appendTime(fresh, {now.series, createdMs, locations_[i].bornMs, 0, 0});
    if (error == 0) error = fresh.append({payload}, &kept.back().offset);
  }
  if (error == 0) error = fresh.sync();
  error = replaceFile(freshPath, path_, error);
  if (error != 0) {
    timeOffset_ = oldOffset;
    return error;
  }
  journal_ = std::move(fresh);
  locations_ = std::move(kept);
  dirty_ = true;
  return 0;
}

int JXDeadLetters::sync() {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!dirty_) return 0;
  int error = 0;
  const JXFile file = JXFile::open(path_, JXFile::Access::Read, error);
  if (error == 0) error = file.synchronize();
  // A missing file was deleted in the meantime.
  if (error == ENOENT || error == ENOTDIR) error = 0;
  dirty_ = error != 0;
  return error != 0 ? error : synchronizeFolder(folderOf(path_));
}

bool JXDeadLetters::needsSync() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return dirty_;
}

bool JXDeadLetters::mayExist() const {
  struct stat status {};
  const auto exists = [&](const std::string& path) {
    return JXFileCalls::current().status(AT_FDCWD, path.c_str(), &status) == 0;
  };
  return exists(path_) || exists(path_ + kRewriteSuffix);
}

int JXDeadLetters::clear() {
  const std::lock_guard<std::mutex> lock(mutex_);
  dirty_ = false;
  identity_ = {};
  const int error = removeFile(path_);
  const int copyError = removeFile(path_ + kRewriteSuffix);
  return error != 0 ? error : copyError;
}

JXQuarantined JXDeadLetters::takeQuarantined() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return std::exchange(quarantined_, {});
}

}  // namespace jx
