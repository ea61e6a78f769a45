// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace jx {

/// Returns a time in milliseconds since the Unix epoch as "2026-01-01T00:00:00.000Z".
std::string utcTime(std::int64_t epochMs);

}  // namespace jx
