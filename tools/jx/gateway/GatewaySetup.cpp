// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewaySetup.h"

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "tools/jx/ExitStatus.h"

namespace jx {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kRetryDelay{500};
constexpr std::chrono::milliseconds kRequestTime{5'000};
constexpr std::int64_t kNoLimit = -1;

std::int64_t nanoseconds(std::chrono::seconds time) {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(time).count();
}

// While a cluster starts, it has no leader, or too few of its servers are known.
bool isStarting(natsStatus status, jsErrCode code) {
  switch (code) {
    case JSClusterNoPeersErr:
    case JSClusterNotActiveErr:
    case JSClusterNotAvailErr:
    case JSClusterNotLeaderErr:
    case JSInsufficientResourcesErr:
      return true;
    default:
      return code == 0 && status != NATS_INVALID_ARG;
  }
}

// The library puts the place in its source in front: "(jsm.c:1033): no suitable peers".
std::string lastErrorOf(natsStatus status) {
  const char* const text = nats_GetLastError(nullptr);
  const std::string_view error = text == nullptr ? "" : text;
  const std::size_t place = error.find("): ");
  if (error.empty()) return natsStatus_GetText(status);
  return std::string(place == std::string_view::npos ? error : error.substr(place + 3));
}

struct StreamName {
  const char* stream;
  const char* subject;  // its first part
};

natsStatus createOrUpdate(jsCtx* context, const StreamName& name, const StreamSettings& settings,
                          jsErrCode& code) {
  jsStreamConfig config;
  jsStreamConfig_Init(&config);
  const std::string subjects = std::string(name.subject) + ".>";
  const char* list[] = {subjects.c_str()};
  config.Name = name.stream;
  config.Subjects = list;
  config.SubjectsLen = 1;
  config.Storage = js_FileStorage;
  config.Discard = js_DiscardNew;
  config.Replicas = settings.replicas;
  config.Duplicates = nanoseconds(settings.duplicateWindow);
  config.MaxBytes = settings.maxBytes > 0 ? settings.maxBytes : kNoLimit;
  config.MaxAge = nanoseconds(settings.maxAge);
  jsOptions options;
  jsOptions_Init(&options);
  options.Wait = kRequestTime.count();
  code = {};
  const natsStatus status = js_AddStream(nullptr, context, &config, &options, &code);
  if (code != JSStreamNameExistErr) return status;
  code = {};
  return js_UpdateStream(nullptr, context, &config, &options, &code);
}

Done setUpStream(jsCtx* context, const StreamName& name, const StreamSettings& settings,
                 Clock::time_point end) {
  while (true) {
    jsErrCode code = {};
    const natsStatus status = createOrUpdate(context, name, settings, code);
    if (status == NATS_OK) return done();
    if (!isStarting(status, code) || Clock::now() >= end) {
      return Error{std::string("cannot set up the stream ") + name.stream + ": " +
                   lastErrorOf(status)};
    }
    std::this_thread::sleep_for(kRetryDelay);
  }
}

Result<NatsHandle<natsConnection>> connectUntil(const NatsServers& servers, Clock::time_point end) {
  const auto options = natsOptionsFor(servers, "jx gateway setup");
  if (!options) return options.error();
  while (true) {
    natsConnection* created = nullptr;
    const natsStatus status = natsConnection_Connect(&created, options->get());
    if (status == NATS_OK) return NatsHandle<natsConnection>(created);
    const bool isTemporary = status == NATS_NO_SERVER || status == NATS_TIMEOUT;
    if (!isTemporary || Clock::now() >= end) return natsFailure("connect", status);
    std::this_thread::sleep_for(kRetryDelay);
  }
}

}  // namespace

Done setUpStreams(const NatsServers& servers, const StreamSettings& settings) {
  const Clock::time_point end = Clock::now() + settings.wait;
  const auto connection = connectUntil(servers, end);
  if (!connection) return connection.error();
  jsCtx* created = nullptr;
  const natsStatus status = natsConnection_JetStream(&created, connection->get(), nullptr);
  const NatsHandle<jsCtx> context(created);
  if (status != NATS_OK) return natsFailure("JetStream", status);
  for (const StreamName& name :
       {StreamName{kEventsStream, kEventsSubject}, StreamName{kInvalidStream, kInvalidSubject}}) {
    const Done set = setUpStream(created, name, settings, end);
    if (!set) return set;
  }
  return done();
}

void addSetupCommand(CLI::App& gateway, int& exitStatus) {
  struct Options {
    NatsServers servers;
    StreamSettings streams;
    std::int64_t duplicateWindow = 600;
    std::int64_t maxAge = 0;
  };
  const auto options = std::make_shared<Options>();
  CLI::App* const command =
      gateway.add_subcommand("setup", "Create the streams of a NATS cluster, or change them");
  addNatsOptions(*command, options->servers);
  command->get_option("--nats")->required();
  command
      ->add_option("--replicas", options->streams.replicas, "Set how many servers store an event")
      ->check(CLI::Range(1, 5))
      ->capture_default_str();
  command
      ->add_option("--duplicate-window", options->duplicateWindow,
                   "Set for how many seconds the servers drop repeats")
      ->check(CLI::Range(1, 86'400))
      ->capture_default_str();
  command
      ->add_option("--max-bytes", options->streams.maxBytes,
                   "Refuse events while a stream has this size; 0: no limit")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
  command
      ->add_option("--max-age", options->maxAge,
                   "Delete events after this number of seconds; 0: never")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
  command->callback([options, &exitStatus] {
    options->streams.duplicateWindow = std::chrono::seconds(options->duplicateWindow);
    options->streams.maxAge = std::chrono::seconds(options->maxAge);
    const Done set = setUpStreams(options->servers, options->streams);
    if (!set) {
      std::fprintf(stderr, "jx gateway setup: %s\n", set.error().text.c_str());
      exitStatus = kExitFailure;
      return;
    }
    std::printf("Streams %s and %s are ready\n", kEventsStream, kInvalidStream);
  });
}

}  // namespace jx
