// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// The interface for people and programs: the page, the events and the summary as JSON, and the CA
/// certificate. Answers nothing that was not addressed to this machine by one of its names or by
/// an IP address, so that a foreign web site that points its own name here cannot read the events.
class CollectorApi {
 public:
  /// `store` outlives the server that this is installed in. `names` are host names under which the
  /// machine may be addressed.
  CollectorApi(EventStore& store, std::string authorityPem, std::vector<std::string> names);

  /// Adds the routes; this object outlives the server.
  void install(HttpServer& server);

 private:
  bool refuseForeignHost(const httplib::Request& request, httplib::Response& response) const;
  void listEvents(const httplib::Request& request, httplib::Response& response) const;
  void showEvent(const httplib::Request& request, httplib::Response& response) const;
  void summarise(httplib::Response& response) const;
  void showPage(httplib::Response& response) const;

  EventStore& store_;
  const std::string authorityPem_;
  const std::vector<std::string> names_;
};

}  // namespace jx
