// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

namespace jx {

/// Runs jobs on a pool of threads that grows on demand up to a limit, and shrinks when threads are
/// idle. Further jobs are queued in order. Thread-safe.
class WorkerPool {
 public:
  /// Number of threads that do not end when they are idle.
  static constexpr std::size_t kKeptThreads = 8;

  /// Threads that are idle for the given time end.
  explicit WorkerPool(std::size_t maxThreads,
                      std::chrono::milliseconds idleTime = std::chrono::seconds(10))
      : maxThreads_(maxThreads), idleTime_(idleTime) {}
  ~WorkerPool() { finish(); }
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// Queues a job. Returns false, without running it, when no thread could be started or finish()
  /// was called.
  bool run(std::function<void()> job);
  /// Waits until all jobs have run and all threads have ended. Later calls of run() return false.
  void finish();
  /// Returns the number of threads.
  std::size_t threads() const;

 private:
  using Threads = std::list<std::thread>;

  void work(Threads::iterator self);

  const std::size_t maxThreads_;
  const std::chrono::milliseconds idleTime_;
  mutable std::mutex mutex_;
  std::condition_variable hasWork_;
  std::deque<std::function<void()>> jobs_;
  Threads threads_;
  Threads retired_;  // at most one, which the next one to retire joins
  std::size_t idle_ = 0;
  bool finishing_ = false;
};

}  // namespace jx
