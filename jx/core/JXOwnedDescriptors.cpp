// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXOwnedDescriptors.h"

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <ctime>

namespace jx {
namespace {

// Many more than the library has open at a time. What does not fit is inherited by children.
constexpr int kMaxDescriptors = 256;
constexpr int kNone = -1;
constexpr long kPauseNs = 100'000;
constexpr int kMaxPauses = 1'000;

struct Slot {
  std::atomic<int> descriptor{kNone};
  std::atomic<int> twin{kNone};
};

Slot slots[kMaxDescriptors];
// Each side first writes its own counter and then reads the other's, so that one of them waits.
std::atomic<int> changes{0};
std::atomic<int> forks{0};

void pauseBriefly() {
  const timespec time{0, kPauseNs};
  ::nanosleep(&time, nullptr);
}

// Its number may belong to another file by now.
bool isSameSocket(int first, int second) {
  struct stat one {};
  struct stat other {};
  return ::fstat(first, &one) == 0 && ::fstat(second, &other) == 0 && S_ISSOCK(one.st_mode) &&
         one.st_ino != 0 && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

}  // namespace

JXOwnedDescriptors::Change::Change() noexcept {
  while (++changes, forks != 0) {
    --changes;
    pauseBriefly();
  }
}

JXOwnedDescriptors::Change::~Change() { --changes; }

void JXOwnedDescriptors::add(int descriptor, int twin) noexcept {
  for (Slot& slot : slots) {
    int expected = kNone;
    if (!slot.descriptor.compare_exchange_strong(expected, descriptor)) continue;
    slot.twin = twin;
    return;
  }
}

void JXOwnedDescriptors::remove(int descriptor) noexcept {
  for (Slot& slot : slots) {
    if (slot.descriptor != descriptor) continue;
    slot.twin = kNone;
    slot.descriptor = kNone;
    return;
  }
}

void JXOwnedDescriptors::beforeFork() noexcept {
  ++forks;
  for (int pauses = 0; changes != 0 && pauses < kMaxPauses; ++pauses)
    pauseBriefly();
}

void JXOwnedDescriptors::afterForkInParent() noexcept { --forks; }

void JXOwnedDescriptors::closeInForkedChild() noexcept {
  forks = 0;
  changes = 0;
  for (Slot& slot : slots) {
    const int descriptor = slot.descriptor.exchange(kNone);
    const int twin = slot.twin.exchange(kNone);
    if (twin != kNone && isSameSocket(twin, descriptor)) ::close(twin);
    if (descriptor != kNone) ::close(descriptor);
  }
}

}  // namespace jx
