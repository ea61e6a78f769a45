// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXLoopback.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <string>

namespace jx {
namespace {

bool isLocalhost(std::string_view host) {
  constexpr std::string_view kName = "localhost";
  const auto isSame = [](char one, char other) {
    return one == other || (one >= 'A' && one <= 'Z' && one + ('a' - 'A') == other);
  };
  return host.size() == kName.size() && std::equal(host.begin(), host.end(), kName.begin(), isSame);
}

}  // namespace

bool isLoopbackHost(std::string_view host) {
  // inet_pton reads up to the first NUL only.
  if (host.find('\0') != std::string_view::npos) return false;
  if (isLocalhost(host)) return true;
  const std::string string(host);
  in_addr four{};
  if (::inet_pton(AF_INET, string.c_str(), &four) == 1) return (ntohl(four.s_addr) >> 24) == 127;
  if (string.size() < 2 || string.front() != '[' || string.back() != ']') return false;
  in6_addr six{};
  const std::string bare = string.substr(1, string.size() - 2);
  return ::inet_pton(AF_INET6, bare.c_str(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}

}  // namespace jx
