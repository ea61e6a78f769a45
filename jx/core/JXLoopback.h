// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// True when a URL's host is the device itself: "localhost" in capitals or not, an IPv4 address in
/// 127.0.0.0/8 as four decimal numbers, and "::1" in brackets, however it is written. No name is
/// resolved: "127.example.com" is not loopback, whatever it points to.
bool isLoopbackHost(std::string_view host);

}  // namespace jx
