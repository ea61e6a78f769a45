// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/transfer/JXCurlTransport.h"

namespace jx {

/// Makes the easy handle of libcurl connect only to an authenticated server: TLS 1.2 or later, a
/// trusted certificate of the host, and a pinned key. Returns false when libcurl or its TLS library
/// does not support one of the settings; the handle must not be used then.
bool requireTrust(void* easy, const JXHttpOptions& options);

}  // namespace jx
