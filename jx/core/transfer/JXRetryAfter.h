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

/// Returns the delay that the response requests: `retryAfter` and `date` are its Retry-After and
/// Date headers. A Retry-After date is compared with the response's own Date, because the clock of
/// the device may be wrong. Without a valid Date it is compared with `nowWallMs`, and the delay is
/// at most `maxUncertain`.
std::optional<std::chrono::milliseconds> requestedDelay(
    std::string_view retryAfter, std::string_view date, std::int64_t nowWallMs,
    std::chrono::milliseconds maxUncertain) noexcept;

}  // namespace jx
