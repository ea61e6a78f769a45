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
    const auto self = threads_.emplace(threads_.end());
    try {
      // The thread waits for the lock before it uses its entry.
      *self = std::thread([this, self] { work(self); });
    } catch (const std::system_error&) {
      threads_.erase(self);
      // The system cannot start another thread: a running one will take the job.
      if (threads_.empty()) return false;
    }
  }
  jobs_.push_back(std::move(job));
  hasWork_.notify_one();
  return true;
}

void WorkerPool::finish() {
  Threads threads;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    finishing_ = true;
    threads.splice(threads.end(), threads_);
    threads.splice(threads.end(), retired_);
  }
  hasWork_.notify_all();
  for (std::thread& thread : threads)
    thread.join();
}

std::size_t WorkerPool::threads() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return threads_.size();
}

void WorkerPool::work(Threads::iterator self) {
  std::unique_lock<std::mutex> lock(mutex_);
  for (;;) {
    ++idle_;
    const bool hasWork =
        hasWork_.wait_for(lock, idleTime_, [this] { return finishing_ || !jobs_.empty(); });
    --idle_;
    if (!hasWork && threads_.size() <= kKeptThreads) continue;
    if (!hasWork) {
      Threads previous;
      previous.splice(previous.end(), retired_);
      retired_.splice(retired_.end(), threads_, self);
      lock.unlock();
      for (std::thread& thread : previous)
        thread.join();
      return;
    }
    if (jobs_.empty()) return;
    const std::function<void()> job = std::move(jobs_.front());
    jobs_.pop_front();
    lock.unlock();
    job();
    lock.lock();
  }
}

}  // namespace jx
