// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "jx/platform/posix/JXNetworkInterfaces.h"

namespace jx {

/// A guess for the moments before the system has told which connection is in use: the first
/// interface that is up and has an address, by its usual name: "pdp_ip0" is cellular; "en0" and its
/// like count as Wi-Fi, by which most sets are connected. Links between devices ("awdl0", "llw0")
/// and tunnels ("utun0") are no connection of their own. None when nothing is left.
JXNetworkKind guessedKindOfNetwork(const std::vector<JXNetworkInterface>& interfaces);

}  // namespace jx
