// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXRandom.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/auxv.h>
#include <sys/random.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>

namespace jx {
namespace {

// 64 UUIDs for one system call.
constexpr std::size_t kBufferSize = 1024;

// Incremented in a forked child, so that the inherited buffers count as empty.
std::atomic<std::uint32_t> forkGeneration{1};

struct Buffer {
  std::uint8_t bytes[kBufferSize];
  std::size_t left;
  std::uint32_t generation;  // 0 until the first use in a thread
};

thread_local Buffer buffer{{}, 0, 0};

void watchForks() {
  static const int registered =
      ::pthread_atfork(nullptr, nullptr, [] { forkGeneration.fetch_add(1); });
  static_cast<void>(registered);
}

bool fillFromKernel(std::uint8_t* bytes, std::size_t count) {
  while (count > 0) {
    // Early in a boot the kernel may not have enough entropy; do not block.
    const ssize_t got = ::getrandom(bytes, count, GRND_NONBLOCK);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    bytes += got;
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

bool fillFromDevice(std::uint8_t* bytes, std::size_t count) {
  const int descriptor = ::open("/dev/urandom", O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return false;
  while (count > 0) {
    const ssize_t got = ::read(descriptor, bytes, count);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    bytes += got;
    count -= static_cast<std::size_t>(got);
  }
  ::close(descriptor);
  return count == 0;
}

// One step of the SplitMix64 sequence.
std::uint64_t mix(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15U;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
  return value ^ (value >> 31);
}

std::uint64_t seedFromProcess() {
  static std::atomic<std::uint64_t> counter{0};
  std::uint64_t start[2] = {0, 0};
  if (const unsigned long address = ::getauxval(AT_RANDOM)) {
    // getauxval returns addresses as integers.
    const void* const bytes =
        reinterpret_cast<const void*>(address);  // NOLINT(performance-no-int-to-ptr)
    std::memcpy(start, bytes, sizeof start);
  }
  const auto ticks = [](auto time) {
    return static_cast<std::uint64_t>(time.time_since_epoch().count());
  };
  std::uint64_t seed = 0;
  for (const std::uint64_t part : {start[0], start[1], ticks(std::chrono::system_clock::now()),
                                   ticks(std::chrono::steady_clock::now()),
                                   static_cast<std::uint64_t>(::getpid()), counter.fetch_add(1)}) {
    seed = mix(seed ^ part);
  }
  return seed;
}

void fillFromProcess(std::uint8_t* bytes, std::size_t count) {
  std::uint64_t state = seedFromProcess();
  while (count > 0) {
    state = mix(state);
    const std::uint64_t word = mix(state ^ seedFromProcess());
    const std::size_t part = std::min(count, sizeof word);
    std::memcpy(bytes, &word, part);
    bytes += part;
    count -= part;
  }
}

}  // namespace

void fillRandom(std::uint8_t* bytes, std::size_t count) {
  static constexpr JXRandomSource kSources[] = {fillFromKernel, fillFromDevice};
  watchForks();
  const std::uint32_t generation = forkGeneration.load(std::memory_order_relaxed);
  while (count > 0) {
    if (buffer.generation != generation || buffer.left == 0) {
      fillFromFirst(kSources, std::size(kSources), buffer.bytes, kBufferSize);
      buffer.left = kBufferSize;
      buffer.generation = generation;
    }
    const std::size_t part = std::min(count, buffer.left);
    buffer.left -= part;
    // Each byte is returned once and then cleared.
    std::memcpy(bytes, buffer.bytes + buffer.left, part);
    std::memset(buffer.bytes + buffer.left, 0, part);
    bytes += part;
    count -= part;
  }
}

std::uint32_t drawRandomBits() {
  std::uint8_t bytes[4];
  fillRandom(bytes, sizeof bytes);
  std::uint32_t bits;
  std::memcpy(&bits, bytes, sizeof bits);
  return bits;
}

JXString makeRandomUUID() {
  std::uint8_t bytes[16];
  fillRandom(bytes, sizeof bytes);
  return randomUUIDString(bytes);
}

JXString randomUUIDString(const std::uint8_t (&bytes)[16]) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  char text[36];
  std::size_t length = 0;
  for (std::size_t i = 0; i < sizeof bytes; ++i) {
    unsigned byte = bytes[i];
    if (i == 6) byte = (byte & 0x0FU) | 0x40U;
    if (i == 8) byte = (byte & 0x3FU) | 0x80U;
    if (i == 4 || i == 6 || i == 8 || i == 10) text[length++] = '-';
    text[length++] = kDigits[byte >> 4];
    text[length++] = kDigits[byte & 0x0FU];
  }
  return JXString(std::string_view(text, length));
}

void fillFromFirst(const JXRandomSource* sources, std::size_t sourceCount, std::uint8_t* bytes,
                   std::size_t count) {
  for (std::size_t i = 0; i < sourceCount; ++i) {
    if (sources[i](bytes, count)) return;
  }
  fillFromProcess(bytes, count);
}

}  // namespace jx
