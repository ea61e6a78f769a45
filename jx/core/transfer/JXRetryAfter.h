// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace jx {

/// How long a Retry-After header asks to wait, counted from `nowWallMs` (milliseconds since the
/// Unix epoch). `text` is a number of seconds or one of HTTP's three forms of a date; a date that
/// has passed is a wait of zero, and a wait of more than ten years counts as ten years. Nothing
/// when the text is neither.
std::optional<std::chrono::milliseconds> parseRetryAfter(std::string_view text,
                                                         std::int64_t nowWallMs) noexcept;

}  // namespace jx
