// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <semaphore>
#include <string>
#include <vector>

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Serves the web UI, the events and their counts as JSON, and the CA certificate.
class CollectorApi {
 public:
  /// `store` must outlive the server in which this API is installed.
  CollectorApi(EventStore& store, std::string authorityPem);

  /// Sets the HTTPS port and the CA file that GET /api/about returns. Call before the server
  /// starts.
  void setEndpoints(int eventsPort, std::string authorityFile);
  /// Adds the routes to `server`. This object must outlive it.
  void install(HttpServer& server);

 private:
  void listEvents(const httplib::Request& request, httplib::Response& response) const;
  void showEvent(const httplib::Request& request, httplib::Response& response) const;
  void getEndpoints(httplib::Response& response) const;
  void summarise(httplib::Response& response) const;
  void listSessions(const httplib::Request& request, httplib::Response& response) const;
  void reset(httplib::Response& response) const;
  static void installPage(HttpServer& server);

  static constexpr std::ptrdiff_t kMaxLists = 2;

  EventStore& store_;
  /// A list may need hundreds of MiB until it is a response.
  std::counting_semaphore<> building_{kMaxLists};
  const std::string authorityPem_;
  std::string authorityFile_;
  std::int64_t eventsPort_ = 0;
};

}  // namespace jx
