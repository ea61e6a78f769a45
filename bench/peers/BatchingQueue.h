// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <curl/curl.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "bench/JsonBaseline.h"
#include "bench/peers/Queue.h"

namespace jx::bench {

/// The events that a BatchingQueue has not delivered yet. Called under the lock of the queue.
class EventStore {
 public:
  virtual ~EventStore() = default;
  virtual std::uint64_t size() = 0;
  virtual void add(std::string_view body) = 0;
  /// Appends the oldest events to `array`, separated by commas, and returns their number.
  virtual std::size_t appendOldest(std::size_t most, std::string& array) = 0;
  /// Removes the events that the last `appendOldest` has appended.
  virtual void removeAppended() = 0;
};

/// Posts the events of a store as JSON arrays: a request contains up to 30 events and is sent when
/// as many are queued, or after a second. The sender thread sends one request after the other.
class BatchingQueue final : public Queue {
 public:
  BatchingQueue(const QueueOptions& options, std::unique_ptr<EventStore> store);
  ~BatchingQueue() override;

  void execute() override;
  void flush() override;

 private:
  void run();
  /// Sends one batch. Releases the lock during the request.
  void sendBatch(std::unique_lock<std::mutex>& lock);
  bool post(const std::string& batch, std::size_t events);

  JsonBaseline json_;
  std::string url_;
  CURL* easy_ = nullptr;
  curl_slist* headers_ = nullptr;

  std::mutex mutex_;
  std::condition_variable wake_;   ///< for the sender thread
  std::condition_variable empty_;  ///< for `flush`
  std::unique_ptr<EventStore> store_;
  std::uint64_t queued_ = 0;
  bool flushes_ = false;
  bool stops_ = false;
  std::thread thread_;
};

}  // namespace jx::bench
