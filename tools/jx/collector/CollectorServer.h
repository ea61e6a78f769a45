// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/CertificateAuthority.h"
#include "tools/jx/collector/CollectorApi.h"
#include "tools/jx/collector/EventIntake.h"
#include "tools/jx/collector/EventSink.h"
#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/FaultsApi.h"
#include "tools/jx/collector/HttpLimits.h"
#include "tools/jx/collector/HttpServer.h"
#include "tools/jx/collector/LiveApi.h"
#include "tools/jx/collector/StateFolder.h"
#include "tools/jx/collector/TransferApi.h"
#include "tools/jx/collector/WebGuard.h"

namespace jx {

/// Configuration of the collector: addresses, storage and limits.
struct CollectorSettings {
  std::filesystem::path stateFolder;
  std::string eventsAddress = "127.0.0.1";
  int eventsPort = 8443;  ///< 0 selects a free port
  std::string webAddress = "127.0.0.1";
  int webPort = 8080;  ///< 0 selects a free port
  /// Host names and IP addresses of this machine, in addition to localhost, 127.0.0.1, ::1 and the
  /// system's host name.
  std::vector<std::string> names;
  std::int64_t maxEvents = 100'000;  ///< number of stored events; the oldest are evicted
  /// Size of the stored events in bytes; the oldest are evicted.
  std::int64_t maxBytes = EventStore::kDefaultMaxBytes;
  bool isStrict = false;  ///< respond to invalid events with 422
  HttpLimits limits;
  LiveTiming live;
  std::shared_ptr<EventSink> sink;  ///< receives each accepted event; null: none
};

/// Returns the host names and addresses of the server certificate, without duplicates.
std::vector<std::string> certifiedNames(const CollectorSettings& settings);

/// The complete collector, wired top to bottom: state folder, certificate authority, event store,
/// the HTTPS server for devices, and the HTTP server for the web UI and the API.
class CollectorServer {
 public:
  /// Starts the collector. On success, both servers are listening.
  static Result<std::unique_ptr<CollectorServer>> start(const CollectorSettings& settings);
  /// Stops both servers. Every event acknowledged with 200 is stored.
  ~CollectorServer();

  int eventsPort() const { return eventsServer_.listeningPort(); }
  int webPort() const { return webServer_.listeningPort(); }
  std::filesystem::path authorityFile() const { return authority_.certificateFile(); }

 private:
  CollectorServer(StateFolder folder, CertificateAuthority authority,
                  std::unique_ptr<EventStore> store, SslContextHandle tls,
                  std::vector<std::string> names, const CollectorSettings& settings);

  StateFolder folder_;
  CertificateAuthority authority_;
  std::unique_ptr<EventStore> store_;
  FaultPlan faults_;
  EventIntake intake_;
  WebGuard guard_;
  CollectorApi api_;
  LiveApi live_;
  FaultsApi faultsApi_;
  TransferApi transfer_;
  HttpServer eventsServer_;
  HttpServer webServer_;
};

}  // namespace jx
