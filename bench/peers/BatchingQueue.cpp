// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/peers/BatchingQueue.h"

#include <stdexcept>
#include <utility>

namespace jx::bench {
namespace {

constexpr std::size_t kBatch = 30;
constexpr std::chrono::seconds kInterval{1};
constexpr std::chrono::seconds kBackoff{1};

std::size_t drop(char*, std::size_t, std::size_t bytes, void*) { return bytes; }

}  // namespace

BatchingQueue::BatchingQueue(const QueueOptions& options, std::unique_ptr<EventStore> store)
    : json_(options.body), url_(options.host + "/events?count="), store_(std::move(store)) {
  if (json_.write() != options.body) throw std::runtime_error("RapidJSON writes a different body");
  curl_global_init(CURL_GLOBAL_DEFAULT);
  headers_ = curl_slist_append(headers_, "Content-Type: application/json; charset=utf-8");
  headers_ = curl_slist_append(headers_, "Expect:");
  easy_ = curl_easy_init();
  curl_easy_setopt(easy_, CURLOPT_CAINFO, options.caFile.c_str());
  curl_easy_setopt(easy_, CURLOPT_HTTPHEADER, headers_);
  curl_easy_setopt(easy_, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
  curl_easy_setopt(easy_, CURLOPT_TIMEOUT, 30L);
  curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy_, CURLOPT_NOPROXY, "*");
  curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, drop);
  queued_ = store_->size();
  thread_ = std::thread(&BatchingQueue::run, this);
}

BatchingQueue::~BatchingQueue() {
  {
    const std::lock_guard lock(mutex_);
    stops_ = true;
  }
  wake_.notify_one();
  thread_.join();
  curl_easy_cleanup(easy_);
  curl_slist_free_all(headers_);
}

void BatchingQueue::execute() {
  const std::string_view body = json_.write();
  const std::lock_guard lock(mutex_);
  store_->add(body);
  if (++queued_ == kBatch) wake_.notify_one();
}

void BatchingQueue::flush() {
  std::unique_lock lock(mutex_);
  flushes_ = true;
  wake_.notify_one();
  if (!empty_.wait_for(lock, std::chrono::minutes(2), [this] { return queued_ == 0; })) {
    throw std::runtime_error("the events were not delivered within 2 minutes");
  }
  flushes_ = false;
}

void BatchingQueue::run() {
  std::unique_lock lock(mutex_);
  while (!stops_) {
    wake_.wait_for(lock, kInterval,
                   [this] { return stops_ || queued_ >= kBatch || (flushes_ && queued_ != 0); });
    if (!stops_ && queued_ != 0) sendBatch(lock);
  }
}

void BatchingQueue::sendBatch(std::unique_lock<std::mutex>& lock) {
  std::string batch = "[";
  const std::size_t events = store_->appendOldest(kBatch, batch);
  batch += ']';
  lock.unlock();
  const bool delivered = post(batch, events);
  lock.lock();
  if (!delivered) {
    wake_.wait_for(lock, kBackoff, [this] { return stops_; });
    return;
  }
  store_->removeAppended();
  queued_ -= events;
  if (queued_ == 0) empty_.notify_one();
}

bool BatchingQueue::post(const std::string& batch, std::size_t events) {
  // The server logs the number of events.
  curl_easy_setopt(easy_, CURLOPT_URL, (url_ + std::to_string(events)).c_str());
  curl_easy_setopt(easy_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(batch.size()));
  curl_easy_setopt(easy_, CURLOPT_POSTFIELDS, batch.data());
  long status = 0;
  if (curl_easy_perform(easy_) != CURLE_OK) return false;
  curl_easy_getinfo(easy_, CURLINFO_RESPONSE_CODE, &status);
  return status / 100 == 2;
}

}  // namespace jx::bench
