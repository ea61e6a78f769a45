// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/gateway/Baselines.h"

#include <unistd.h>

#include <cstdio>
#include <stdexcept>

#include "tools/jx/gateway/GatewayOptions.h"
#include "tools/jx/gateway/GatewayServer.h"
#include "tools/jx/gateway/NatsClient.h"

namespace jx::bench {
namespace {

using Clock = std::chrono::steady_clock;

void require(natsStatus status, const char* action) {
  if (status != NATS_OK) throw std::runtime_error(natsFailure(action, status).text);
}

void publishOne(jsCtx* context, const std::string& body, long number) {
  natsMsg* message = nullptr;
  require(natsMsg_Create(&message, "events.7.bench", nullptr, body.data(),
                         static_cast<int>(body.size())),
          "create");
  const std::string id = "bare-" + std::to_string(::getpid()) + "-" + std::to_string(number);
  require(natsMsgHeader_Set(message, kEventIdHeader, id.c_str()), "header");
  require(js_PublishMsgAsync(context, &message, nullptr), "publish");
}

}  // namespace

void serveWithoutBroker(const std::string& certificateFile, const std::string& keyFile,
                        unsigned threads) {
  GatewayOptions options;
  options.certificateFile = certificateFile;
  options.keyFile = keyFile;
  auto tls = tlsContextOf(options);
  if (!tls) throw std::runtime_error(tls.error().text);
  const auto server = GatewayServer::start(
      "127.0.0.1", 0, threads, std::move(*tls), GatewayLimits(),
      [](const HttpRequest&, const Respond& respond) { respond({}); },
      [](const GatewayExchange&) {});
  if (!server) throw std::runtime_error(server.error().text);
  std::printf("%d\n", (*server)->port());
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
}

void publish(const std::vector<std::string>& servers, std::size_t bytes,
             std::chrono::milliseconds time) {
  const auto options = natsOptionsFor({servers, "", ""}, "bench");
  if (!options) throw std::runtime_error(options.error().text);
  natsConnection* connection = nullptr;
  require(natsConnection_Connect(&connection, options->get()), "connect");
  const NatsHandle<natsConnection> owned(connection);
  jsOptions settings;
  jsOptions_Init(&settings);
  settings.PublishAsync.MaxPending = 1'000;
  settings.PublishAsync.StallWait = 60'000;
  jsCtx* context = nullptr;
  require(natsConnection_JetStream(&context, connection, &settings), "JetStream");
  const NatsHandle<jsCtx> ownedContext(context);
  const std::string body(bytes, 'x');
  const Clock::time_point start = Clock::now();
  long count = 0;
  while (Clock::now() - start < time)
    publishOne(context, body, count++);
  require(js_PublishAsyncComplete(context, nullptr), "complete");
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  std::printf("{\"accepted\":%ld,\"per_second\":%.1f}\n", count,
              static_cast<double>(count) / seconds);
}

}  // namespace jx::bench
