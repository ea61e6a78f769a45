// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/KafkaProducer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>
#include <utility>

namespace jx {
namespace {

constexpr int kPollMs = 100;
constexpr int kProbeMs = 2'000;
constexpr int kProbeRequests = 3;
constexpr int kLevelOfErrors = 3;  // of syslog

KafkaHandle<rd_kafka_headers_t> headersOf(const LogEntry& entry) {
  KafkaHandle<rd_kafka_headers_t> headers(rd_kafka_headers_new(4));
  const auto add = [&headers](const char* name, const std::string& value) {
    if (value.empty()) return;
    rd_kafka_header_add(headers.get(), name, -1, value.data(), static_cast<ssize_t>(value.size()));
  };
  add("event_id", entry.eventId);
  add("site", entry.site);
  add("event_name", entry.name);
  if (entry.isInvalid) add("diagnostics", entry.diagnostics);
  return headers;
}

// An entry that a television sends again gets to the same partition, where a consumer finds both.
const std::string& keyOf(const LogEntry& entry) {
  return entry.session.empty() ? entry.eventId : entry.session;
}

rd_kafka_vu_t bytes(rd_kafka_vtype_t type, const std::string& value) {
  rd_kafka_vu_t argument{};
  argument.vtype = type;
  // The producer copies the bytes and does not change them.
  argument.u.mem.ptr = value.empty() ? nullptr : const_cast<char*>(value.data());
  argument.u.mem.size = value.size();
  return argument;
}

}  // namespace

KafkaProducer::KafkaProducer(const KafkaSettings& settings, Report report)
    : settings_(settings), report_(std::move(report)) {}

Result<std::unique_ptr<KafkaProducer>> KafkaProducer::create(const KafkaSettings& settings,
                                                             Report report) {
  std::unique_ptr<KafkaProducer> producer(new KafkaProducer(settings, std::move(report)));
  const Done opened = producer->open();
  if (!opened) return opened.error();
  return producer;
}

Done KafkaProducer::open() {
  Result<KafkaHandle<rd_kafka_conf_t>> configuration = kafkaConfigurationFor(settings_);
  if (!configuration) return configuration.error();
  rd_kafka_conf_set_opaque(configuration->get(), this);
  rd_kafka_conf_set_dr_msg_cb(configuration->get(), onReport);
  rd_kafka_conf_set_error_cb(configuration->get(), onError);
  rd_kafka_conf_set_log_cb(configuration->get(), onLog);
  std::array<char, 512> error{};
  client_.reset(rd_kafka_new(RD_KAFKA_PRODUCER, configuration->get(), error.data(), error.size()));
  if (!client_) return Error{std::string("Kafka: ") + error.data()};
  static_cast<void>(configuration->release());  // owned by the client
  rd_kafka_set_log_queue(client_.get(), nullptr);
  topic_.reset(rd_kafka_topic_new(client_.get(), settings_.topic.c_str(), nullptr));
  invalidTopic_.reset(rd_kafka_topic_new(client_.get(), settings_.invalidTopic.c_str(), nullptr));
  if (!topic_ || !invalidTopic_) {
    return Error{std::string("Kafka: topic: ") + rd_kafka_err2str(rd_kafka_last_error())};
  }
  polling_ = std::thread([this] {
    while (!isEnding_)
      rd_kafka_poll(client_.get(), kPollMs);
  });
  return done();
}

KafkaProducer::~KafkaProducer() {
  isEnding_ = true;
  if (polling_.joinable()) polling_.join();
  if (client_) rd_kafka_purge(client_.get(), RD_KAFKA_PURGE_F_QUEUE | RD_KAFKA_PURGE_F_INFLIGHT);
}

rd_kafka_resp_err_t KafkaProducer::produce(const LogEntry& entry, std::uintptr_t token) {
  KafkaHandle<rd_kafka_headers_t> headers = headersOf(entry);
  std::array<rd_kafka_vu_t, 6> arguments{};
  arguments[0].vtype = RD_KAFKA_VTYPE_RKT;
  arguments[0].u.rkt = entry.isInvalid ? invalidTopic_.get() : topic_.get();
  arguments[1].vtype = RD_KAFKA_VTYPE_MSGFLAGS;
  arguments[1].u.i = RD_KAFKA_MSG_F_COPY;
  arguments[2].vtype = RD_KAFKA_VTYPE_OPAQUE;
  arguments[2].u.ptr = std::bit_cast<void*>(token);
  arguments[3] = bytes(RD_KAFKA_VTYPE_KEY, keyOf(entry));
  arguments[4] = bytes(RD_KAFKA_VTYPE_VALUE, entry.body);
  arguments[5].vtype = RD_KAFKA_VTYPE_HEADERS;
  arguments[5].u.headers = headers.get();
  const KafkaHandle<rd_kafka_error_t> error(
      rd_kafka_produceva(client_.get(), arguments.data(), arguments.size()));
  if (error) return rd_kafka_error_code(error.get());
  static_cast<void>(headers.release());  // owned by the message
  return RD_KAFKA_RESP_ERR_NO_ERROR;
}

void KafkaProducer::probe() {
  hasStored_ = false;
  const rd_kafka_metadata_t* found = nullptr;
  rd_kafka_resp_err_t error = RD_KAFKA_RESP_ERR_NO_ERROR;
  // If a broker stops, another one responds to the next request.
  for (int request = 0; request < kProbeRequests; ++request) {
    error = rd_kafka_metadata(client_.get(), 0, nullptr, &found, kProbeMs);
    if (error != RD_KAFKA_RESP_ERR__TRANSPORT) break;
  }
  const std::unique_ptr<const rd_kafka_metadata_t, KafkaRelease> cluster(found);
  if (error == RD_KAFKA_RESP_ERR_NO_ERROR) {
    isReady_ = isTopicServed(*cluster) && !isBroken();
  } else if (!hasStored_) {
    // Otherwise one broker does not respond, but others store entries.
    isReady_ = false;
  }
}

bool KafkaProducer::isTopicServed(const rd_kafka_metadata_t& cluster) const {
  return std::any_of(cluster.topics, cluster.topics + cluster.topic_cnt, [&](const auto& topic) {
    return topic.topic == settings_.topic && topic.err == RD_KAFKA_RESP_ERR_NO_ERROR &&
           std::any_of(topic.partitions, topic.partitions + topic.partition_cnt,
                       [](const auto& partition) { return partition.leader >= 0; });
  });
}

bool KafkaProducer::isBroken() const {
  return rd_kafka_fatal_error(client_.get(), nullptr, 0) != RD_KAFKA_RESP_ERR_NO_ERROR;
}

void KafkaProducer::onReport(rd_kafka_t*, const rd_kafka_message_t* message, void* producer) {
  auto* const self = static_cast<KafkaProducer*>(producer);
  if (message->err == RD_KAFKA_RESP_ERR_NO_ERROR) self->hasStored_ = true;
  self->report_(std::bit_cast<std::uintptr_t>(message->_private), message->err);
}

void KafkaProducer::onError(rd_kafka_t*, int error, const char* reason, void* producer) {
  auto* const self = static_cast<KafkaProducer*>(producer);
  if (error == RD_KAFKA_RESP_ERR__ALL_BROKERS_DOWN || error == RD_KAFKA_RESP_ERR__FATAL) {
    self->isReady_ = false;
  }
  if (self->settings_.onLog) self->settings_.onLog(kLevelOfErrors, reason);
}

void KafkaProducer::onLog(const rd_kafka_t* client, int level, const char* source,
                          const char* text) {
  if (client == nullptr) return;
  const auto* const self = static_cast<const KafkaProducer*>(rd_kafka_opaque(client));
  if (self->settings_.onLog) self->settings_.onLog(level, std::string(source) + ": " + text);
}

}  // namespace jx
