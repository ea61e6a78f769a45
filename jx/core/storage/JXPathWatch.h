// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace jx {

/// Detects with one system call whether other files than before may be at the paths in the storage
/// folder and in the folder of the outbox.
///
/// A file that was found at its path is still there while `changes` returns the same number: no
/// folder of the path was moved, deleted or replaced, and no file of the two folders was deleted,
/// renamed or replaced. The number may also change without a reason. Where the system cannot watch
/// the path, it changes with each call: paths must then be compared. It also changes after
/// `kMaxAge`, because a file system that is mounted over a folder is not reported. Uses one file
/// descriptor. Thread-safe, except in a forked child, where `changes` reports nothing.
class JXPathWatch {
 public:
  static constexpr std::chrono::milliseconds kMaxAge{100};
  /// Returns the time since a fixed moment.
  using Now = std::chrono::milliseconds (*)();

  /// `folder` is the absolute path of the storage folder, `inner` the outbox in it. Watches nothing
  /// before `renew`.
  JXPathWatch(const std::string& folder, const std::string& inner, Now now = &systemNow);
  ~JXPathWatch();
  JXPathWatch(const JXPathWatch&) = delete;
  JXPathWatch& operator=(const JXPathWatch&) = delete;

  /// Returns a number larger than 0. Call it first, and then compare the path with the file: a
  /// change during the comparison changes the next number.
  std::uint64_t changes() noexcept;
  /// Watches the folders that are at the path now. Call this when a folder was created.
  void renew() noexcept;

 private:
  static std::chrono::milliseconds systemNow();
  bool open() noexcept;
  bool watchAll() noexcept;
  void drain() const noexcept;

  std::mutex mutex_;
  std::vector<std::string> folders_;  ///< the paths of all folders, from the outermost one
  std::vector<int> watches_;          ///< of `folders_`; -1: none
  std::vector<int> replaced_;         ///< the watches of an earlier call
  const Now now_;
  std::chrono::milliseconds changedAt_{0};
  int events_ = -1;  ///< descriptor of the changes of the folders
  bool isWatching_ = false;
  std::uint64_t changes_ = 1;
};

/// A file of a folder that may be watched, found at its path before. Not synchronised.
class JXSeenAtPath {
 public:
  /// Returns whether the file is at its path. Calls `isAtPath` only if this may have changed;
  /// always if `watch` is null.
  template <typename Check>
  bool confirm(JXPathWatch* watch, const Check& isAtPath) {
    const std::uint64_t changes = watch != nullptr ? watch->changes() : 0;
    if (changes != 0 && changes == changes_) return true;
    changes_ = 0;
    if (!isAtPath()) return false;
    changes_ = changes;
    return true;
  }
  /// Calls `isAtPath` the next time.
  void forget() { changes_ = 0; }

 private:
  std::uint64_t changes_ = 0;  ///< the number at which the file was at its path; 0: none
};

}  // namespace jx
