// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CollectorCommand.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>

#include "jx/core/json/JXUtf8.h"
#include "tools/jx/AtomicFile.h"
#include "tools/jx/ExitStatus.h"
#include "tools/jx/TerminationSignals.h"
#include "tools/jx/collector/CaCommand.h"
#include "tools/jx/collector/Certificates.h"

namespace jx {
namespace {

constexpr rlim_t kDescriptors = 8192;
constexpr std::int64_t kMinStoreBytes = std::int64_t{1024} * 1024;
constexpr std::int64_t kMaxStoreBytes = kMinStoreBytes * kMinStoreBytes;

// The default of 1,024 descriptors would limit the connections to fewer than the servers allow.
void raiseDescriptorLimit() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= kDescriptors) return;
  limit.rlim_cur = std::min(kDescriptors, limit.rlim_max);
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

int fail(const Error& failure) {
  std::fprintf(stderr, "jx collector: %s\n", failure.text.c_str());
  return kExitFailure;
}

std::string quotedForShell(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string shownHost(const std::string& address) {
  const bool isLocal =
      address == "127.0.0.1" || address == "::1" || address == "0.0.0.0" || address == "::";
  if (isLocal) return "localhost";
  return address.find(':') == std::string::npos ? address : "[" + address + "]";
}

void printEndpoints(const CollectorOptions& options, const CollectorServer& server) {
  const std::string ca = server.authorityFile().string();
  std::printf("Events URL    https://%s:%d/events\n",
              shownHost(options.settings.eventsAddress).c_str(), server.eventsPort());
  std::printf("Web UI        http://%s:%d/\n", shownHost(options.settings.webAddress).c_str(),
              server.webPort());
  std::printf("CA file       %s\n", ca.c_str());
  std::printf("Trust CA      in the application: configuration.caFile = \"%s\";\n", ca.c_str());
  std::printf(
      "Install CA    on a test machine: sudo install -m 644 %s "
      "/usr/local/share/ca-certificates/jx-collector.crt && sudo update-ca-certificates\n",
      quotedForShell(ca).c_str());
  std::printf(
      "Remove CA     sudo rm /usr/local/share/ca-certificates/jx-collector.crt && "
      "sudo update-ca-certificates --fresh\n");
  std::printf("Warning       Never install the CA on a machine that is used for anything else.\n");
  std::printf("Press Ctrl-C to stop.\n");
  std::fflush(stdout);
}

std::string portsJson(const CollectorServer& server) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  const std::string ca = withReplacementCharacters(server.authorityFile().string());
  writer.StartObject();
  writer.Key("events_port");
  writer.Int(server.eventsPort());
  writer.Key("web_port");
  writer.Int(server.webPort());
  writer.Key("ca");
  writer.String(ca.data(), static_cast<rapidjson::SizeType>(ca.size()));
  writer.Key("pid");
  writer.Int(static_cast<int>(::getpid()));
  writer.EndObject();
  return std::string(buffer.GetString(), buffer.GetSize()) + "\n";
}

void addOptions(CLI::App& command, CollectorOptions& options) {
  CollectorSettings& settings = options.settings;
  const CLI::Range ports(0, 65535);
  command.add_option("--state", settings.stateFolder,
                     "Store certificates and events in this folder "
                     "[$XDG_STATE_HOME/jx-collector or ~/.local/state/jx-collector]");
  command
      .add_option("--port", settings.eventsPort,
                  "Set the HTTPS port for events; 0 selects a free port")
      ->check(ports)
      ->capture_default_str();
  command.add_option("--listen", settings.eventsAddress, "Set the address to listen on for events")
      ->capture_default_str();
  command
      .add_option("--web-port", settings.webPort,
                  "Set the HTTP port of the web UI; 0 selects a free port")
      ->check(ports)
      ->capture_default_str();
  command
      .add_option("--web-listen", settings.webAddress,
                  "Set the address to listen on for the web UI")
      ->capture_default_str();
  command
      .add_option("--name", settings.names,
                  "Add a host name or IP address of this machine to the server certificate")
      ->check(certifiableName())
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command
      .add_option("--max-events", settings.maxEvents,
                  "Limit the number of stored events; the oldest are evicted")
      ->check(CLI::Range(std::int64_t{1}, std::int64_t{1'000'000'000}))
      ->capture_default_str();
  command
      .add_option("--max-bytes", settings.maxBytes,
                  "Limit the size of the stored events in bytes; the oldest are evicted")
      ->check(CLI::Range(kMinStoreBytes, kMaxStoreBytes))
      ->capture_default_str();
  command.add_flag("--strict", settings.isStrict,
                   "Respond to invalid events with 422 and the diagnostics; store them anyway");
  command.add_option(
      "--ports-file", options.portsFile,
      "Write the ports, the CA file and the process ID to this file, as JSON, when ready");
}

}  // namespace

int runCollector(const CollectorOptions& options) {
  const TerminationSignals termination;
  raiseDescriptorLimit();
  CollectorSettings settings = options.settings;
  if (settings.stateFolder.empty()) {
    const Result<std::filesystem::path> folder = StateFolder::defaultPath();
    if (!folder) return fail(folder.error());
    settings.stateFolder = *folder;
  }
  std::error_code ignored;
  const std::filesystem::path absolute = std::filesystem::absolute(settings.stateFolder, ignored);
  if (!absolute.empty()) settings.stateFolder = absolute;
  const Result<std::unique_ptr<CollectorServer>> server = CollectorServer::start(settings);
  if (!server) return fail(server.error());
  if (!options.portsFile.empty()) {
    const Done written = writeFileAtomically(options.portsFile, portsJson(**server), 0644);
    if (!written) return fail(written.error());
  }
  printEndpoints(options, **server);
  termination.wait();
  return kExitOk;
}

void addCollectorCommand(CLI::App& app, int& exitStatus) {
  const auto options = std::make_shared<CollectorOptions>();
  CLI::App* const command = app.add_subcommand(
      "collector", "Receive, validate and store events over HTTPS, and serve the inspector web UI");
  addOptions(*command, *options);
  addCaCommand(*command, exitStatus);
  command->callback([options, command, &exitStatus] {
    if (command->get_subcommands().empty()) exitStatus = runCollector(*options);
  });
}

}  // namespace jx
