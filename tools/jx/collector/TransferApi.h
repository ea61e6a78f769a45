// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Carries events from one collector to another, or to other programs: export and import.
class TransferApi {
 public:
  /// `store` outlives the server that this is installed in.
  explicit TransferApi(EventStore& store) : store_(store) {}

  /// Adds the routes; this object outlives the server.
  void install(HttpServer& server);

 private:
  /// How events stand in one file.
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
