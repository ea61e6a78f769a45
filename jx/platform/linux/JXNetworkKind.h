// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/platform/posix/JXNetworkInterfaces.h"

namespace jx {

/// Returns the type of the current connection, from the interfaces that are up and have an address,
/// except loopback. /sys/class/net classifies an interface as wireless, cellular, wired (it has a
/// device) or virtual; without an entry its usual name ("wlan0", "wwan0") does. Interfaces that are
/// not virtual are preferred, then those with a default route, then wired over wireless over
/// cellular. If all are virtual (inside a container, a VPN), returns Ethernet. A bridge of local
/// containers is ignored unless it has a default route. `root` is the prefix of /sys and /proc.
JXNetworkKind kindOfNetwork(const std::vector<JXNetworkInterface>& interfaces,
                            const std::string& root);

}  // namespace jx
