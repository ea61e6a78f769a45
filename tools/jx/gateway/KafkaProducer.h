// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "tools/jx/Result.h"
#include "tools/jx/gateway/EventLog.h"
#include "tools/jx/gateway/KafkaConfiguration.h"

namespace jx {

/// An idempotent Kafka producer that waits for all in-sync replicas. It connects in the background
/// and reconnects for ever. Thread-safe.
class KafkaProducer {
 public:
  /// Called on the thread of the producer, with RD_KAFKA_RESP_ERR_NO_ERROR for a stored entry.
  using Report = std::function<void(std::uintptr_t token, rd_kafka_resp_err_t error)>;

  static Result<std::unique_ptr<KafkaProducer>> create(const KafkaSettings& settings,
                                                       Report report);
  /// Drops the entries that are not reported. No call of `Report` is running afterwards.
  ~KafkaProducer();
  KafkaProducer(const KafkaProducer&) = delete;
  KafkaProducer& operator=(const KafkaProducer&) = delete;

  /// Returns RD_KAFKA_RESP_ERR_NO_ERROR if the entry will be reported. Does not block and does not
  /// call `Report`.
  rd_kafka_resp_err_t produce(const LogEntry& entry, std::uintptr_t token);
  /// Asks the cluster for the topics, and so connects again after an outage. Blocks up to 6 s.
  void probe();
  /// Returns whether the last probe found a leader of the topic, and a broker is connected since.
  /// A broker that does not respond to a probe makes no difference while entries are stored.
  bool isReady() const { return isReady_; }
  /// Returns whether the producer cannot store entries any more, because it cannot know in which
  /// order the broker has its entries.
  bool isBroken() const;

 private:
  KafkaProducer(const KafkaSettings& settings, Report report);
  Done open();
  bool isTopicServed(const rd_kafka_metadata_t& cluster) const;

  static void onReport(rd_kafka_t*, const rd_kafka_message_t* message, void* producer);
  static void onError(rd_kafka_t*, int error, const char* reason, void* producer);
  static void onLog(const rd_kafka_t* client, int level, const char* source, const char* text);

  const KafkaSettings settings_;
  const Report report_;
  KafkaHandle<rd_kafka_t> client_;
  KafkaHandle<rd_kafka_topic_t> topic_;
  KafkaHandle<rd_kafka_topic_t> invalidTopic_;
  std::atomic<bool> isReady_{false};
  std::atomic<bool> hasStored_{false};  // an entry since the last probe began
  std::atomic<bool> isEnding_{false};
  std::thread polling_;
};

}  // namespace jx
