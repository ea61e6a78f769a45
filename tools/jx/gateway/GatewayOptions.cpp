// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayOptions.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <charconv>
#include <fstream>
#include <map>
#include <set>

namespace jx {
namespace {

constexpr std::int64_t kMaxMilliseconds = 3'600'000;

// "7:key" allows source key "key" for site 7.
Result<AllowedSources> sourcesOf(const std::vector<std::string>& texts) {
  AllowedSources sources;
  for (const std::string& text : texts) {
    const std::size_t colon = text.find(':');
    std::int64_t site = 0;
    const char* const end = text.data() + std::min(colon, text.size());
    const auto [rest, error] = std::from_chars(text.data(), end, site);
    if (colon == std::string::npos || error != std::errc() || rest != end ||
        colon + 1 == text.size()) {
      return Error{"--allow must be SITE:KEY, with a site ID in digits"};
    }
    sources[site].insert(text.substr(colon + 1));
  }
  return sources;
}

template <typename Number>
void addNumber(CLI::App& command, const char* name, Number& number, const char* help,
               std::int64_t least, std::int64_t most) {
  command.add_option(name, number, help)->check(CLI::Range(least, most))->capture_default_str();
}

void addServerOptions(CLI::App& command, GatewayOptions& options) {
  command.add_option("--listen", options.address, "Set the IP address to listen on")
      ->capture_default_str();
  addNumber(command, "--port", options.port, "Set the port; 0 selects a free port", 0, 65'535);
  command.add_option("--cert", options.certificateFile, "PEM file of the certificate chain");
  command.add_option("--key", options.keyFile, "PEM file of the private key");
  command.add_flag("--plain", options.isPlain, "Serve HTTP without TLS, for use behind a proxy");
  command.add_option("--threads", options.threads, "Set the number of threads")
      ->check(CLI::Range(1, 256));
  command
      .add_option("--admin-listen", options.adminAddress, "Set the IP address of the admin port")
      ->capture_default_str();
  addNumber(command, "--admin-port", options.adminPort,
            "Set the port of /metrics, /healthz and /readyz; 0: a free port, -1: none", -1, 65'535);
}

void addLimitOptions(CLI::App& command, GatewayOptions& options) {
  constexpr std::int64_t kGiB = std::int64_t{1} << 30;
  addNumber(command, "--max-body", options.limits.bodyBytes, "Limit the bytes of a body", 1, kGiB);
  addNumber(command, "--max-head", options.limits.headBytes,
            "Limit the bytes of the request line and headers", 1024, 64'000);
  addNumber(command, "--max-connections", options.limits.connections,
            "Limit the open connections; more are closed", 1, 10'000'000);
  addNumber(command, "--max-bytes-in-flight", options.limits.bytesInFlight,
            "Limit the memory of requests; above it, requests get 503", 1, 1024 * kGiB);
  addNumber(command, "--max-pending", options.nats.maxPending,
            "Limit the events that wait for the broker; above it, requests get 503", 1, 10'000'000);
  addNumber(command, "--broker-timeout", options.brokerTimeoutMs,
            "Limit the milliseconds until the broker has stored an event", 1, kMaxMilliseconds);
  addNumber(command, "--drain-time", options.drainMs,
            "Limit the milliseconds for open requests when the gateway stops", 0, kMaxMilliseconds);
}

void addIntakeOptions(CLI::App& command, GatewayOptions& options) {
  command
      .add_option("--allow", options.sources,
                  "Accept only this site and source key, as SITE:KEY; may be repeated")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  addNumber(command, "--rate-per-source", options.intake.ratePerSource,
            "Limit the events per second of each source; 0: no limit", 0, 100'000'000);
  command.add_flag("--validate", options.intake.validates,
                   "Store events that do not pass validation in a second stream");
}

void addLogOptions(CLI::App& command, GatewayOptions& options) {
  static const std::map<std::string, JsonLog::Level> kLevels = {
      {"error", JsonLog::Level::Error},
      {"warning", JsonLog::Level::Warning},
      {"info", JsonLog::Level::Info}};
  static const std::map<std::string, AccessLog> kAccess = {
      {"none", AccessLog::None}, {"errors", AccessLog::Errors}, {"all", AccessLog::All}};
  command.add_option("--log-level", options.logLevel, "Log error, warning or info and above")
      ->transform(CLI::CheckedTransformer(kLevels).description("error|warning|info"))
      ->default_str("info")
      ->type_name("LEVEL");
  command.add_option("--access-log", options.accessLog, "Log requests: none, errors or all")
      ->transform(CLI::CheckedTransformer(kAccess).description("none|errors|all"))
      ->default_str("errors")
      ->type_name("REQUESTS");
}

// The parser would cut a value at "#", and read the lines after an open list as part of it.
void rejectUnsupportedLines(const std::string& file) {
  std::ifstream stream(file);
  std::set<std::string> keys;
  std::string line;
  for (int number = 1; std::getline(stream, line); ++number) {
    const std::size_t start = line.find_first_not_of(" \t\r");
    if (start == std::string::npos || line[start] == '#') continue;
    const std::string place = file + ": line " + std::to_string(number) + ": ";
    if (line.find('#') != std::string::npos) {
      throw CLI::ConfigError(place + "\"#\" is only supported at the start of a line");
    }
    const std::size_t bracket = line.find("= [");
    if (bracket != std::string::npos && line.find(']', bracket) == std::string::npos) {
      throw CLI::ConfigError(place + "a list must be in one line");
    }
    const std::string key = line.substr(start, line.find_first_of(" \t=", start) - start);
    if (!keys.insert(key).second) {
      throw CLI::ConfigError(place + "repeated key \"" + key + "\"");
    }
  }
}

}  // namespace

void addGatewayOptions(CLI::App& command, GatewayOptions& options) {
  command.add_option("--config", options.configurationFile,
                     "Read options from a file of lines such as: port = 8443");
  command.add_flag("--check", options.isCheck, "Check the options and exit");
  addServerOptions(command, options);
  addIntakeOptions(command, options);
  addNatsOptions(command, options.nats.servers);
  addKafkaOptions(command, options.kafka);
  addLimitOptions(command, options);
  addLogOptions(command, options);
}

void readConfigurationFile(CLI::App& command, const std::string& file) {
  if (!CLI::ExistingFile(file).empty()) throw CLI::FileError::Missing(file);
  rejectUnsupportedLines(file);
  CLI::ConfigTOML format;
  for (const CLI::ConfigItem& item : format.from_file(file)) {
    if (!item.parents.empty()) {
      throw CLI::ConfigError(file + ": tables such as [" + item.parents.front() +
                             "] are not supported");
    }
    CLI::Option* const option = command.get_option_no_throw("--" + item.name);
    if (option == nullptr || item.name == "config" || item.name == "help") {
      throw CLI::ConfigError(file + ": unknown key \"" + item.name + "\"");
    }
    if (option->count() > 0) continue;
    if (option->get_items_expected() == 0) {
      option->add_result(option->get_flag_value(item.name, format.to_flag(item)));
    } else {
      option->add_result(item.inputs);
    }
    option->run_callback();
  }
}

Done completeOptions(GatewayOptions& options) {
  Result<AllowedSources> sources = sourcesOf(options.sources);
  if (!sources) return sources.error();
  options.intake.allowed = std::move(*sources);
  options.limits.drain = std::chrono::milliseconds(options.drainMs);
  options.nats.timeout = std::chrono::milliseconds(options.brokerTimeoutMs);
  options.kafka.timeout = options.nats.timeout;
  options.kafka.maxPending = options.nats.maxPending;
  if (options.nats.servers.urls.empty() == options.kafka.servers.empty()) {
    return Error{"either --nats or --kafka is required"};
  }
  if (!options.isPlain && (options.certificateFile.empty() || options.keyFile.empty())) {
    return Error{"--cert and --key are required, or --plain behind a proxy"};
  }
  return done();
}

Result<SslContextHandle> tlsContextOf(const GatewayOptions& options) {
  if (options.isPlain) return SslContextHandle();
  SslContextHandle context(SSL_CTX_new(TLS_server_method()));
  const bool isUsable =
      context && SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION) == 1 &&
      SSL_CTX_use_certificate_chain_file(context.get(), options.certificateFile.c_str()) == 1 &&
      SSL_CTX_use_PrivateKey_file(context.get(), options.keyFile.c_str(), SSL_FILETYPE_PEM) == 1 &&
      SSL_CTX_check_private_key(context.get()) == 1;
  if (isUsable) return context;
  const char* const reason = ERR_reason_error_string(ERR_peek_last_error());
  return Error{"cannot use " + options.certificateFile + " and " + options.keyFile + ": " +
               (reason != nullptr ? reason : "unknown error")};
}

}  // namespace jx
