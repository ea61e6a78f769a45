// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXRunningTime.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>

#include "jx/core/storage/JXJournal.h"

namespace jx {
namespace {

// When a device is switched off, at most so much running time is lost.
constexpr std::int64_t kWriteEveryMs = 10 * 60 * 1'000;
// Room for more than a week of writes. A larger file is emptied before the next one.
constexpr std::uint64_t kMaxFileSize = 64 * 1024;
// Smaller differences of age do not matter; the system adjusts its clock slightly all the time.
constexpr std::int64_t kToleranceMs = 1'000;
// Some 35,000 years: only a file that this class did not write contains such a time.
constexpr std::int64_t kMaxMs = std::int64_t{1} << 50;
constexpr std::uint32_t kMaxStart = 0xffffff;

std::uint64_t randomSeries() {
  std::random_device random;
  return std::uint64_t{random()} << 32 | random() | 1;
}

bool isValid(const JXStoredTime& time) {
  const auto isInRange = [](std::int64_t ms) { return ms >= 0 && ms <= kMaxMs; };
  return time.series != 0 && isInRange(time.runningMs) && isInRange(time.systemMs) &&
         time.dayMs >= -kMaxMs && time.dayMs <= kMaxMs;
}

}  // namespace

// The first series in the file is that of the folder, so that processes that start at the same time
// agree. If the system was restarted since a time was stored, at least the time since the restart
// has passed.
int JXRunningTime::read(const JXFolder& folder) {
  if (series_ != 0) return 0;
  const std::int64_t nowMs = systemMs();
  const std::uint32_t start = clock_->systemStart() & kMaxStart;
  std::uint64_t series = 0;
  std::int64_t runningMs = 0;
  std::optional<std::int64_t> written;
  const int error = JXJournal::scan(folder.pathOf(kFileName), [&](const JXFrame& frame) {
    const JXStoredTime time = decodeRecord(frame.payload).time;
    if (!isValid(time)) return;
    if (series == 0) series = time.series;
    if (time.series != series) return;
    const bool mayBeSame = start == time.systemStart || start == 0 || time.systemStart == 0;
    const bool isSame = mayBeSame && nowMs >= time.systemMs;
    const std::int64_t passed = nowMs - (isSame ? time.systemMs : 0);
    runningMs = std::max(runningMs, time.runningMs + passed);
    written = std::max(written.value_or(0), time.runningMs);
  });
  // If the folder could not be read before, requests in memory would become older at once. Then
  // another series begins.
  const bool wouldJump = latestMs_ && runningMs > std::max(*latestMs_, baseMs_ + nowMs);
  if (series != 0 && !wouldJump) {
    series_ = series;
    written_ = written;
    baseMs_ = std::max(latestMs_.value_or(0), runningMs) - nowMs;
  }
  return error == ENOENT ? 0 : error;
}

std::int64_t JXRunningTime::systemMs() const {
  return std::clamp<std::int64_t>(clock_->systemMs(), 0, kMaxMs);
}

JXStoredTime JXRunningTime::now() {
  JXStoredTime time;
  time.series = series_;
  // An application may replace the clock.
  time.dayMs = std::clamp(clock_->nowMs(), -kMaxMs, kMaxMs);
  time.systemMs = systemMs();
  time.systemStart = clock_->systemStart() & kMaxStart;
  const std::int64_t runningMs = std::min(baseMs_ + time.systemMs, kMaxMs);
  latestMs_ = std::max(latestMs_.value_or(0), runningMs);
  time.runningMs = *latestMs_;
  return time;
}

int JXRunningTime::write(const JXFolder& folder) {
  JXStoredTime time = now();
  const bool isNew = series_ == 0;
  if (isNew) time.series = randomSeries();
  const int error = append(folder, time);
  if (error != 0) return error;
  written_ = time.runningMs;
  hasWritten_ = true;
  // Another process may have written first.
  const int readError = isNew ? read(folder) : 0;
  if (series_ == 0) series_ = time.series;
  return readError;
}

int JXRunningTime::append(const JXFolder& folder, const JXStoredTime& time) {
  int error = 0;
  JXFile file = JXFile::open(folder, kFileName, JXFile::Access::Append, error);
  std::uint64_t size = 0;
  if (error == 0) error = file.size(size);
  if (error == 0 && size > kMaxFileSize) error = file.truncate(0);
  if (error != 0) return error;
  std::string payload = encodeTime(time);
  JXFrameHeader header = makeFrameHeader({payload});
  const iovec parts[] = {{header.data(), header.size()}, {payload.data(), payload.size()}};
  std::size_t written = 0;
  error = file.append(parts, 2, written);
  // Readers skip a partial frame.
  return error == 0 && written < header.size() + payload.size() ? ENOSPC : error;
}

int JXRunningTime::sync(const JXFolder& folder) {
  int error = 0;
  const JXFile file = JXFile::open(folder, kFileName, JXFile::Access::Read, error);
  if (error == 0) error = file.synchronize();
  return error == ENOENT ? 0 : error;
}

// Soon after a start, so that the time advances although the system runs for minutes only.
bool JXRunningTime::isDue() {
  const std::int64_t limitMs = hasWritten_ ? kWriteEveryMs : kToleranceMs;
  return !written_ || now().runningMs - *written_ >= limitMs;
}

void JXRunningTime::restart() {
  series_ = 0;
  baseMs_ = 0;
  latestMs_.reset();
  written_.reset();
}

void JXRecordTimes::add(const JXStoredTime& time) {
  const bool isKnown = isValid(time) && time.series == now_.series;
  offset_.reset();
  if (!isKnown) return;
  offset_ = offsetOf(time);
  if (!std::exchange(hasFirst_, true)) firstMs_ = std::min(time.runningMs, now_.runningMs);
}

std::int64_t JXRecordTimes::runningMs(std::int64_t dayMs) const {
  const bool isKnown = offset_ && dayMs >= -kMaxMs && dayMs <= kMaxMs;
  if (!isKnown) return kUnknown;
  return std::clamp<std::int64_t>(dayMs - *offset_, 0, now_.runningMs);
}

// Failures of an unknown time happened now: the request is retried after the whole delay.
JXRequestFailures JXRecordTimes::known(JXRequestFailures failures) const {
  if (offset_) {
    failures.firstMs = std::clamp<std::int64_t>(failures.firstMs, 0, now_.runningMs);
    failures.lastMs = std::clamp<std::int64_t>(failures.lastMs, failures.firstMs, now_.runningMs);
    failures.lastDayMs = failures.lastMs + *offset_;
  } else {
    failures.firstMs = failures.lastMs = now_.runningMs;
    failures.lastDayMs = now_.dayMs;
  }
  return failures;
}

// A damaged file may contain any time of day.
std::int64_t offsetOf(const JXStoredTime& time) {
  return std::clamp(time.dayMs, -kMaxMs, kMaxMs) - time.runningMs;
}

bool needsStoredTime(const std::optional<std::int64_t>& offset, const JXStoredTime& time) {
  return !offset || std::abs(offsetOf(time) - *offset) > kToleranceMs;
}

}  // namespace jx
