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

/// Where the collector listens and what it keeps.
struct CollectorSettings {
  std::filesystem::path stateFolder;
  std::string eventsAddress = "127.0.0.1";
  int eventsPort = 8443;  ///< 0: any that is free
  std::string webAddress = "127.0.0.1";
  int webPort = 8080;  ///< 0: any that is free
  /// Host names and IP addresses of this machine beside localhost, 127.0.0.1, ::1 and the host
  /// name.
  std::vector<std::string> names;
  std::int64_t maxEvents = 100'000;
  bool isStrict = false;  ///< bad events are answered with 422
  HttpLimits limits;
  LiveTiming live;
};

/// The whole collector, wired top to bottom: state folder, certificate authority, store, the HTTPS
/// server for devices and the plain one for people.
class CollectorServer {
 public:
  /// Everything listens when this returns.
  static Result<std::unique_ptr<CollectorServer>> start(const CollectorSettings& settings);
  /// Stops both servers; what was answered with 200 is stored.
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
