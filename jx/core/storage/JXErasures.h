// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "jx/core/storage/JXFolder.h"
#include "jx/platform/JXPlatform.h"

namespace jx {

/// Erases everything that the library stored, and notices that another process did.
///
/// The file "erased" of the storage folder contains a state, "pending" or "done", and a random
/// token. An erase writes the file with a new token before it deletes the others, so that the next
/// start finishes an erase that was interrupted. The file stays: a running process notices by the
/// new token that the values and requests it has in memory were erased, and does not write them
/// again. It contains nothing else.
///
/// `count` changes with each erase, of this process or noticed. The owners of values in memory
/// compare it with the count at which they read or created them. Thread-safe. While its
/// lock is held, only files and the log are used.
class JXErasures {
 public:
  /// Finishes an interrupted erase of the folder. Create it before anything in the folder is read.
  /// Without a folder (an empty string), only values in memory and in `defaults` are erased.
  /// `defaults`, which may be null, is the settings store of the system.
  explicit JXErasures(std::string folder, JXPlatformDefaults* defaults = nullptr);

  /// Deletes the files and the values, and returns one line for each that could not be deleted,
  /// with the reason. Continues after failures. Blocks on disk I/O.
  std::vector<std::string> erase();
  /// The two steps of `erase`, for a process that uses the folder: it closes the deleted files in
  /// between. On a full disk, the mark cannot be written before that.
  std::vector<std::string> begin();
  void complete(std::vector<std::string>& left);
  /// Writes the mark of a complete erase if `complete` could not: the next start would erase again.
  /// Blocks on disk I/O.
  void writeLackingMark();
  /// Notices an erase by another process, and finishes it if that process has not; returns `count`.
  /// Costs one system call; waits for an erase that another thread is running. A file that is
  /// created before the call, and found to be current by it, is not missed by an erase.
  std::uint64_t check();
  /// Returns the number of erases so far.
  std::uint64_t count() const { return count_.load(); }

 private:
  struct Mark {
    bool pending = false;
    std::string token;  ///< empty if the file does not exist
  };
  Mark readMark(int& error) const;
  int writeMark(const Mark& mark) const;
  int replaceMark(const Mark& mark) const;
  std::uint64_t readChange();
  void applyMark(const Mark& mark);
  void adopt(const std::string& token);
  std::vector<std::string> finish();
  void removeAll(std::vector<std::string>& left);
  void completeMark(std::vector<std::string>& left);
  void logFailure(const std::vector<std::string>& left) const;

  const std::string folder_;
  const std::string path_;
  JXPlatformDefaults* const defaults_;
  std::mutex mutex_;
  JXFolderWatch watch_;       ///< of the mark
  std::string token_;         ///< of the last erase
  bool isTokenKnown_ = true;  ///< false until the mark can be read
  /// The token of the mark that `complete` replaces: of this erase, or of an earlier one that this
  /// process could not replace.
  std::string replaceable_;
  std::atomic<bool> lacksMark_{false};  ///< the last erase is complete, but not its mark
  std::atomic<std::uint64_t> count_{0};
};

/// Marks the time in which this thread composes a request. A request that was begun before an erase
/// contains identifiers that are erased, so the outbox drops it. Scopes may be nested: an observer
/// of a request may compose another one.
class JXErasureScope {
 public:
  explicit JXErasureScope(JXErasures& erasures);
  ~JXErasureScope();
  JXErasureScope(const JXErasureScope&) = delete;
  JXErasureScope& operator=(const JXErasureScope&) = delete;

  /// Treats the current request of this thread as begun now. Call it while the request contains no
  /// value that an erase replaces.
  static void restart(const JXErasures& erasures);
  /// Returns the count at which this thread began to compose a request; outside a scope, the
  /// current one.
  static std::uint64_t begunAt(JXErasures& erasures);

 private:
  const std::optional<std::uint64_t> outer_;
};

}  // namespace jx
