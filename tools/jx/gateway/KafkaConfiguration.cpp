// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/KafkaConfiguration.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace jx {
namespace {

using Property = std::pair<std::string, std::string>;

constexpr int kLastPort = 65'535;
constexpr std::size_t kMaxTopic = 249;
constexpr std::string_view kTopicCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";

// The value that the acknowledgement of a television depends on.
struct Required {
  std::string_view name;
  std::string_view value;
  std::string_view alias;  // another spelling of the value
};
constexpr std::array<Required, 4> kRequired{{
    {"acks", "all", "-1"},
    {"request.required.acks", "all", "-1"},
    {"enable.idempotence", "true", "true"},
    {"delivery.report.only.error", "false", "false"},
}};

// Set by other options, or of no use in a gateway: a transactional producer stores nothing before
// its first commit, and a mock cluster keeps events in memory.
constexpr std::array<std::string_view, 9> kReserved{
    "bootstrap.servers",
    "metadata.broker.list",
    "message.timeout.ms",
    "delivery.timeout.ms",
    "queue.buffering.max.messages",
    "log.queue",
    "enabled_events",
    "transactional.id",
    "test.mock.num.brokers",
};

Error failure(const std::string& text) { return Error{"Kafka: " + text}; }

bool isServer(std::string_view server) {
  const std::size_t colon = server.rfind(':');
  if (colon == std::string_view::npos || colon == 0) return false;
  if (server.find(',') != std::string_view::npos) return false;
  const char* const end = server.data() + server.size();
  int port = 0;
  const auto [rest, status] = std::from_chars(server.data() + colon + 1, end, port);
  return status == std::errc() && rest == end && port > 0 && port <= kLastPort;
}

bool isTopic(std::string_view topic) {
  return !topic.empty() && topic.size() <= kMaxTopic && topic != "." && topic != ".." &&
         topic.find_first_not_of(kTopicCharacters) == std::string_view::npos;
}

Done set(rd_kafka_conf_t* configuration, const Property& property) {
  std::array<char, 512> error{};
  if (rd_kafka_conf_set(configuration, property.first.c_str(), property.second.c_str(),
                        error.data(), error.size()) == RD_KAFKA_CONF_OK) {
    return done();
  }
  return failure(error.data());
}

Done setAll(rd_kafka_conf_t* configuration, const std::vector<Property>& properties) {
  for (const Property& property : properties) {
    const Done isSet = set(configuration, property);
    if (!isSet) return isSet.error();
  }
  return done();
}

Done setOfUser(rd_kafka_conf_t* configuration, const std::string& pair) {
  const std::size_t equals = pair.find('=');
  if (equals == std::string::npos || equals == 0) {
    return failure("--kafka-config must be KEY=VALUE");
  }
  const Property property{pair.substr(0, equals), pair.substr(equals + 1)};
  for (const Required& required : kRequired) {
    if (property.first != required.name) continue;
    if (property.second == required.value || property.second == required.alias) return done();
    return failure(property.first + " must be " + std::string(required.value));
  }
  if (std::find(kReserved.begin(), kReserved.end(), property.first) != kReserved.end()) {
    return failure("--kafka-config cannot set " + property.first);
  }
  return set(configuration, property);
}

std::string joined(const std::vector<std::string>& servers) {
  std::string list;
  for (const std::string& server : servers)
    list += (list.empty() ? "" : ",") + server;
  return list;
}

Done validate(const KafkaSettings& settings) {
  if (settings.servers.empty()) return failure("--kafka must name a broker");
  if (!std::all_of(settings.servers.begin(), settings.servers.end(), isServer)) {
    return failure("--kafka must be HOST:PORT");
  }
  if (!isTopic(settings.topic) || !isTopic(settings.invalidTopic)) {
    return failure(R"(the topic must be 1 to 249 letters, digits, ".", "_" and "-")");
  }
  // 0 would wait for ever.
  if (settings.timeout.count() <= 0) return failure("the broker timeout must be positive");
  return done();
}

// The user can change these.
std::vector<Property> defaults() {
  return {
      {"client.id", "jx-gateway"},
      // Return to a broker soon after an outage.
      {"reconnect.backoff.max.ms", "1000"},
      // Notice a broker that has stopped without closing its connections.
      {"socket.timeout.ms", "10000"},
  };
}

std::vector<Property> fixed(const KafkaSettings& settings) {
  return {
      {"bootstrap.servers", joined(settings.servers)},
      {"acks", "all"},
      {"enable.idempotence", "true"},
      {"delivery.report.only.error", "false"},
      {"message.timeout.ms", std::to_string(settings.timeout.count())},
      // The log limits its entries itself. The producer counts one until its report has returned.
      {"queue.buffering.max.messages", std::to_string(2 * settings.maxPending)},
      {"log.queue", "true"},
  };
}

}  // namespace

void addKafkaOptions(CLI::App& command, KafkaSettings& settings) {
  const auto repeated = [](CLI::Option* option) {
    option->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  };
  repeated(command.add_option("--kafka", settings.servers,
                              "HOST:PORT of a Kafka broker; may be repeated"));
  command.add_option("--kafka-topic", settings.topic, "Topic of the events [events]");
  command.add_option("--kafka-invalid-topic", settings.invalidTopic,
                     "Topic of the events that do not pass validation [events-invalid]");
  repeated(command.add_option(
      "--kafka-config", settings.configuration,
      "Property of librdkafka, with its value, such as of TLS; may be repeated"));
}

Result<KafkaHandle<rd_kafka_conf_t>> kafkaConfigurationFor(const KafkaSettings& settings) {
  const Done isValid = validate(settings);
  if (!isValid) return isValid.error();
  KafkaHandle<rd_kafka_conf_t> configuration(rd_kafka_conf_new());
  Done isSet = setAll(configuration.get(), defaults());
  if (!isSet) return isSet.error();
  for (const std::string& pair : settings.configuration) {
    isSet = setOfUser(configuration.get(), pair);
    if (!isSet) return isSet.error();
  }
  isSet = setAll(configuration.get(), fixed(settings));
  if (!isSet) return isSet.error();
  return configuration;
}

}  // namespace jx
