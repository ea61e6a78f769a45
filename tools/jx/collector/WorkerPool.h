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

/// Runs jobs on threads that it starts as they are needed, up to a bound; further jobs wait in
/// order. Thread-safe.
class WorkerPool {
 public:
  explicit WorkerPool(std::size_t maxThreads) : maxThreads_(maxThreads) {}
  ~WorkerPool() { finish(); }
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// False when not one thread could be started; the job is then not run.
  bool run(std::function<void()> job);
  /// Waits until all jobs have run and all threads have ended. Takes no job after that.
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
