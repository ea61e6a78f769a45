// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayAdmin.h"

namespace jx {
namespace {

GatewayResponse page(int status, std::string text) {
  GatewayResponse response;
  response.status = status;
  response.body = std::move(text);
  response.contentType = "text/plain; charset=utf-8";
  return response;
}

}  // namespace

std::optional<GatewayResponse> GatewayAdmin::health(std::string_view path) const {
  if (path == "/healthz") return page(200, "ok\n");
  if (path != "/readyz") return std::nullopt;
  if (isStopping_) return page(503, "stopping\n");
  if (!log_.isReady()) return page(503, "broker not connected\n");
  return page(200, "ready\n");
}

GatewayResponse GatewayAdmin::respond(const HttpRequest& request, const GatewayUsage& usage) const {
  if (request.method != "GET" && request.method != "HEAD") {
    GatewayResponse response = page(405, "method not allowed\n");
    response.headers = {{"Allow", "GET, HEAD"}};
    return response;
  }
  if (auto response = health(request.path)) return std::move(*response);
  if (request.path != "/metrics") return page(404, "not found\n");
  GatewayResponse response = page(200, metrics_.text(usage, log_.isReady()));
  response.contentType = "text/plain; version=0.0.4; charset=utf-8";
  return response;
}

}  // namespace jx
