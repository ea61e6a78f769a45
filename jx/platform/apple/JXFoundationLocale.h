// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <vector>

#include "jx/platform/JXString.h"

namespace jx {

/// What Foundation knows of the viewer's language, money, text and time. Each asks anew, since a
/// viewer may change the settings while the application runs. Thread-safe.
std::vector<JXString> foundationLanguages();
JXString foundationCurrencyCode();
JXString foundationCurrencySymbol();
std::uint32_t foundationEncoding();
JXString foundationTimeZoneName();

}  // namespace jx
