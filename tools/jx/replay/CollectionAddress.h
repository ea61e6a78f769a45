// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx {

/// Validates a collection URL from the command line. Returns the error, or an empty string for a
/// valid URL: "https://HOST" with an optional port, or "http://" with a loopback host. Stricter
/// than the library, which corrects a URL where it can: here the user can correct it.
std::string collectionAddressError(const std::string& address);

}  // namespace jx
