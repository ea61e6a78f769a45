// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace jx {

/// Runs jobs on a pool of threads that grows on demand up to a limit. Further jobs are queued in
/// order. Thread-safe.
class WorkerPool {
 public:
  explicit WorkerPool(std::size_t maxThreads) : maxThreads_(maxThreads) {}
  ~WorkerPool() { finish(); }
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// Queues a job. Returns false, without running it, when no thread could be started or finish()
  /// was called.
  bool run(std::function<void()> job);
  /// Waits until all jobs have run and all threads have ended. Later calls of run() return false.
  void finish();

 private:
  void work();

  const std::size_t maxThreads_;
  std::mutex mutex_;
  std::condition_variable hasWork_;
  std::deque<std::function<void()>> jobs_;
  std::vector<std::thread> threads_;
  std::size_t idle_ = 0;
  bool finishing_ = false;
};

}  // namespace jx
