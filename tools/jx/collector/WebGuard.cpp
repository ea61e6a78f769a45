// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/WebGuard.h"

#include <strings.h>

#include <algorithm>
#include <string_view>

#include "tools/jx/collector/ApiResponse.h"
#include "tools/jx/collector/Certificates.h"

namespace jx {
namespace {

std::string hostWithoutPort(std::string host) {
  if (!host.empty() && host.front() == '[') {
    const std::size_t end = host.find(']');
    return end == std::string::npos ? host : host.substr(1, end - 1);
  }
  return host.substr(0, host.find(':'));
}

bool equalIgnoringCase(const std::string& a, const std::string& b) {
  return ::strcasecmp(a.c_str(), b.c_str()) == 0;
}

bool isOwnOrigin(const httplib::Request& request) {
  if (!request.has_header("Origin")) return true;
  return equalIgnoringCase(request.get_header_value("Origin"),
                           "http://" + request.get_header_value("Host"));
}

bool hasJsonContentType(const httplib::Request& request) {
  std::string type = request.get_header_value("Content-Type");
  type = type.substr(0, type.find(';'));
  type.erase(type.find_last_not_of(" \t") + 1);
  return equalIgnoringCase(type, "application/json") ||
         (request.path == "/api/import" && equalIgnoringCase(type, "application/x-ndjson"));
}

}  // namespace

bool WebGuard::rejects(const httplib::Request& request, httplib::Response& response) const {
  const std::string host = hostWithoutPort(request.get_header_value("Host"));
  const bool isKnownHost =
      isIpAddress(host) || std::any_of(names_.begin(), names_.end(), [&](const std::string& name) {
        return equalIgnoringCase(name, host);
      });
  if (!isKnownHost) {
    sendError(response, 403, "unknown name in the Host header");
    return true;
  }
  if (!isOwnOrigin(request)) {
    sendError(response, 403, "Origin must be the collector's own origin");
    return true;
  }
  const bool isReading = request.method == "GET" || request.method == "HEAD";
  if (!isReading && !hasJsonContentType(request)) {
    sendError(response, 415, "Content-Type must be application/json");
    return true;
  }
  return false;
}

}  // namespace jx
