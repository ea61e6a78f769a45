// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutboxRecord.h"

namespace jx {

/// Stores the requests that the server permanently rejected in the file "dead" of the outbox
/// folder, the last `keep` of them that are not older than `maxAge`. The file never exceeds
/// `maxBytes`: the oldest requests are deleted before. Processes share the file; each locks it
/// while changing it. It is open only then. Thread-safe. Operations that can fail return an errno
/// value, 0 for success.
class JXDeadLetters {
 public:
  /// With an empty folder name, no request is stored.
  JXDeadLetters(const std::string& folder, std::size_t keep, std::uint64_t maxBytes,
                std::chrono::milliseconds maxAge = std::chrono::milliseconds::max());

  /// Appends a request with the HTTP status that rejected it, then deletes the expired ones, as
  /// `removeExpired` does. A request that exceeds `maxBytes` alone is not stored. Returns
  /// EWOULDBLOCK while another process is writing the file.
  int append(const JXOutboxRequest& request, int status, const JXStoredTime& now);
  /// Deletes the requests that are older than the maximum age at `now`: the file no longer
  /// contains their bytes. Also deletes the remains of an interrupted deletion. Blocks until the
  /// disk has written the file. Returns EWOULDBLOCK while another process is writing it.
  int removeExpired(const JXStoredTime& now);
  /// Makes appended requests durable. Blocks until the disk has written them.
  int sync();
  bool needsSync() const;
  /// Returns false if the folder contains no file of dead letters.
  bool mayExist() const;
  /// Deletes the file, and the remains of an interrupted deletion.
  int clear();
  /// Returns what was quarantined since the last call.
  JXQuarantined takeQuarantined();

  const std::string& path() const { return path_; }

 private:
  struct Location {
    std::uint64_t offset;
    std::size_t length;
    std::int64_t bornMs;  ///< running time at which the request was added
  };

  int lockFile(JXFile::Access access, const JXStoredTime& now);
  int readLocations(const JXStoredTime& now);
  int appendLocked(const JXOutboxRequest& request, int status, std::uint64_t series);
  int appendTime(JXJournal& journal, const JXStoredTime& time);
  bool hasExpired(std::int64_t nowMs) const;
  std::uint64_t sizeWith(const JXOutboxRequest& request) const;
  int rewrite(const JXStoredTime& now, std::uint64_t maxBytes);
  void closeFile();

  const std::string path_;
  const std::size_t keep_;
  const std::uint64_t maxBytes_;
  const std::chrono::milliseconds maxAge_;
  mutable std::mutex mutex_;
  JXJournal journal_;                       ///< open while the file is locked
  JXFileIdentity identity_;                 ///< of the file that was read last
  std::deque<Location> locations_;          ///< of the requests in the file
  std::optional<std::int64_t> timeOffset_;  ///< of the latest time in the file
  std::uint64_t knownSize_ = 0;             ///< file size for which `locations_` is valid
  bool dirty_ = false;
  JXQuarantined quarantined_;  ///< not taken yet
};

}  // namespace jx
