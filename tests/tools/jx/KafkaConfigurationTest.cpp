// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/KafkaConfiguration.h"

#include <gtest/gtest.h>

#include <array>

#include "tools/jx/gateway/KafkaEventLog.h"

namespace jx {
namespace {

// Nothing listens on port 1.
KafkaSettings settingsWith(const std::vector<std::string>& configuration) {
  KafkaSettings settings;
  settings.servers = {"127.0.0.1:1"};
  settings.configuration = configuration;
  return settings;
}

// Returns the error of connecting, "" without one.
std::string errorOf(const KafkaSettings& settings) {
  const auto log = KafkaEventLog::connect(settings);
  return log ? "" : log.error().text;
}

std::string errorOf(const std::string& pair) { return errorOf(settingsWith({pair})); }

std::string valueOf(const KafkaSettings& settings, const char* name) {
  const auto configuration = kafkaConfigurationFor(settings);
  if (!configuration) return configuration.error().text;
  std::array<char, 256> value{};
  std::size_t size = value.size();
  rd_kafka_conf_get(configuration->get(), name, value.data(), &size);
  return value.data();
}

TEST(KafkaConfiguration, WaitsForAllReplicas) {
  const KafkaSettings settings = settingsWith({});
  EXPECT_EQ(valueOf(settings, "acks"), "-1");
  EXPECT_EQ(valueOf(settings, "enable.idempotence"), "true");
  EXPECT_EQ(valueOf(settings, "delivery.report.only.error"), "false");
  EXPECT_EQ(valueOf(settings, "message.timeout.ms"), "5000");
}

TEST(KafkaConfiguration, RejectsWhatWeakensTheAcknowledgement) {
  for (const char* const value : {"0", "1", "2", "", "ALL"}) {
    EXPECT_EQ(errorOf(std::string("acks=") + value), "Kafka: acks must be all");
    EXPECT_EQ(errorOf(std::string("request.required.acks=") + value),
              "Kafka: request.required.acks must be all");
  }
  EXPECT_EQ(errorOf("enable.idempotence=false"), "Kafka: enable.idempotence must be true");
  EXPECT_EQ(errorOf("delivery.report.only.error=true"),
            "Kafka: delivery.report.only.error must be false");
}

TEST(KafkaConfiguration, AcceptsWhatTheAcknowledgementRequires) {
  for (const char* const pair : {"acks=all", "acks=-1", "request.required.acks=-1",
                                 "enable.idempotence=true", "delivery.report.only.error=false"}) {
    EXPECT_EQ(valueOf(settingsWith({pair}), "acks"), "-1") << pair;
  }
}

TEST(KafkaConfiguration, RejectsWhatOtherOptionsSet) {
  for (const std::string name : {"bootstrap.servers", "metadata.broker.list", "message.timeout.ms",
                                 "delivery.timeout.ms", "queue.buffering.max.messages", "log.queue",
                                 "enabled_events", "transactional.id", "test.mock.num.brokers"}) {
    EXPECT_EQ(errorOf(name + "=1"), "Kafka: --kafka-config cannot set " + name);
  }
}

TEST(KafkaConfiguration, RejectsAPairWithoutAKeyOrAValue) {
  for (const char* const pair : {"", "linger.ms", "=1"})
    EXPECT_EQ(errorOf(pair), "Kafka: --kafka-config must be KEY=VALUE") << pair;
}

TEST(KafkaConfiguration, RejectsAnUnknownKeyAndAnInvalidValue) {
  EXPECT_EQ(errorOf("no.such=1"), R"(Kafka: No such configuration property: "no.such")");
  EXPECT_EQ(errorOf("batch.size=many"),
            R"(Kafka: Invalid value for configuration property "batch.size")");
}

TEST(KafkaConfiguration, RejectsSettingsThatContradictEachOther) {
  EXPECT_EQ(errorOf("retries=0").substr(0, 7), "Kafka: ");
  EXPECT_EQ(errorOf("max.in.flight=6").substr(0, 7), "Kafka: ");
  EXPECT_EQ(errorOf("linger.ms=6000").substr(0, 7), "Kafka: ");
  EXPECT_EQ(errorOf("ssl.ca.location=/no/such/file"), "");
  EXPECT_EQ(errorOf(settingsWith({"security.protocol=ssl", "ssl.ca.location=/no/such/file"}))
                .substr(0, 7),
            "Kafka: ");
}

TEST(KafkaConfiguration, KeepsTheSettingsOfTheUser) {
  const KafkaSettings settings = settingsWith({"client.id=a=b", "reconnect.backoff.max.ms=77"});
  EXPECT_EQ(valueOf(settings, "client.id"), "a=b");
  EXPECT_EQ(valueOf(settings, "reconnect.backoff.max.ms"), "77");
  EXPECT_EQ(valueOf(settingsWith({}), "reconnect.backoff.max.ms"), "1000");
}

TEST(KafkaConfiguration, RejectsServersThatAreNoAddress) {
  KafkaSettings settings;
  EXPECT_EQ(errorOf(settings), "Kafka: --kafka must name a broker");
  for (const char* const server : {"", "broker", ":9092", "broker:", "broker:0", "broker:65536",
                                   "broker:port", "broker:9092x", "a:1,b:2"}) {
    settings.servers = {"127.0.0.1:1", server};
    EXPECT_EQ(errorOf(settings), "Kafka: --kafka must be HOST:PORT") << server;
  }
  settings.servers = {"127.0.0.1:1", "[::1]:65535"};
  EXPECT_EQ(valueOf(settings, "bootstrap.servers"), "127.0.0.1:1,[::1]:65535");
}

TEST(KafkaConfiguration, RejectsATimeoutOfZero) {
  KafkaSettings settings = settingsWith({});
  settings.timeout = std::chrono::milliseconds(0);
  EXPECT_EQ(errorOf(settings), "Kafka: the broker timeout must be positive");
}

TEST(KafkaConfiguration, RejectsATopicThatNoClusterAccepts) {
  for (const std::string& topic :
       {std::string(), std::string("."), std::string(".."), std::string("a b"), std::string("a/b"),
        std::string("caf\xC3\xA9"), std::string(250, 'a')}) {
    KafkaSettings settings = settingsWith({});
    settings.topic = topic;
    EXPECT_EQ(errorOf(settings),
              "Kafka: the topic must be 1 to 249 letters, digits, \".\", \"_\" and \"-\"")
        << topic;
    settings.topic = "events";
    settings.invalidTopic = topic;
    EXPECT_NE(errorOf(settings), "") << topic;
  }
  KafkaSettings settings = settingsWith({});
  settings.topic = std::string(245, 'a') + "._-Z";
  EXPECT_EQ(errorOf(settings), "");
}

TEST(KafkaConfiguration, IsSetByOptions) {
  KafkaSettings settings;
  CLI::App app;
  addKafkaOptions(app, settings);
  app.parse(
      "--kafka a:1 --kafka b:2 --kafka-topic t --kafka-invalid-topic i "
      "--kafka-config k=v --kafka-config l=w=x,y");
  EXPECT_EQ(settings.servers, (std::vector<std::string>{"a:1", "b:2"}));
  EXPECT_EQ(settings.topic, "t");
  EXPECT_EQ(settings.invalidTopic, "i");
  EXPECT_EQ(settings.configuration, (std::vector<std::string>{"k=v", "l=w=x,y"}));
}

}  // namespace
}  // namespace jx
