// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/Console.h"

#include <unistd.h>

#include <cstdio>

namespace jx {
namespace {

constexpr std::chrono::milliseconds kProgressInterval{100};

}  // namespace

Console::Console(bool showsProgress)
    : showsProgress_(showsProgress && ::isatty(STDERR_FILENO) == 1) {}

void Console::line(std::string_view text) {
  const std::lock_guard<std::mutex> lock(mutex_);
  clearLocked();
  std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
}

bool Console::wantsProgress() const {
  if (!showsProgress_) return false;
  const std::lock_guard<std::mutex> lock(mutex_);
  return !isShown_ || Clock::now() - shownAt_ >= kProgressInterval;
}

void Console::progress(std::string_view text) {
  if (!showsProgress_) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  clearLocked();
  std::fprintf(stderr, "%.*s", static_cast<int>(text.size()), text.data());
  std::fflush(stderr);
  isShown_ = true;
  shownAt_ = Clock::now();
}

void Console::clearProgress() {
  const std::lock_guard<std::mutex> lock(mutex_);
  clearLocked();
}

void Console::clearLocked() {
  if (isShown_) std::fputs("\r\033[K", stderr);
  isShown_ = false;
}

}  // namespace jx
