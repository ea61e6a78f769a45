// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <librdkafka/rdkafka.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tools/jx/Result.h"

namespace jx {

struct KafkaSettings {
  std::vector<std::string> servers;  ///< HOST:PORT of one or more brokers of the cluster
  std::string topic = "events";
  std::string invalidTopic = "events-invalid";
  std::size_t maxPending = 4096;             ///< entries that wait for an acknowledgement
  std::chrono::milliseconds timeout{5'000};  ///< for the acknowledgement of an entry
  /// KEY=VALUE pairs of librdkafka, for example for TLS and SASL.
  std::vector<std::string> configuration;
  /// Receives the messages of librdkafka, with the levels of syslog; null drops them. Called on a
  /// thread of the log.
  std::function<void(int level, const std::string& text)> onLog;
};

/// Adds the options that set `settings`.
void addKafkaOptions(CLI::App& command, KafkaSettings& settings);

struct KafkaRelease {
  void operator()(rd_kafka_t* client) const { rd_kafka_destroy(client); }
  void operator()(rd_kafka_topic_t* topic) const { rd_kafka_topic_destroy(topic); }
  void operator()(rd_kafka_conf_t* configuration) const { rd_kafka_conf_destroy(configuration); }
  void operator()(rd_kafka_headers_t* headers) const { rd_kafka_headers_destroy(headers); }
  void operator()(rd_kafka_error_t* error) const { rd_kafka_error_destroy(error); }
  void operator()(const rd_kafka_metadata_t* data) const { rd_kafka_metadata_destroy(data); }
};
template <typename Type>
using KafkaHandle = std::unique_ptr<Type, KafkaRelease>;

/// Returns the configuration of an idempotent producer, without its callbacks. Fails if a setting
/// is invalid or contradicts what the gateway promises to televisions.
Result<KafkaHandle<rd_kafka_conf_t>> kafkaConfigurationFor(const KafkaSettings& settings);

}  // namespace jx
