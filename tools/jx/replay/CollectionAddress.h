// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx {

/// What is wrong with an address that somebody typed as the place where events go; empty when
/// nothing is. Right is "https://HOST" with an optional port, or "http://" before a loopback host.
/// Stricter than the library, which mends what it can: here somebody can be asked.
std::string faultOfCollectionAddress(const std::string& address);

}  // namespace jx
