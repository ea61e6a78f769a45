// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "jx/platform/posix/JXNetworkInterfaces.h"

namespace jx {

/// Guesses the type of the connection until the system reports it. Uses the name of the first
/// interface that is up and has an address: "pdp_ip0" is cellular; "en0" and similar names are
/// Wi-Fi, the most common connection of TVs. Ignores links between devices ("awdl0", "llw0") and
/// tunnels
/// ("utun0"). Returns None if no interface is left.
JXNetworkKind guessNetworkKind(const std::vector<JXNetworkInterface>& interfaces);

}  // namespace jx
