// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXClock.h"

#include <time.h>

#include <chrono>
#include <string_view>

#ifdef __APPLE__
#include <sys/sysctl.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace jx {

namespace {

constexpr std::size_t kMaxIdSize = 64;

// Returns the size of the ID that the system has until it is restarted, 0 if there is none.
std::size_t readSystemId(char (&id)[kMaxIdSize]) {
#ifdef __APPLE__
  std::size_t size = sizeof id;
  return ::sysctlbyname("kern.bootsessionuuid", id, &size, nullptr, 0) == 0 ? size : 0;
#else
  const int file =
      ::open("/proc/sys/kernel/random/boot_id", O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (file < 0) return 0;
  const ssize_t size = ::read(file, id, sizeof id);
  ::close(file);
  return size > 0 ? static_cast<std::size_t>(size) : 0;
#endif
}

// FNV-1a, folded to 24 bits.
std::uint32_t hashOf(std::string_view id) {
  std::uint32_t hash = 2'166'136'261;
  for (const char c : id)
    hash = (hash ^ static_cast<unsigned char>(c)) * 16'777'619;
  return (hash >> 24 ^ hash) & 0xffffff;
}

}  // namespace

std::uint32_t JXClock::systemStart() const {
  static const std::uint32_t start = [] {
    char id[kMaxIdSize];
    const std::size_t size = readSystemId(id);
    return size != 0 ? hashOf({id, size}) : 0;
  }();
  return start;
}

std::int64_t JXClock::systemMs() const {
#ifdef CLOCK_BOOTTIME
  constexpr clockid_t kClock = CLOCK_BOOTTIME;
#else
  // Here this clock includes the time in which the system sleeps.
  constexpr clockid_t kClock = CLOCK_MONOTONIC;
#endif
  timespec time{};
  ::clock_gettime(kClock, &time);
  return std::int64_t{time.tv_sec} * 1'000 + time.tv_nsec / 1'000'000;
}

std::int64_t JXSystemClock::nowMs() const {
  const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count();
}

}  // namespace jx
