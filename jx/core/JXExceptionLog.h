// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// Logs the exception that the caller is handling, at level 3: "<failure>: <cause>; <consequence>",
/// or only `failure` when the cause is unknown or memory is exhausted. `consequence` may be empty.
void logException(std::string_view failure, std::string_view consequence = {}) noexcept;

}  // namespace jx
