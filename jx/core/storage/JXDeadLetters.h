// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string>

#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutboxRecord.h"

namespace jx {

/// Stores the requests that the server permanently rejected in the file "dead" of the outbox
/// folder, the last `keep` of them. Processes share the file; each locks it while appending.
/// Thread-safe. Operations that can fail return an errno value, 0 for success.
class JXDeadLetters {
 public:
  JXDeadLetters(const std::string& folder, std::size_t keep);

  /// Appends a request with the HTTP status that rejected it. Returns EWOULDBLOCK while another
  /// process is writing the file.
  int append(const JXOutboxRequest& request, int status);
  /// Makes appended requests durable. Blocks until the disk has written them.
  int sync();
  bool needsSync() const;
  /// Deletes the file.
  int clear();
  /// Returns true once after damaged data of the file was quarantined.
  bool takeDamaged();

  const std::string& path() const { return path_; }

 private:
  struct Location {
    std::uint64_t offset;
    std::size_t length;
  };

  int lockFile();
  int readLocations();
  int appendLocked(const JXOutboxRequest& request, int status);
  int rewrite();

  const std::string path_;
  const std::size_t keep_;
  mutable std::mutex mutex_;
  JXJournal journal_;
  std::deque<Location> locations_;  ///< of the frames in the file
  std::uint64_t knownSize_ = 0;     ///< file size for which `locations_` is valid
  bool dirty_ = false;
  bool damaged_ = false;
};

}  // namespace jx
