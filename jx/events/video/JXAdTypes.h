// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <string_view>

namespace jx {

// Each enumeration has two tables indexed by its values: the texts that JSON says, and the names of
// its members behind their prefix. Numbered from 0; any int is a value that may be passed, and one
// outside the enumeration has no text.

/// When an advertisement runs. The texts have hyphens, unlike all others of the video events.
enum EJXAdType : int {
  EJXAdType_PRE_ROLL,
  EJXAdType_MID_ROLL,
  EJXAdType_POST_ROLL,
};
/// What JSON says for each value.
inline constexpr std::array<std::string_view, 3> EJXAdType_toString{
    "pre-roll",
    "mid-roll",
    "post-roll",
};
/// The name of each value behind its prefix.
inline constexpr std::array<std::string_view, 3> EJXAdType_members{
    "PRE_ROLL",
    "MID_ROLL",
    "POST_ROLL",
};

/// How an advertisement is loaded.
enum EJXAdLoadType : int {
  EJXAdLoadType_DYNAMIC,
  EJXAdLoadType_LINEAR,
};
/// What JSON says for each value.
inline constexpr std::array<std::string_view, 2> EJXAdLoadType_toString{
    "dynamic",
    "linear",
};
/// The name of each value behind its prefix.
inline constexpr std::array<std::string_view, 2> EJXAdLoadType_members{
    "DYNAMIC",
    "LINEAR",
};

}  // namespace jx
