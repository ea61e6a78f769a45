// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "tools/jx/collector/ClientSlots.h"
#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Exports events for other collectors and programs, and imports them.
class TransferApi {
 public:
  /// `store` must outlive the server in which this is installed. `maxTransfers` limits the number
  /// of transfers at the same time: each may hold hundreds of MiB.
  TransferApi(EventStore& store, std::size_t maxTransfers)
      : store_(store), slots_(maxTransfers, maxTransfers) {}

  /// Adds the routes to `server`. This object must outlive it.
  void install(HttpServer& server);

 private:
  /// An export file format.
  struct Format {
    std::string contentType;
    std::string fileName;
    std::string head;
    std::string between;
    std::string tail;
    std::string (*write)(const StoredEvent&);
  };

  void exportEvents(const httplib::Request& request, httplib::Response& response,
                    const Format& format);
  void importEvents(const httplib::Request& request, const HttpServer::BodyReader& read,
                    httplib::Response& response);

  EventStore& store_;
  ClientSlots slots_;
};

}  // namespace jx
