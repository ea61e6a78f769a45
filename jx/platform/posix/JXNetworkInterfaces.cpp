// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/posix/JXNetworkInterfaces.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace jx {
namespace {

// In both address types the word follows family and port.
constexpr std::size_t kWordOffset = 4;
static_assert(offsetof(sockaddr_in, sin_addr) == kWordOffset);
static_assert(offsetof(sockaddr_in6, sin6_flowinfo) == kWordOffset);

JXInterfaceAddress addressOf(const char* name, const sockaddr& address) {
  JXInterfaceAddress entry;
  entry.name = JXString(name);
  if (address.sa_family == AF_INET) entry.family = JXInterfaceAddress::Family::IPv4;
  if (address.sa_family == AF_INET6) entry.family = JXInterfaceAddress::Family::IPv6;
  if (entry.family != JXInterfaceAddress::Family::Other) {
    std::memcpy(entry.word, reinterpret_cast<const char*>(&address) + kWordOffset,
                sizeof entry.word);
  }
  return entry;
}

// A self-assigned link-local address does not indicate a connection.
bool isRoutable(const sockaddr& address) {
  if (address.sa_family == AF_INET) {
    sockaddr_in v4;
    std::memcpy(&v4, &address, sizeof v4);
    return (ntohl(v4.sin_addr.s_addr) >> 16) != 0xA9FE;  // 169.254.0.0/16
  }
  if (address.sa_family == AF_INET6) {
    sockaddr_in6 v6;
    std::memcpy(&v6, &address, sizeof v6);
    return !IN6_IS_ADDR_LINKLOCAL(&v6.sin6_addr);
  }
  return false;
}

JXNetworkInterface& entryFor(std::vector<JXNetworkInterface>& interfaces, const char* name) {
  const auto found = std::find_if(interfaces.begin(), interfaces.end(),
                                  [name](const auto& entry) { return entry.name == name; });
  if (found != interfaces.end()) return *found;
  interfaces.emplace_back();
  interfaces.back().name = name;
  return interfaces.back();
}

}  // namespace

JXNetworkReading readNetworkInterfaces() {
  JXNetworkReading reading;
  ifaddrs* list = nullptr;
  if (::getifaddrs(&list) != 0) return reading;
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    if (entry->ifa_name == nullptr) continue;
    JXNetworkInterface& known = entryFor(reading.interfaces, entry->ifa_name);
    known.isUp = (entry->ifa_flags & IFF_UP) != 0 && (entry->ifa_flags & IFF_RUNNING) != 0;
    known.isLoopback = (entry->ifa_flags & IFF_LOOPBACK) != 0;
    if (entry->ifa_addr == nullptr) continue;
    known.hasAddress = known.hasAddress || isRoutable(*entry->ifa_addr);
    reading.addresses.push_back(addressOf(entry->ifa_name, *entry->ifa_addr));
  }
  ::freeifaddrs(list);
  return reading;
}

}  // namespace jx
