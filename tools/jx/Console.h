// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <mutex>
#include <string>
#include <string_view>

namespace jx {

/// Writes lines to standard error, with a line of progress below them that is written over. The
/// progress is shown on a terminal only. Thread-safe.
class Console {
 public:
  /// `showsProgress` false shows none on a terminal either.
  explicit Console(bool showsProgress);
  ~Console() { clearProgress(); }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  void line(std::string_view text);
  /// True when it is time for a new progress text, so that none is built in vain.
  bool wantsProgress() const;
  void progress(std::string_view text);
  void clearProgress();

 private:
  using Clock = std::chrono::steady_clock;

  void clearLocked();

  const bool showsProgress_;
  mutable std::mutex mutex_;
  bool isShown_ = false;
  Clock::time_point shownAt_;
};

}  // namespace jx
