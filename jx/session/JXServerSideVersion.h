// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

inline constexpr std::string_view kJXServerSideVersion = "5.4.5";
inline constexpr std::string_view kReleaseDate = "28/04/2025";
inline constexpr std::string_view kReleaseTime = "17:17:38";

}  // namespace jx
