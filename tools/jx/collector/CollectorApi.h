// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// The interface for people and programs: the page, the events and what is counted of them as JSON,
/// and the CA certificate.
class CollectorApi {
 public:
  /// `store` outlives the server that this is installed in.
  CollectorApi(EventStore& store, std::string authorityPem);

  /// Where an application reaches this collector, for the page to tell. Said before the server that
  /// this is installed in starts.
  void setEndpoints(int eventsPort, std::string authorityFile);
  /// Adds the routes; this object outlives the server.
  void install(HttpServer& server);

 private:
  void listEvents(const httplib::Request& request, httplib::Response& response) const;
  void showEvent(const httplib::Request& request, httplib::Response& response) const;
  void getEndpoints(httplib::Response& response) const;
  void summarise(httplib::Response& response) const;
  void listSessions(const httplib::Request& request, httplib::Response& response) const;
  void reset(httplib::Response& response) const;
  static void installPage(HttpServer& server);

  EventStore& store_;
  const std::string authorityPem_;
  std::string authorityFile_;
  std::int64_t eventsPort_ = 0;
};

}  // namespace jx
