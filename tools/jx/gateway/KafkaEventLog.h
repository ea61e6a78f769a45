// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>

#include "tools/jx/Result.h"
#include "tools/jx/gateway/EventLog.h"
#include "tools/jx/gateway/KafkaProducer.h"

namespace jx {

/// Stores entries in two topics of a Kafka cluster. An entry is stored when all in-sync replicas
/// have it. The key is the session ID, otherwise the event ID; the headers are `event_id`, `site`,
/// `event_name` and, for invalid events, `diagnostics`; a header is omitted if its value is empty.
///
/// The cluster drops what the producer sends again, but not what a television sends again: the
/// second entry has the same `event_id` and, with the same session, the same partition.
class KafkaEventLog final : public EventLog {
 public:
  /// Does not wait for a connection. Fails if a setting is invalid.
  static Result<std::unique_ptr<KafkaEventLog>> connect(const KafkaSettings& settings);
  /// Reports the waiting entries as not stored. May wait for a cluster that does not respond, up to
  /// 6 s.
  ~KafkaEventLog() override;

  void append(const LogEntry& entry, Stored stored) override;
  bool isReady() const override;

 private:
  using Waiting = std::unordered_map<std::uintptr_t, Stored>;

  explicit KafkaEventLog(const KafkaSettings& settings);
  Result<std::unique_ptr<KafkaProducer>> newProducer();
  // Returns the failure if `stored` is not moved.
  std::optional<LogResult> tryAppend(const LogEntry& entry, Stored& stored);
  void finish(std::uintptr_t token, rd_kafka_resp_err_t error);
  void watch();
  void replaceProducer();
  static void fail(const Waiting& waiting, const std::string& reason);

  const KafkaSettings settings_;
  mutable std::mutex mutex_;
  std::condition_variable ending_;
  std::unique_ptr<KafkaProducer> producer_;  // only the watching thread replaces it
  Waiting waiting_;                          // by token; all belong to `producer_`
  std::uintptr_t lastToken_ = 0;
  bool isEnding_ = false;
  std::thread watching_;
};

}  // namespace jx
