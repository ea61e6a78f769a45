// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayCommand.h"

#include <poll.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>

#include "tools/jx/ExitStatus.h"
#include "tools/jx/TerminationSignals.h"
#include "tools/jx/gateway/DrainCommand.h"
#include "tools/jx/gateway/GatewayAdmin.h"
#include "tools/jx/gateway/GatewayOptions.h"
#include "tools/jx/gateway/GatewayServer.h"
#include "tools/jx/gateway/GatewaySetup.h"
#include "tools/jx/gateway/KafkaEventLog.h"

namespace jx {
namespace {

using Level = JsonLog::Level;
using Server = std::unique_ptr<GatewayServer>;

constexpr std::size_t kReservedDescriptors = 128;
constexpr int kLevelOfErrors = 3;  // of syslog, in which librdkafka reports
constexpr int kWatchIntervalMs = 200;
constexpr int kRenewals = 5;  // of the watch, about a second

// A gateway that runs until SIGINT or SIGTERM.
class Gateway {
 public:
  explicit Gateway(const GatewayOptions& options)
      : options_(options),
        log_(stderr, options.logLevel),
        requests_(log_, metrics_, options.accessLog) {}

  // The callbacks of the broker answer requests, so it ends before the server does, but after its
  // threads, which use it.
  ~Gateway() {
    if (server_) server_->stop();
    if (adminServer_) adminServer_->stop();
    broker_.reset();
  }
  Gateway(const Gateway&) = delete;
  Gateway& operator=(const Gateway&) = delete;

  Done start() {
    Result<SslContextHandle> tls = tlsContextOf(options_);
    if (!tls) return tls.error();
    Result<std::unique_ptr<EventLog>> broker = connectBroker();
    if (!broker) return broker.error();
    broker_ = std::move(*broker);
    intake_ = std::make_unique<GatewayIntake>(*broker_, options_.intake, metrics_);
    admin_ = std::make_unique<GatewayAdmin>(*broker_, metrics_);
    const Done listening = listen(std::move(*tls));
    return listening ? listenForAdmin() : listening;
  }

  void reportStart(std::size_t connections) {
    std::printf("Events URL    %s://%s:%d/events\n", options_.isPlain ? "http" : "https",
                options_.address.c_str(), server_->port());
    if (adminServer_) {
      std::printf("Admin URL     http://%s:%d/\n", options_.adminAddress.c_str(),
                  adminServer_->port());
    }
    std::fflush(stdout);
    log_.write(Level::Info, "started",
               {{"version", JX_VERSION},
                {"port", server_->port()},
                {"threads", options_.threads},
                {"broker", usesKafka() ? "kafka" : "nats"},
                {"validation", options_.intake.validates ? "on" : "off"}});
    if (options_.limits.connections < connections) {
      log_.write(Level::Warning, "max_connections_reduced",
                 {{"connections", options_.limits.connections}, {"reason", "limit of open files"}});
    }
  }

  // Returns when the process has to end.
  void run(const TerminationSignals& termination) {
    bool wasReady = false;
    pollfd signal{termination.fd(), POLLIN, 0};
    for (int count = 1; ::poll(&signal, 1, kWatchIntervalMs) <= 0; ++count) {
      if (count % kRenewals == 0) requests_.renew();
      const bool isReady = broker_->isReady();
      if (isReady && !wasReady) log_.write(Level::Info, "broker_connected");
      if (!isReady && wasReady) log_.write(Level::Warning, "broker_disconnected");
      wasReady = isReady;
    }
    termination.wait();
  }

  bool stop() {
    admin_->stopBeingReady();
    log_.write(Level::Info, "stopping", {{"connections", server_->usage().connections.load()}});
    const bool isDrained = server_->drain();
    server_->stop();
    if (adminServer_) adminServer_->stop();
    broker_.reset();
    log_.write(isDrained ? Level::Info : Level::Error, "stopped",
               {{"accepted", metrics_.accepted.load()},
                {"requests_cut", server_->usage().requestsInFlight.load()}});
    return isDrained;
  }

 private:
  bool usesKafka() const { return !options_.kafka.servers.empty(); }
  Result<std::unique_ptr<EventLog>> connectBroker() {
    if (usesKafka()) {
      KafkaSettings settings = options_.kafka;
      settings.onLog = [this](int level, const std::string& text) {
        const bool isError = level <= kLevelOfErrors;
        log_.write(isError ? Level::Warning : Level::Info, "kafka", {{"text", text}});
      };
      auto log = KafkaEventLog::connect(settings);
      if (!log) return log.error();
      return std::unique_ptr<EventLog>(std::move(*log));
    }
    auto log = NatsEventLog::connect(options_.nats);
    if (!log) return log.error();
    return std::unique_ptr<EventLog>(std::move(*log));
  }
  Done listen(SslContextHandle tls) {
    auto started = GatewayServer::start(
        options_.address, options_.port, options_.threads, std::move(tls), options_.limits,
        [this](HttpRequest request, Respond respond) {
          if (auto health = admin_->health(request.path)) return respond(std::move(*health));
          intake_->handle(std::move(request), std::move(respond));
        },
        [this](const GatewayExchange& exchange) { requests_.add(exchange); });
    if (!started) return started.error();
    server_ = std::move(*started);
    return done();
  }
  Done listenForAdmin() {
    if (options_.adminPort < 0) return done();
    auto started = GatewayServer::start(
        options_.adminAddress, options_.adminPort, 1, SslContextHandle(), GatewayLimits(),
        [this](const HttpRequest& request, const Respond& respond) {
          respond(admin_->respond(request, server_->usage()));
        },
        [](const GatewayExchange&) {});
    if (!started) return started.error();
    adminServer_ = std::move(*started);
    return done();
  }

  const GatewayOptions& options_;
  JsonLog log_;
  GatewayMetrics metrics_;
  RequestLog requests_;
  std::unique_ptr<EventLog> broker_;
  std::unique_ptr<GatewayIntake> intake_;
  std::unique_ptr<GatewayAdmin> admin_;
  Server server_;
  Server adminServer_;
};

// Leaves descriptors for the brokers, the admin port and files. Without them, the connection to a
// broker could not be restored while televisions use all others.
std::size_t connectionsWithDescriptors() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return std::numeric_limits<std::size_t>::max();
  limit.rlim_cur = limit.rlim_max;
  ::setrlimit(RLIMIT_NOFILE, &limit);
  ::getrlimit(RLIMIT_NOFILE, &limit);
  return limit.rlim_cur > 2 * kReservedDescriptors ? limit.rlim_cur - kReservedDescriptors
                                                   : kReservedDescriptors;
}

int fail(const std::string& text, int status) {
  std::fprintf(stderr, "jx gateway: %s\n", text.c_str());
  return status;
}

int run(GatewayOptions& options) {
  const TerminationSignals termination;
  // OpenSSL writes to connections that the client may have closed.
  std::signal(SIGPIPE, SIG_IGN);
  const Done completed = completeOptions(options);
  if (!completed) return fail(completed.error().text, kExitUsage);
  if (options.isCheck) {
    const Result<SslContextHandle> tls = tlsContextOf(options);
    return tls ? kExitOk : fail(tls.error().text, kExitUsage);
  }
  const std::size_t wanted = options.limits.connections;
  options.limits.connections = std::min(wanted, connectionsWithDescriptors());
  Gateway gateway(options);
  const Done started = gateway.start();
  if (!started) return fail(started.error().text, kExitFailure);
  gateway.reportStart(wanted);
  gateway.run(termination);
  return gateway.stop() ? kExitOk : kExitFailure;
}

}  // namespace

void addGatewayCommand(CLI::App& app, int& exitStatus) {
  const auto options = std::make_shared<GatewayOptions>();
  CLI::App* const command =
      app.add_subcommand("gateway", "Receive the events of a fleet and store them in a stream");
  addGatewayOptions(*command, *options);
  command->require_subcommand(0, 1);
  addSetupCommand(*command, exitStatus);
  addDrainCommand(*command, exitStatus);
  command->callback([command, options, &exitStatus] {
    if (!command->get_subcommands().empty()) return;
    if (!options->configurationFile.empty()) {
      readConfigurationFile(*command, options->configurationFile);
    }
    exitStatus = run(*options);
  });
}

}  // namespace jx
