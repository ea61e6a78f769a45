// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/CollectionAddress.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <string_view>

#include "jx/core/JXCollectionEndpoint.h"

namespace jx {
namespace {

constexpr std::string_view kHttps = "https://";
constexpr std::string_view kHttp = "http://";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isHostName(std::string_view host) {
  return !host.empty() && host.front() != '-' && std::all_of(host.begin(), host.end(), [](char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' || c == '-' ||
           c == '_';
  });
}

bool isBracketedIPv6(std::string_view host) {
  if (host.size() < 2 || host.front() != '[' || host.back() != ']') return false;
  in6_addr parsed{};
  return ::inet_pton(AF_INET6, std::string(host.substr(1, host.size() - 2)).c_str(), &parsed) == 1;
}

bool isPort(std::string_view port) {
  constexpr std::size_t kLongest = 5;
  constexpr int kHighest = 65'535;
  if (port.empty() || port.size() > kLongest || !std::all_of(port.begin(), port.end(), isDigit)) {
    return false;
  }
  const int number = std::stoi(std::string(port));
  return number > 0 && number <= kHighest;
}

}  // namespace

std::string collectionAddressError(const std::string& address) {
  std::string_view rest = address;
  const bool isHttps = rest.substr(0, kHttps.size()) == kHttps;
  const bool isHttp = rest.substr(0, kHttp.size()) == kHttp;
  if (!isHttps && !isHttp) return "the URL must begin with https:// or http://";
  rest.remove_prefix(isHttps ? kHttps.size() : kHttp.size());
  if (!rest.empty() && rest.back() == '/') rest.remove_suffix(1);

  const std::size_t bracket = rest.rfind(']');
  const std::size_t colon = rest.find(':', bracket == std::string_view::npos ? 0 : bracket);
  const std::string_view host = rest.substr(0, colon);
  if (!isHostName(host) && !isBracketedIPv6(host))
    return "the URL must contain a valid host name and nothing after the port";
  if (colon != std::string_view::npos && !isPort(rest.substr(colon + 1))) {
    return "the port must be between 1 and 65535";
  }
  if (isHttp && !isLoopbackAuthority(rest)) return "http:// is allowed only for loopback hosts";
  return {};
}

}  // namespace jx
