// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXSpinning.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>
#include <vector>

namespace jx {
namespace {

// Counts the attempts, of which the first ones fail.
struct CountingMutex {
  int failures = 0;
  int tries = 0;
  int locks = 0;

  bool try_lock() { return ++tries > failures; }
  void lock() { ++locks; }
};

TEST(Spinning, LocksAFreeMutexWithOneAttempt) {
  CountingMutex mutex;
  lockSpinning(mutex);
  EXPECT_EQ(mutex.tries, 1);
  EXPECT_EQ(mutex.locks, 0);
}

TEST(Spinning, DoesNotSleepWhenTheOwnerUnlocksSoon) {
  CountingMutex mutex;
  mutex.failures = 10;
  lockSpinning(mutex);
  const bool spins = std::thread::hardware_concurrency() > 1;
  EXPECT_EQ(mutex.locks, spins ? 0 : 1);
  EXPECT_EQ(mutex.tries, spins ? 11 : 1);
}

TEST(Spinning, SleepsWhenTheOwnerDoesNotUnlock) {
  CountingMutex mutex;
  mutex.failures = 1'000'000;
  lockSpinning(mutex);
  EXPECT_EQ(mutex.locks, 1);
  EXPECT_LT(mutex.tries, 1'000);
}

TEST(Spinning, LocksARecursiveMutexAgain) {
  std::recursive_mutex mutex;
  lockSpinning(mutex);
  lockSpinning(mutex);
  mutex.unlock();
  mutex.unlock();
  std::thread([&] {
    ASSERT_TRUE(mutex.try_lock());
    mutex.unlock();
  }).join();
}

TEST(Spinning, ExcludesOtherThreads) {
  std::mutex mutex;
  int count = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int j = 0; j < 10'000; ++j) {
        lockSpinning(mutex);
        ++count;
        mutex.unlock();
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(count, 40'000);
}

}  // namespace
}  // namespace jx
