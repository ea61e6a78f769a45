// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// Returns whether a URL's host is the device itself: "localhost" (case-insensitive), an IPv4
/// address in 127.0.0.0/8 as four decimal numbers, or "::1" in brackets, in any notation. Does not
/// resolve names: "127.example.com" is not loopback, whatever address it has.
bool isLoopbackHost(std::string_view host);

}  // namespace jx
