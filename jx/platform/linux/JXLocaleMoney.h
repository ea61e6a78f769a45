// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"
#include "jx/platform/linux/JXInstalledLocale.h"

namespace jx {

/// Currency of a locale: ISO 4217 code, and the symbol in UTF-8. Both null if unknown.
struct JXMoney {
  JXString code;
  JXString symbol;
};

/// Returns the currency of the monetary locale (LC_ALL, LC_MONETARY, LANG): as reported by the C
/// library if the locale is installed, else the currency of its territory, because TV images seldom
/// install locales. Null strings for the C locale, for an unknown territory and for a name without
/// one.
JXMoney localeMoney(const JXEnvironment& environment, const JXInstalledLocaleLookup& installed);

/// Returns the currency of a territory, given by its two-letter ISO 3166 code in upper case; null
/// strings if unknown.
JXMoney territoryMoney(std::string_view territory);

}  // namespace jx
