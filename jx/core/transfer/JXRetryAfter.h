// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace jx {

/// Returns the delay that a Retry-After header requests, relative to `nowWallMs` (milliseconds
/// since the Unix epoch). `header` is a number of seconds or a date in one of HTTP's three forms. A
/// past date returns zero; more than ten years return ten years; an invalid header returns nullopt.
std::optional<std::chrono::milliseconds> parseRetryAfter(std::string_view header,
                                                         std::int64_t nowWallMs) noexcept;

}  // namespace jx
