// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "bench/gateway/Baselines.h"
#include "bench/gateway/Clients.h"

namespace {

struct Options {
  jx::bench::Clients clients;
  int seconds = 1;
  std::string certificateFile;
  std::string keyFile;
  unsigned threads = 1;
  std::vector<std::string> servers;
};

void addOptions(CLI::App& app, Options& options) {
  app.require_subcommand(1);
  app.add_option("--port", options.clients.port, "Port of the gateway");
  app.add_option("--ca", options.clients.authorityFile, "PEM file that signs the gateway");
  app.add_option("--connections", options.clients.connections, "Number of clients");
  app.add_option("--bytes", options.clients.bytes, "Size of a body");
  app.add_option("--seconds", options.seconds, "Duration");
  app.add_option("--cert", options.certificateFile, "Certificate of the server");
  app.add_option("--key", options.keyFile, "Key of the server");
  app.add_option("--threads", options.threads, "Threads of the server");
  app.add_option("--nats", options.servers, "URL of a NATS server; may be repeated");
}

void addCommands(CLI::App& app, const Options& options) {
  using namespace jx::bench;
  app.add_subcommand("load", "Post events")->callback([&] { runClients(options.clients); });
  app.add_subcommand("idle", "Hold connections")->callback([&] { holdClients(options.clients); });
  app.add_subcommand("serve", "Respond with 204 without a broker")->callback([&] {
    serveWithoutBroker(options.certificateFile, options.keyFile, options.threads);
  });
  app.add_subcommand("publish", "Publish events without a gateway")->callback([&] {
    publish(options.servers, options.clients.bytes, options.clients.time);
  });
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Measures jx gateway and its baselines; bench/gateway/run.py starts it");
  app.fallthrough();
  Options options;
  addOptions(app, options);
  app.parse_complete_callback(
      [&] { options.clients.time = std::chrono::seconds(options.seconds); });
  addCommands(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "jx_bench_gateway: %s\n", error.what());
    return 1;
  }
  return 0;
}
