// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#pragma once

#include <array>
#include <string_view>

namespace jx {

// Each enumeration has two tables indexed by its values: the JSON strings, and the names of the
// enumerators without their prefix. Values are numbered from 0. Callers may pass any int; a value
// outside the enumeration has no string.

/// The position of an advertisement in the video. Unlike all other strings of the video events,
/// these contain hyphens.
enum EJXAdType : int {
  EJXAdType_PRE_ROLL,
  EJXAdType_MID_ROLL,
  EJXAdType_POST_ROLL,
};
/// The JSON string of each value.
inline constexpr std::array<std::string_view, 3> EJXAdType_toString{
    "pre-roll",
    "mid-roll",
    "post-roll",
};
/// The name of each value, without its prefix.
inline constexpr std::array<std::string_view, 3> EJXAdType_members{
    "PRE_ROLL",
    "MID_ROLL",
    "POST_ROLL",
};

/// The way an advertisement is loaded.
enum EJXAdLoadType : int {
  EJXAdLoadType_DYNAMIC,
  EJXAdLoadType_LINEAR,
};
/// The JSON string of each value.
inline constexpr std::array<std::string_view, 2> EJXAdLoadType_toString{
    "dynamic",
    "linear",
};
/// The name of each value, without its prefix.
inline constexpr std::array<std::string_view, 2> EJXAdLoadType_members{
    "DYNAMIC",
    "LINEAR",
};

}  // namespace jx
