// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CollectorServer.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "tools/jx/collector/Certificates.h"

namespace jx {
namespace {

std::string hostName() {
  std::array<char, 256> name{};
  if (::gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

bool isWildcard(const std::string& address) { return address == "0.0.0.0" || address == "::"; }

}  // namespace

// Without duplicates and in a fixed order, so that the same settings keep the same certificate.
std::vector<std::string> certifiedNames(const CollectorSettings& settings) {
  std::vector<std::string> names{"localhost", "127.0.0.1", "::1"};
  std::vector<std::string> further{hostName()};
  if (!isWildcard(settings.eventsAddress)) further.push_back(settings.eventsAddress);
  further.insert(further.end(), settings.names.begin(), settings.names.end());
  for (const std::string& name : further) {
    const bool isNew = std::find(names.begin(), names.end(), name) == names.end();
    if (isNew && isCertifiableName(name)) names.push_back(name);
  }
  return names;
}

CollectorServer::CollectorServer(StateFolder folder, CertificateAuthority authority,
                                 std::unique_ptr<EventStore> store, SslContextHandle tls,
                                 std::vector<std::string> names, const CollectorSettings& settings)
    : folder_(std::move(folder)),
      authority_(std::move(authority)),
      store_(std::move(store)),
      faults_(store_->broadcaster()),
      intake_(*store_, faults_, settings.isStrict, settings.sink),
      guard_(std::move(names)),
      api_(*store_, authority_.certificatePem()),
      live_(*store_, faults_, settings.limits, settings.live),
      faultsApi_(faults_),
      transfer_(*store_, settings.limits.transfers),
      eventsServer_(std::move(tls), settings.limits),
      webServer_(nullptr, settings.limits) {
  intake_.install(eventsServer_);
  webServer_.setRequestGuard([this](const httplib::Request& request, httplib::Response& response) {
    return guard_.rejects(request, response);
  });
  api_.install(webServer_);
  live_.install(webServer_);
  faultsApi_.install(webServer_);
  transfer_.install(webServer_);
}

CollectorServer::~CollectorServer() {
  eventsServer_.stopServing();
  webServer_.stopServing();
}

Result<std::unique_ptr<CollectorServer>> CollectorServer::start(const CollectorSettings& settings) {
  Result<StateFolder> folder = StateFolder::open(settings.stateFolder);
  if (!folder) return folder.error();
  std::vector<std::string> names = certifiedNames(settings);
  Result<CertificateAuthority> authority =
      CertificateAuthority::open(folder->path(), names, std::time(nullptr));
  if (!authority) return authority.error();
  for (const std::string& notice : authority->notices())
    std::fprintf(stderr, "jx collector: %s\n", notice.c_str());
  Result<SslContextHandle> tls = authority->createServerContext();
  if (!tls) return tls.error();
  Result<std::unique_ptr<EventStore>> store =
      EventStore::open(folder->path() / "events.db", settings.maxEvents, settings.maxBytes);
  if (!store) return store.error();

  std::unique_ptr<CollectorServer> server(
      new CollectorServer(std::move(*folder), std::move(*authority), std::move(*store),
                          std::move(*tls), std::move(names), settings));
  const Done events = server->eventsServer_.start(settings.eventsAddress, settings.eventsPort);
  if (!events) return events.error();
  server->api_.setEndpoints(server->eventsPort(), server->authorityFile().string());
  const Done web = server->webServer_.start(settings.webAddress, settings.webPort);
  if (!web) return web.error();
  return server;
}

}  // namespace jx
