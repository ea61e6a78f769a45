// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/ClientSlots.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <cstring>
#include <utility>

namespace jx {
namespace {

constexpr std::size_t kNetworkBytes = 8;  // of an IPv6 address
constexpr std::size_t kMappedBytes = 12;  // in front of an IPv4 address that is mapped to IPv6

std::string clientOfIpv4(const in_addr& address) {
  constexpr std::uint32_t kLoopbackNetwork = 127;
  if (ntohl(address.s_addr) >> 24U == kLoopbackNetwork) return {};
  return std::string(reinterpret_cast<const char*>(&address), sizeof address);
}

}  // namespace

std::string clientOf(const std::string& address) {
  in_addr v4{};
  if (::inet_pton(AF_INET, address.c_str(), &v4) == 1) return clientOfIpv4(v4);
  in6_addr v6{};
  if (::inet_pton(AF_INET6, address.c_str(), &v6) != 1) return "unknown";
  if (IN6_IS_ADDR_LOOPBACK(&v6)) return {};
  const char* const bytes = reinterpret_cast<const char*>(&v6);
  if (!IN6_IS_ADDR_V4MAPPED(&v6)) return std::string(bytes, kNetworkBytes);
  std::memcpy(&v4, bytes + kMappedBytes, sizeof v4);
  return clientOfIpv4(v4);
}

ClientSlots::Slot::Slot(ClientSlots& slots, std::string client)
    : slots_(slots), client_(std::move(client)) {}

ClientSlots::Slot::~Slot() {
  const std::lock_guard<std::mutex> lock(slots_.mutex_);
  --slots_.taken_;
  const auto taken = slots_.takenBy_.find(client_);
  if (--taken->second == 0) slots_.takenBy_.erase(taken);
}

ClientSlots::Acquired ClientSlots::acquire(const std::string& address) {
  std::string client = clientOf(address);
  const std::lock_guard<std::mutex> lock(mutex_);
  if (taken_ >= total_) return {nullptr, 503};
  const auto taken = takenBy_.find(client);
  const bool isLimited = limitsLoopback_ || !client.empty();
  if (isLimited && taken != takenBy_.end() && taken->second >= perClient_) {
    return {nullptr, 429};
  }
  // Before the slot exists, because its destructor locks the mutex.
  std::size_t& count = takenBy_[client];
  auto slot = std::make_shared<Slot>(*this, std::move(client));
  ++taken_;
  ++count;
  return {std::move(slot), 0};
}

}  // namespace jx
