// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace jx {

/// Counts what goes wrong in one storage and makes one log line of each cause, however often it
/// happens, and however many storages of one folder it hits: a folder that cannot be written is one
/// cause. The lines are handed out to be logged later, because the log's sink belongs to the host
/// and may call back while the storage is locked. Not synchronised: the owner's lock guards it.
class JXStorageReport {
 public:
  struct Line {
    std::string text;
    int level;
  };

  /// `subject` begins each line, for example "outbox /data/jx/outbox". `folder` is what several
  /// storages have in common.
  JXStorageReport(std::string subject, std::string folder)
      : subject_(std::move(subject)), folder_(std::move(folder)) {}

  /// `action`, in the words of the line ("append"), failed with the errno value `error`.
  void failed(const char* action, int error);
  /// Part of a file could not be read and was set aside.
  void damaged(const std::string& path);
  /// What had failed works again: the next failure is worth a line again.
  void recovered();

  std::uint64_t failures() const { return failures_; }
  std::uint64_t damagedFiles() const { return damagedFiles_; }

  /// The lines since the last call.
  std::vector<Line> takeLines() { return std::exchange(lines_, {}); }
  /// Hands lines to the library's log.
  static void log(const std::vector<Line>& lines);

 private:
  std::string subject_;
  std::string folder_;
  std::vector<Line> lines_;
  std::uint64_t failures_ = 0;
  std::uint64_t damagedFiles_ = 0;
};

}  // namespace jx
