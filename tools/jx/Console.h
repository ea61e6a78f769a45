// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <mutex>
#include <string>
#include <string_view>

namespace jx {

/// Writes messages to standard error, followed by a progress line that is overwritten. Progress is
/// shown only on a terminal. Thread-safe.
class Console {
 public:
  /// With `showsProgress` false, progress is not shown on a terminal either.
  explicit Console(bool showsProgress);
  ~Console() { clearProgress(); }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  void line(std::string_view text);
  /// Returns true when a progress update is due, so that callers format no text that is not shown.
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
