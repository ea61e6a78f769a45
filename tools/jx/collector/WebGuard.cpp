// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/WebGuard.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "tools/jx/collector/ApiResponse.h"
#include "tools/jx/collector/Certificates.h"

namespace jx {
namespace {

constexpr int kMaxPort = 65535;

bool isPort(std::string_view text) {
  int port = -1;
  const char* const end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, port);
  return parsed.ec == std::errc() && parsed.ptr == end && port >= 0 && port <= kMaxPort;
}

// Returns the host of the only Host header, without brackets and port. Returns nullopt when there
// is not exactly one header with a valid host: two programs could read two different hosts.
std::optional<std::string> hostOf(const httplib::Request& request) {
  if (request.get_header_value_count("Host") != 1) return std::nullopt;
  const std::string value = request.get_header_value("Host");
  const bool isBracketed = !value.empty() && value.front() == '[';
  const std::size_t hostEnd =
      isBracketed ? value.find(']') : std::min(value.find(':'), value.size());
  if (hostEnd == std::string::npos) return std::nullopt;
  const std::string host = value.substr(isBracketed ? 1 : 0, hostEnd - (isBracketed ? 1 : 0));
  const std::string_view rest = std::string_view(value).substr(hostEnd + (isBracketed ? 1 : 0));
  if (!rest.empty() && !(rest.front() == ':' && isPort(rest.substr(1)))) return std::nullopt;
  const bool isIpv6 = isIpAddress(host) && host.find(':') != std::string::npos;
  return isBracketed == isIpv6 && isCertifiableName(host) ? std::optional(host) : std::nullopt;
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
  const std::optional<std::string> host = hostOf(request);
  if (!host) {
    sendError(response, 400, "Host must be one host name or IP address, optionally with a port");
    return true;
  }
  const bool isKnownHost =
      isIpAddress(*host) || std::any_of(names_.begin(), names_.end(), [&](const std::string& name) {
        return equalIgnoringCase(name, *host);
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
