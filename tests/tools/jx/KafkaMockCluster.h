// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <librdkafka/rdkafka.h>
#include <librdkafka/rdkafka_mock.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace jx::test {

/// A message of a topic.
struct KafkaRecord {
  int partition = 0;
  std::optional<std::string> key;
  std::string body;
  std::map<std::string, std::string> headers;
};

/// Three brokers of the mock cluster of librdkafka, in this process. These are not real brokers:
/// they keep messages in memory and do not compare sequence numbers, so that they store a batch
/// twice that the producer sends twice. A request that gets an injected error stores nothing.
class KafkaMockCluster {
 public:
  static constexpr int kBrokers = 3;
  static constexpr int kPartitions = 4;
  static constexpr std::int16_t kProduce = 0;  // of the protocol of Kafka
  static constexpr std::int16_t kInitProducerId = 22;

  KafkaMockCluster()
      : owner_(newClient(RD_KAFKA_PRODUCER, {})),
        cluster_(rd_kafka_mock_cluster_new(owner_.get(), kBrokers)) {
    for (const char* const topic : {"events", "events-invalid"}) {
      rd_kafka_mock_topic_create(cluster_.get(), topic, kPartitions, kBrokers);
      for (int partition = 0; partition < kPartitions; ++partition)
        setLeader(topic, partition, 1 + partition % kBrokers);
    }
  }

  rd_kafka_mock_cluster_t* get() const { return cluster_.get(); }

  /// HOST:PORT of each broker.
  std::vector<std::string> servers() const {
    std::vector<std::string> servers(1);
    for (const char* c = rd_kafka_mock_cluster_bootstraps(cluster_.get()); *c != '\0'; ++c) {
      if (*c == ',') {
        servers.emplace_back();
      } else {
        servers.back() += *c;
      }
    }
    return servers;
  }
  /// Without a leader if `broker` is -1.
  void setLeader(const char* topic, int partition, int broker) const {
    rd_kafka_mock_partition_set_leader(cluster_.get(), topic, partition, broker);
  }
  void stop() const { rd_kafka_mock_broker_set_down(cluster_.get(), -1); }
  void start() const { rd_kafka_mock_broker_set_up(cluster_.get(), -1); }
  /// The next `count` requests of this kind fail.
  void failNext(std::int16_t kind, std::size_t count, rd_kafka_resp_err_t error) const {
    const std::vector<rd_kafka_resp_err_t> errors(count, error);
    rd_kafka_mock_push_request_errors_array(cluster_.get(), kind, count, errors.data());
  }
  /// Each broker delays its response to the next request to store.
  void delayNext(int milliseconds) const {
    for (int broker = 1; broker <= kBrokers; ++broker) {
      rd_kafka_mock_broker_push_request_error_rtts(cluster_.get(), broker, kProduce, 1,
                                                   RD_KAFKA_RESP_ERR_NO_ERROR, milliseconds);
    }
  }
  /// Returns all messages of a topic.
  std::vector<KafkaRecord> records(const std::string& topic) const {
    const Client consumer =
        newClient(RD_KAFKA_CONSUMER,
                  {{"group.id", "test"},
                   {"enable.partition.eof", "true"},
                   {"bootstrap.servers", rd_kafka_mock_cluster_bootstraps(cluster_.get())}});
    rd_kafka_poll_set_consumer(consumer.get());
    rd_kafka_topic_partition_list_t* const list = rd_kafka_topic_partition_list_new(kPartitions);
    for (int partition = 0; partition < kPartitions; ++partition) {
      rd_kafka_topic_partition_list_add(list, topic.c_str(), partition)->offset =
          RD_KAFKA_OFFSET_BEGINNING;
    }
    rd_kafka_assign(consumer.get(), list);
    rd_kafka_topic_partition_list_destroy(list);
    std::vector<KafkaRecord> records;
    for (int ended = 0; ended < kPartitions;) {
      const std::unique_ptr<rd_kafka_message_t, Release> message(
          rd_kafka_consumer_poll(consumer.get(), 1'000));
      if (!message) continue;
      if (message->err == RD_KAFKA_RESP_ERR__PARTITION_EOF) ++ended;
      if (message->err == RD_KAFKA_RESP_ERR_NO_ERROR) records.push_back(recordOf(*message));
    }
    rd_kafka_consumer_close(consumer.get());
    return records;
  }

 private:
  struct Release {
    void operator()(rd_kafka_t* client) const { rd_kafka_destroy(client); }
    void operator()(rd_kafka_message_t* message) const { rd_kafka_message_destroy(message); }
    void operator()(rd_kafka_mock_cluster_t* cluster) const {
      rd_kafka_mock_cluster_destroy(cluster);
    }
  };
  using Client = std::unique_ptr<rd_kafka_t, Release>;

  static Client newClient(rd_kafka_type_t type, const std::map<std::string, std::string>& set) {
    rd_kafka_conf_t* const configuration = rd_kafka_conf_new();
    rd_kafka_conf_set_log_cb(configuration,
                             [](const rd_kafka_t*, int, const char*, const char*) {});
    for (const auto& [key, value] : set)
      rd_kafka_conf_set(configuration, key.c_str(), value.c_str(), nullptr, 0);
    return Client(rd_kafka_new(type, configuration, nullptr, 0));
  }
  static std::string bytes(const void* data, std::size_t size) {
    return size == 0 ? "" : std::string(static_cast<const char*>(data), size);
  }
  static KafkaRecord recordOf(const rd_kafka_message_t& message) {
    KafkaRecord record;
    record.partition = message.partition;
    if (message.key != nullptr) record.key = bytes(message.key, message.key_len);
    record.body = bytes(message.payload, message.len);
    rd_kafka_headers_t* headers = nullptr;
    rd_kafka_message_headers(&message, &headers);
    const char* name = nullptr;
    const void* value = nullptr;
    std::size_t size = 0;
    for (std::size_t i = 0;
         headers != nullptr &&
         rd_kafka_header_get_all(headers, i, &name, &value, &size) == RD_KAFKA_RESP_ERR_NO_ERROR;
         ++i) {
      record.headers[name] = bytes(value, size);
    }
    return record;
  }

  const Client owner_;
  const std::unique_ptr<rd_kafka_mock_cluster_t, Release> cluster_;
};

}  // namespace jx::test
