// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/platform/JXPlatform.h"

namespace jx {

/// One network interface of the system.
struct JXNetworkInterface {
  std::string name;
  bool isUp = false;  ///< switched on and with a carrier
  bool isLoopback = false;
  /// Has an address that reaches further than its own link.
  bool hasAddress = false;
};

/// Both views of one reading of the system's list.
struct JXNetworkReading {
  std::vector<JXNetworkInterface> interfaces;  ///< one entry per name, in the system's order
  std::vector<JXInterfaceAddress> addresses;   ///< one entry per address, in the system's order
};

/// Reads the list with `getifaddrs`; empty when that fails. Thread-safe.
JXNetworkReading readNetworkInterfaces();

}  // namespace jx
