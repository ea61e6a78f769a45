// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Exports events for other collectors and programs, and imports them.
class TransferApi {
 public:
  /// `store` must outlive the server in which this is installed.
  explicit TransferApi(EventStore& store) : store_(store) {}

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
                    const Format& format) const;
  void importEvents(const HttpServer::BodyReader& read, httplib::Response& response) const;

  EventStore& store_;
};

}  // namespace jx
