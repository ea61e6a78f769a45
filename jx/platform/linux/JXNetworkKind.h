// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/platform/posix/JXNetworkInterfaces.h"

namespace jx {

/// The kind of connection in use, from the interfaces that are up and have an address, loopback
/// left out. What /sys/class/net tells of an interface makes it wireless, cellular, wired (it has a
/// device) or virtual; where /sys tells nothing the usual names ("wlan0", "wwan0") do. Among those
/// that are not virtual the one with the default route wins, then wired before wireless before
/// cellular. Only virtual ones (the inside of a container, a VPN): Ethernet; but a bridge that
/// serves this machine's own containers counts only when the default route leads through it.
/// `root` stands before /sys and /proc.
JXNetworkKind kindOfNetwork(const std::vector<JXNetworkInterface>& interfaces,
                            const std::string& root);

}  // namespace jx
