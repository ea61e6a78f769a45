// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXNetworkKind.h"

#include <string_view>

namespace jx {
namespace {

bool startsWith(std::string_view name, std::string_view prefix) {
  return name.substr(0, prefix.size()) == prefix;
}

}  // namespace

JXNetworkKind guessNetworkKind(const std::vector<JXNetworkInterface>& interfaces) {
  for (const JXNetworkInterface& entry : interfaces) {
    if (!entry.isUp || entry.isLoopback || !entry.hasAddress) continue;
    if (startsWith(entry.name, "en")) return JXNetworkKind::Wifi;
    if (startsWith(entry.name, "pdp_ip")) return JXNetworkKind::Cellular;
  }
  return JXNetworkKind::None;
}

}  // namespace jx
