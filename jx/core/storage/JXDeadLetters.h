// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string>

#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutbox.h"

namespace jx {

/// The requests that a server refused for good, in the file "dead" of the outbox folder: the last
/// `keep` of them. Processes share the file; each locks it while it appends. Thread-safe. Failures
/// are errno values, 0 for success.
class JXDeadLetters {
 public:
  JXDeadLetters(const std::string& folder, std::size_t keep);

  /// Keeps one. EWOULDBLOCK when another process is writing the file in this instant.
  int append(const JXOutboxRequest& request, int status);
  /// Waits until what was appended is on the disk.
  int sync();
  bool needsSync() const;
  /// Deletes all.
  int clear();
  /// True once after a damaged part of the file was set aside.
  bool takeDamaged();

  const std::string& path() const { return path_; }

 private:
  struct Place {
    std::uint64_t offset;
    std::size_t length;
  };

  int lockFile();
  int readPlaces();
  int appendLocked(const JXOutboxRequest& request, int status);
  int rewrite();

  const std::string path_;
  const std::size_t keep_;
  mutable std::mutex mutex_;
  JXJournal journal_;
  std::deque<Place> places_;     ///< of the letters in the file
  std::uint64_t knownSize_ = 0;  ///< of the file when `places_` was right
  bool dirty_ = false;
  bool damaged_ = false;
};

}  // namespace jx
