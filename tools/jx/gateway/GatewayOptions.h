// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/OpenSslHandles.h"
#include "tools/jx/gateway/GatewayIntake.h"
#include "tools/jx/gateway/GatewayLimits.h"
#include "tools/jx/gateway/JsonLog.h"
#include "tools/jx/gateway/KafkaConfiguration.h"
#include "tools/jx/gateway/NatsEventLog.h"
#include "tools/jx/gateway/RequestLog.h"

namespace jx {

struct GatewayOptions {
  std::string configurationFile;
  bool isCheck = false;
  std::string address = "127.0.0.1";
  int port = 8443;
  std::string certificateFile;
  std::string keyFile;
  bool isPlain = false;
  unsigned threads = std::max(1u, std::thread::hardware_concurrency());
  std::string adminAddress = "127.0.0.1";
  int adminPort = 9464;  ///< -1: no admin server
  std::vector<std::string> sources;
  IntakeSettings intake;
  NatsSettings nats;
  KafkaSettings kafka;
  GatewayLimits limits;
  std::int64_t brokerTimeoutMs = 5'000;
  std::int64_t drainMs = 20'000;
  JsonLog::Level logLevel = JsonLog::Level::Info;
  AccessLog accessLog = AccessLog::Errors;
};

/// Adds the options of `jx gateway`, which set `options`.
void addGatewayOptions(CLI::App& command, GatewayOptions& options);
/// Reads the configuration file, whose keys are the names of options. Options on the command line
/// take precedence. Throws CLI::ParseError for an unknown key or a wrong value.
void readConfigurationFile(CLI::App& command, const std::string& file);
/// Checks options that depend on each other, and completes the settings of the parts.
Done completeOptions(GatewayOptions& options);
/// Returns null for a plain server.
Result<SslContextHandle> tlsContextOf(const GatewayOptions& options);

}  // namespace jx
