// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/FaultsApi.h"

#include <string>

#include "tools/jx/collector/ApiResponse.h"

namespace jx {

void FaultsApi::install(HttpServer& server) {
  const std::string path = "/api/faults";
  server.onGet(path,
               [this](const httplib::Request&, const std::string&, httplib::Response& response) {
                 sendJson(response, 200, plan_.toJson());
               });
  server.onPost(
      path, [this](const httplib::Request&, const std::string& body, httplib::Response& response) {
        const Done set = plan_.set(body);
        if (!set) return sendError(response, 400, set.error().text);
        sendJson(response, 200, plan_.toJson());
      });
  server.onDelete(path,
                  [this](const httplib::Request&, const std::string&, httplib::Response& response) {
                    plan_.clear();
                    sendJson(response, 200, plan_.toJson());
                  });
}

}  // namespace jx
