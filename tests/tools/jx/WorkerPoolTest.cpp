// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/WorkerPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>

namespace jx {
namespace {

TEST(WorkerPool, EndsIdleThreadsAfterAFlood) {
  constexpr int kJobs = 20;
  WorkerPool pool(64, std::chrono::milliseconds(20));
  std::latch running(kJobs);
  for (int i = 0; i < kJobs; ++i)
    ASSERT_TRUE(pool.run([&running] { running.arrive_and_wait(); }));
  running.wait();
  while (pool.threads() > WorkerPool::kKeptThreads)
    std::this_thread::yield();
  std::atomic<int> done{0};
  for (int i = 0; i < kJobs; ++i)
    ASSERT_TRUE(pool.run([&done] { ++done; }));
  pool.finish();
  EXPECT_EQ(done, kJobs);
  EXPECT_EQ(pool.threads(), 0u);
}

}  // namespace
}  // namespace jx
