// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"
#include "jx/platform/linux/JXInstalledLocale.h"

namespace jx {

/// A locale's currency: ISO 4217 code, and the symbol in UTF-8. Both absent when unknown.
struct JXMoney {
  JXString code;
  JXString symbol;
};

/// The currency of the locale of money (LC_ALL, LC_MONETARY, LANG): what the C library says about
/// an installed locale, else what its territory uses, since a TV image seldom installs any
/// locale. Nothing for the C locale, for an unknown territory and for a name without one.
JXMoney localeMoney(const JXEnvironment& environment, const JXInstalledLocaleLookup& installed);

/// The currency of a territory, given by its two-letter ISO 3166 code in upper case; nothing for an
/// unknown one.
JXMoney territoryMoney(std::string_view territory);

}  // namespace jx
