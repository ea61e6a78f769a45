// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/platform/JXClock.h"

namespace jx {

/// The time that is known to have passed while processes used an outbox. Unlike the time of day it
/// never jumps, so that no event expires because a clock was set. It continues in later processes,
/// also after a restart of the system, through a file in the outbox. Time in which the system is
/// switched off is not known. Not synchronised.
class JXRunningTime {
 public:
  static constexpr const char* kFileName = "clock";

  explicit JXRunningTime(std::shared_ptr<const JXClock> clock) : clock_(std::move(clock)) {}

  /// Continues the time of the file in this folder. Does nothing if a time was read or written
  /// before. Returns an errno value, 0 for success and for a missing file.
  int read(const JXFolder& folder);
  /// Returns the present time. Its series is 0 until one was read or written.
  JXStoredTime now();
  /// Adds the present time to the file. Returns an errno value, 0 for success.
  int write(const JXFolder& folder);
  /// Makes the file durable. Blocks until the disk has written it. Returns an errno value, 0 for
  /// success and for a missing file.
  static int sync(const JXFolder& folder);
  /// Returns true if so much time has passed since the file was written that it should be written
  /// again, because a later process continues with the time in the file.
  bool isDue();
  /// Returns true if the folder has no file of this time, as far as is known.
  bool isMissing() const { return !written_; }
  /// Call this when the folder was replaced.
  void setMissing() { written_.reset(); }
  /// Starts another series, unrelated to what was stored before.
  void restart();

 private:
  std::int64_t systemMs() const;
  int append(const JXFolder& folder, const JXStoredTime& time);

  const std::shared_ptr<const JXClock> clock_;
  std::uint64_t series_ = 0;
  std::int64_t baseMs_ = 0;               ///< running time when the clock of the system showed 0
  std::optional<std::int64_t> latestMs_;  ///< running time that was returned last
  std::optional<std::int64_t> written_;   ///< running time in the file
  bool hasWritten_ = false;               ///< in this process
};

/// Computes the running time at which the records of a file were created, from the times between
/// them. The age of a record before the first time of the present series is not known: it counts as
/// created at that time, or now if there is none.
class JXRecordTimes {
 public:
  static constexpr std::int64_t kUnknown = -1;

  explicit JXRecordTimes(const JXStoredTime& now) : now_(now), firstMs_(now.runningMs) {}

  /// Call this for each time in the file, between the records.
  void add(const JXStoredTime& time);
  /// Returns the running time of a record; kUnknown if it is not known.
  std::int64_t runningMs(std::int64_t dayMs) const;
  /// Returns failures with the times at which they count as having happened.
  JXRequestFailures known(JXRequestFailures failures) const;
  /// Returns the running time of the records for which it is not known, after the whole file.
  std::int64_t unknownMs() const { return firstMs_; }
  /// Returns true if the file contains a time of the present series.
  bool hasFirst() const { return hasFirst_; }
  /// Returns the difference between the time of day and the running time of the next record.
  std::optional<std::int64_t> offset() const { return offset_; }

 private:
  const JXStoredTime now_;
  std::int64_t firstMs_;
  bool hasFirst_ = false;
  std::optional<std::int64_t> offset_;
};

/// Returns the difference between the time of day and the running time.
std::int64_t offsetOf(const JXStoredTime& time);
/// Returns whether a time must be stored before a record of `time`, if `offset` is that of the
/// latest one in the file.
bool needsStoredTime(const std::optional<std::int64_t>& offset, const JXStoredTime& time);

}  // namespace jx
