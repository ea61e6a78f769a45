// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCollectionEndpoint.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "jx/core/JXLoopback.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

constexpr std::string_view kHttps = "https://";
constexpr std::string_view kHttp = "http://";

bool startsWith(std::string_view string, std::string_view prefix) {
  return string.substr(0, prefix.size()) == prefix;
}

std::string lowerCase(std::string_view string) {
  std::string lower(string);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string_view hostOf(std::string_view authority) {
  const std::size_t user = authority.rfind('@');
  if (user != std::string_view::npos) authority.remove_prefix(user + 1);
  if (!authority.empty() && authority.front() == '[') {
    return authority.substr(0, authority.find(']') + 1);
  }
  return authority.substr(0, authority.find(':'));
}

// Percent-encodes all characters that could end the host of a URL.
std::string encoded(std::string_view text) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string result;
  for (const char each : text) {
    const auto c = static_cast<unsigned char>(each);
    const bool isSafe = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                        (c >= 'a' && c <= 'z') || c == '-' || c == '.' || c == '_';
    if (isSafe) {
      result += each;
    } else {
      result.append({'%', kDigits[c >> 4], kDigits[c & 15]});
    }
  }
  return result;
}

// True for a host with optional user information and port. Rejects characters that URL parsers
// interpret differently, so that the connection goes to the host that is checked for loopback here.
bool isAuthority(std::string_view authority) {
  for (const char c : authority) {
    if (static_cast<unsigned char>(c) <= ' ' || c == 0x7F || c == '\\') return false;
  }
  return !hostOf(authority).empty();
}

// A configured host split at its scheme, which is case-insensitive and optional.
struct ConfiguredHost {
  bool isHttps = false;
  bool isHttp = false;
  std::string_view authority;
  std::string_view rest;  // a path, query or fragment

  explicit ConfiguredHost(std::string_view string) {
    isHttps = lowerCase(string.substr(0, kHttps.size())) == kHttps;
    isHttp = lowerCase(string.substr(0, kHttp.size())) == kHttp;
    if (isHttps) string.remove_prefix(kHttps.size());
    if (isHttp) string.remove_prefix(kHttp.size());
    authority = string.substr(0, string.find_first_of("/?#"));
    rest = string.substr(authority.size());
  }
  bool isValid() const {
    // "ftp://host" would otherwise parse as a host named "ftp" with an empty port.
    const bool isOtherScheme = !isHttp && !isHttps && startsWith(rest, "//");
    return isAuthority(authority) && !isOtherScheme;
  }
  bool hasPath() const { return rest.find_first_not_of('/') != std::string_view::npos; }
};

// Returns the configured host with "***" instead of everything before its last "@" but the scheme.
// A password may contain quotes and slashes.
std::string withoutUser(std::string_view configured) {
  const std::size_t at = configured.rfind('@');
  if (at == std::string_view::npos) return std::string(configured);
  const std::size_t end = configured.find_first_of(":@");
  const bool hasScheme = startsWith(configured.substr(end), "://");
  const std::string_view scheme = configured.substr(0, hasScheme ? end + 3 : 0);
  return concat({scheme, "***", configured.substr(at)});
}

}  // namespace

std::string_view endpointOf(std::string_view url) {
  const std::size_t scheme = url.find("://");
  if (scheme == std::string_view::npos || scheme > url.find_first_of("/?#")) return url;
  return url.substr(0, url.find_first_of("/?#", scheme + 3));
}

std::string originOf(std::string_view url) {
  std::string origin = lowerCase(endpointOf(url));
  const std::size_t scheme = origin.find("://");
  if (scheme == std::string::npos) return origin;
  const std::size_t user = origin.rfind('@');
  if (user != std::string::npos) origin.erase(scheme + 3, user + 1 - (scheme + 3));
  const std::string_view defaultPort = startsWith(origin, kHttps)  ? ":443"
                                       : startsWith(origin, kHttp) ? ":80"
                                                                   : "";
  for (const std::string_view port : {defaultPort, std::string_view(":")}) {
    const std::size_t length = origin.size() - std::min(origin.size(), port.size());
    if (!port.empty() && length > scheme + 3 && origin.compare(length, port.size(), port) == 0) {
      origin.erase(length);
    }
  }
  return origin;
}

std::string withoutCredentials(std::string_view text) {
  std::string safe;
  for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@')) {
    const std::string_view before = text.substr(0, at);
    std::size_t begin = before.find_last_of("\"'") + 1;  // 0 without a quote
    const std::size_t slashes = before.find("//", begin);
    if (slashes != std::string_view::npos) begin = slashes + 2;
    safe.append(text.substr(0, begin)).append("***@");
    text.remove_prefix(at + 1);
  }
  return safe.append(text);
}

bool isLoopbackAuthority(std::string_view authority) {
  if (!isAuthority(authority) || authority.find_first_of("/?#") != std::string_view::npos) {
    return false;
  }
  return isLoopbackHost(hostOf(authority));
}

JXCollectionEndpoint JXCollectionEndpoint::from(const JXString& configured,
                                                const JXString& fallback) {
  JXCollectionEndpoint endpoint;
  const std::string_view chosen = (configured.testString() ? configured : fallback).view();
  const ConfiguredHost host(chosen);
  const std::string shown = withoutUser(chosen);
  if (!host.isValid()) {
    endpoint.url = concat({kJXInvalidScheme, encoded(shown)});
    endpoint.message =
        concat({"Collection host \"", shown, "\" is invalid; nothing is sent to it"});
    endpoint.messageLevel = 2;
    return endpoint;
  }
  const bool staysHttp = host.isHttp && isLoopbackAuthority(host.authority);
  endpoint.url = concat({staysHttp ? kHttp : kHttps, host.authority});
  const std::string url = withoutUser(endpoint.url.view());
  const std::string_view consequence = "; events are sent to ";
  if (host.isHttp && !staysHttp) {
    endpoint.message = concat({"Collection host \"", shown,
                               "\" upgraded to https: http:// is allowed only for loopback hosts",
                               consequence, url});
    endpoint.messageLevel = 3;
  } else if (host.hasPath()) {
    endpoint.message = concat(
        {"Path, query or fragment of collection host \"", shown, "\" ignored", consequence, url});
    endpoint.messageLevel = 3;
  } else if (!host.isHttps && !host.isHttp && configured.testString()) {
    endpoint.message = concat({"Collection host \"", shown, "\" has no scheme", consequence, url});
    endpoint.messageLevel = 4;
  }
  return endpoint;
}

}  // namespace jx
