// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace jx::bench {

/// Returns nanoseconds of a clock that parent and child processes share.
inline std::int64_t monotonicNs() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

/// Returns a size from /proc/self/status in KiB, or 0 if it is missing. getrusage would include the
/// memory of the process before it executed this program.
inline long memoryKib(const char* name) {
  std::FILE* const file = std::fopen("/proc/self/status", "re");
  if (file == nullptr) return 0;
  char line[256];
  long size = 0;
  const std::size_t length = std::strlen(name);
  while (std::fgets(line, sizeof line, file) != nullptr) {
    if (std::strncmp(line, name, length) == 0) size = std::strtol(line + length, nullptr, 10);
  }
  std::fclose(file);
  return size;
}

/// The report of a launched program to its parent.
struct ReadyReport {
  std::int64_t readyNs = 0;
  long readyKib = 0;      ///< peak memory until it was ready
  long endKib = 0;        ///< peak memory until its end
  long anonymousKib = 0;  ///< memory at its end without file pages

  static ReadyReport now() { return {monotonicNs(), memoryKib("VmHWM:"), 0, 0}; }
  /// Prints one line on standard output. Call it last.
  void print() {
    endKib = memoryKib("VmHWM:");
    anonymousKib = memoryKib("RssAnon:");
    std::printf("%lld %ld %ld %ld\n", static_cast<long long>(readyNs), readyKib, endKib,
                anonymousKib);
    std::fflush(stdout);
  }
  bool parse(const char* line) {
    long long ready = 0;
    const int count =
        std::sscanf(line, "%lld %ld %ld %ld", &ready, &readyKib, &endKib, &anonymousKib);
    readyNs = ready;
    return count == 4;
  }
};

}  // namespace jx::bench
