// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/JXLogDeferral.h"
#include "jx/core/JXSpinning.h"
#include "jx/core/storage/JXQuarantine.h"

namespace jx {

/// Counts the failures of one storage and creates one log message per cause, however often it
/// occurs and however many storages of a folder it affects: a folder that cannot be written is one
/// cause, until each storage that reported it has recovered. Messages are returned to be logged
/// later, because the log sink belongs to the application and may call back while the storage is
/// locked. Not synchronised: guarded by the owner's lock.
class JXStorageReport {
 public:
  struct Message {
    std::string text;
    int level;
  };

  /// `subject` is the start of each message, for example "outbox /data/jx/outbox". `folder` is the
  /// folder that several storages share.
  JXStorageReport(std::string subject, std::string folder)
      : subject_(std::move(subject)), folder_(std::move(folder)) {}
  ~JXStorageReport() { recovered(); }
  JXStorageReport(const JXStorageReport&) = delete;
  JXStorageReport& operator=(const JXStorageReport&) = delete;

  /// Reports that `action` (a verb phrase such as "append a request") failed with the errno value
  /// `error`.
  void failed(const char* action, int error) noexcept;
  /// Reports the quarantine of damaged data of the file `path`, if there was one, and of deleted
  /// quarantine files.
  void quarantined(const std::string& path, const JXQuarantined& quarantined) noexcept;
  /// Reports that an event was dropped because memory is exhausted. The message is created as soon
  /// as there is memory for it.
  void outOfMemory() noexcept;
  /// Reports that the operations of this storage succeed again. A cause that no other storage
  /// reports is over: its next failure is logged again.
  void recovered() noexcept;

  std::uint64_t failures() const { return failures_; }
  std::uint64_t damagedFiles() const { return damagedFiles_; }
  std::uint64_t deletedQuarantineFiles() const { return deletedFiles_; }

  /// Returns the messages since the last call.
  std::vector<Message> takeMessages() noexcept;
  /// Logs the messages. Call it without the owner's lock.
  static void log(const std::vector<Message>& messages);

 private:
  std::string subject_;
  std::string folder_;
  std::vector<Message> messages_;
  std::uint64_t failures_ = 0;
  std::uint64_t damagedFiles_ = 0;
  std::uint64_t deletedFiles_ = 0;
  bool hasLoggedDeletion_ = false;
  bool isOutOfMemory_ = false;  ///< reported, until `recovered` is called twice without another
  bool ranOut_ = false;         ///< since the last `recovered`
  bool owesMessage_ = false;    ///< of `outOfMemory`
};

/// Locks a storage. Its destructor logs the messages of the report after releasing the lock,
/// because the log sink may call back.
class JXReportingLock {
 public:
  JXReportingLock(std::mutex& mutex, JXStorageReport& report)
      : report_(report), lock_(mutex, std::defer_lock) {
    lock();
  }
  ~JXReportingLock() {
    if (!lock_.owns_lock()) lock();
    const auto messages = report_.takeMessages();
    lock_.unlock();
    JXStorageReport::log(messages);
  }
  void unlock() { lock_.unlock(); }
  void lock() { lockSpinning(lock_); }

 private:
  JXLogDeferral deferral_;  ///< ends last, so that other messages are logged without the lock too
  JXStorageReport& report_;
  std::unique_lock<std::mutex> lock_;
};

}  // namespace jx
