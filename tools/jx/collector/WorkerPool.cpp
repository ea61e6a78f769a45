// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/WorkerPool.h"

#include <system_error>
#include <utility>

namespace jx {

bool WorkerPool::run(std::function<void()> job) {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (finishing_) return false;
  if (jobs_.size() >= idle_ && threads_.size() < maxThreads_) {
    try {
      threads_.emplace_back([this] { work(); });
    } catch (const std::system_error&) {
      // The system cannot start another thread: a running one will take the job.
      if (threads_.empty()) return false;
    }
  }
  jobs_.push_back(std::move(job));
  hasWork_.notify_one();
  return true;
}

void WorkerPool::finish() {
  std::vector<std::thread> threads;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    finishing_ = true;
    threads.swap(threads_);
  }
  hasWork_.notify_all();
  for (std::thread& thread : threads)
    thread.join();
}

void WorkerPool::work() {
  std::unique_lock<std::mutex> lock(mutex_);
  for (;;) {
    ++idle_;
    hasWork_.wait(lock, [this] { return finishing_ || !jobs_.empty(); });
    --idle_;
    if (jobs_.empty()) return;
    const std::function<void()> job = std::move(jobs_.front());
    jobs_.pop_front();
    lock.unlock();
    job();
    lock.lock();
  }
}

}  // namespace jx
