// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "WorkerTransport.h"

#include <exception>
#include <utility>

WorkerTransport::WorkerTransport(Post post) : post_(std::move(post)), worker_([this] { work(); }) {}

WorkerTransport::~WorkerTransport() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    stopping_ = true;
  }
  requested_.notify_all();
  worker_.join();
}

void WorkerTransport::start(jx::JXHttpRequest request) {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    waiting_.push_back(std::move(request));
  }
  requested_.notify_one();
}

std::vector<jx::JXHttpResult> WorkerTransport::poll(
    std::optional<std::chrono::milliseconds> timeout) {
  std::unique_lock<std::mutex> lock(mutex_);
  const auto mayReturn = [this] { return woken_ || !results_.empty(); };
  if (timeout) {
    changed_.wait_for(lock, *timeout, mayReturn);
  } else {
    changed_.wait(lock, mayReturn);
  }
  woken_ = false;
  return std::exchange(results_, {});
}

void WorkerTransport::wakeUp() noexcept {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    woken_ = true;
  }
  changed_.notify_all();
}

void WorkerTransport::abortAll() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  ++aborts_;
  waiting_.clear();
  results_.clear();
}

void WorkerTransport::suspend() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  suspended_ = true;
}

void WorkerTransport::resume() noexcept {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    suspended_ = false;
  }
  requested_.notify_one();
}

void WorkerTransport::work() {
  std::unique_lock<std::mutex> lock(mutex_);
  while (true) {
    requested_.wait(lock, [this] { return stopping_ || (!suspended_ && !waiting_.empty()); });
    if (stopping_) return;
    jx::JXHttpRequest request = std::move(waiting_.front());
    waiting_.pop_front();
    const std::uint64_t aborts = aborts_;
    lock.unlock();
    jx::JXHttpResult result = send(std::move(request));
    lock.lock();
    if (aborts != aborts_) continue;
    results_.push_back(std::move(result));
    changed_.notify_all();
  }
}

jx::JXHttpResult WorkerTransport::send(jx::JXHttpRequest request) const {
  jx::JXHttpResult result;
  result.request = std::move(request);  // the library needs its ID, even after a failure
  try {
    const HttpResponse response = post_(result.request.url, result.request.body);
    result.outcome.status = response.status;
    result.outcome.neverSendable = response.invalidUrl;
    if (!response.retryAfter.empty()) result.retryAfter = response.retryAfter;
    if (!response.date.empty()) result.date = response.date;
    result.reason = response.error;
  } catch (const std::exception& error) {
    result.reason = error.what();  // no response: the library retries the request
  }
  return result;
}
