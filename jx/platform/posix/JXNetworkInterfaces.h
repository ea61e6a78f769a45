// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/platform/JXPlatform.h"

namespace jx {

/// A network interface of the system.
struct JXNetworkInterface {
  std::string name;
  bool isUp = false;  ///< enabled and with a carrier
  bool isLoopback = false;
  /// True if it has an address that is not link-local.
  bool hasAddress = false;
};

/// Two views of one reading of the system's interface list.
struct JXNetworkReading {
  std::vector<JXNetworkInterface> interfaces;  ///< one entry per name, in the system's order
  std::vector<JXInterfaceAddress> addresses;   ///< one entry per address, in the system's order
};

/// Reads the list with `getifaddrs`; empty if that fails. Thread-safe.
JXNetworkReading readNetworkInterfaces();

}  // namespace jx
