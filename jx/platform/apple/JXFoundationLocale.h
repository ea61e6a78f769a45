// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <vector>

#include "jx/platform/JXString.h"

namespace jx {

/// Language, currency, encoding and time zone of the viewer, as reported by Foundation. Each call
/// reads the current value, because a viewer may change the settings while the application runs.
/// Thread-safe.
std::vector<JXString> foundationLanguages();
JXString foundationCurrencyCode();
JXString foundationCurrencySymbol();
std::uint32_t foundationEncoding();
JXString foundationTimeZoneName();

}  // namespace jx
