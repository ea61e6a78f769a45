// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXString.h"

namespace jx {

/// Where events go, and what had to be said about how it was given.
struct JXCollectionEndpoint {
  JXString url;     ///< scheme, host and port, without a path: "https://collect.example.com"
  JXString remark;  ///< a line for the log; absent when there is nothing to say
  int remarkLevel = 0;

  /// Makes the endpoint from what a host stated. Without a scheme it is https. Plain http would
  /// show a viewer's data to the network, so it is taken for loopback only and becomes https
  /// elsewhere. A path, query or fragment is cut. `fallback` serves when `stated` names no host,
  /// or another scheme.
  static JXCollectionEndpoint from(const JXString& stated, const JXString& fallback);
};

/// True when the host of `authority` is the device itself; a port may stand behind it.
bool isLoopbackAuthority(std::string_view authority);

}  // namespace jx
