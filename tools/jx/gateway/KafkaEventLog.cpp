// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/KafkaEventLog.h"

#include <utility>

namespace jx {
namespace {

using Cause = LogResult::Cause;

constexpr std::chrono::milliseconds kWatchInterval{500};
constexpr const char* kTooMany = "too many entries wait for the broker";
constexpr const char* kProducerFailed = "the producer failed";

LogResult failureOf(rd_kafka_resp_err_t error) {
  switch (error) {
    case RD_KAFKA_RESP_ERR__MSG_TIMED_OUT:
    case RD_KAFKA_RESP_ERR__TIMED_OUT:
      return {false, false, "no acknowledgement", Cause::Timeout};
    case RD_KAFKA_RESP_ERR__QUEUE_FULL:
      return {false, false, kTooMany, Cause::Full};
    case RD_KAFKA_RESP_ERR__FATAL:
    case RD_KAFKA_RESP_ERR__PURGE_QUEUE:
    case RD_KAFKA_RESP_ERR__PURGE_INFLIGHT:
      return {false, false, kProducerFailed, Cause::Unavailable};
    default:
      return {false, false, rd_kafka_err2str(error), Cause::Refused};
  }
}

}  // namespace

KafkaEventLog::KafkaEventLog(const KafkaSettings& settings) : settings_(settings) {}

Result<std::unique_ptr<KafkaEventLog>> KafkaEventLog::connect(const KafkaSettings& settings) {
  std::unique_ptr<KafkaEventLog> log(new KafkaEventLog(settings));
  Result<std::unique_ptr<KafkaProducer>> producer = log->newProducer();
  if (!producer) return producer.error();
  log->producer_ = std::move(*producer);
  log->watching_ = std::thread([watched = log.get()] { watched->watch(); });
  return log;
}

Result<std::unique_ptr<KafkaProducer>> KafkaEventLog::newProducer() {
  return KafkaProducer::create(
      settings_, [this](std::uintptr_t token, rd_kafka_resp_err_t error) { finish(token, error); });
}

KafkaEventLog::~KafkaEventLog() {
  Waiting left;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    isEnding_ = true;
    left.swap(waiting_);
  }
  ending_.notify_all();
  fail(left, "the gateway stops");
  if (watching_.joinable()) watching_.join();
  producer_.reset();
}

void KafkaEventLog::append(const LogEntry& entry, Stored stored) {
  if (const auto failure = tryAppend(entry, stored)) stored(*failure);
}

std::optional<LogResult> KafkaEventLog::tryAppend(const LogEntry& entry, Stored& stored) {
  // With the lock until the end: the report of the entry must find it in the map.
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!producer_->isReady()) return LogResult{false, false, "not connected", Cause::Unavailable};
  if (waiting_.size() >= settings_.maxPending)
    return LogResult{false, false, kTooMany, Cause::Full};
  const std::uintptr_t token = ++lastToken_;
  const rd_kafka_resp_err_t error = producer_->produce(entry, token);
  if (error != RD_KAFKA_RESP_ERR_NO_ERROR) {
    LogResult failure = failureOf(error);
    // The same error of a broker concerns a batch of entries, which may be small.
    if (error == RD_KAFKA_RESP_ERR_MSG_SIZE_TOO_LARGE) failure.cause = Cause::TooLarge;
    return failure;
  }
  waiting_.emplace(token, std::move(stored));
  return std::nullopt;
}

bool KafkaEventLog::isReady() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return producer_->isReady();
}

void KafkaEventLog::finish(std::uintptr_t token, rd_kafka_resp_err_t error) {
  Stored stored;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = waiting_.find(token);
    if (found == waiting_.end()) return;
    stored = std::move(found->second);
    waiting_.erase(found);
  }
  stored(error == RD_KAFKA_RESP_ERR_NO_ERROR ? LogResult{true, false, ""} : failureOf(error));
}

void KafkaEventLog::watch() {
  std::unique_lock<std::mutex> lock(mutex_);
  while (!isEnding_) {
    lock.unlock();
    if (producer_->isBroken()) replaceProducer();
    producer_->probe();
    lock.lock();
    ending_.wait_for(lock, kWatchInterval, [this] { return isEnding_; });
  }
}

void KafkaEventLog::replaceProducer() {
  Result<std::unique_ptr<KafkaProducer>> producer = newProducer();
  if (!producer) return;  // no memory or no threads; the next round tries again
  Waiting left;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    producer_.swap(*producer);
    left.swap(waiting_);
  }
  fail(left, kProducerFailed);
}

void KafkaEventLog::fail(const Waiting& waiting, const std::string& reason) {
  for (const auto& [token, stored] : waiting)
    stored({false, false, reason, Cause::Unavailable});
}

}  // namespace jx
