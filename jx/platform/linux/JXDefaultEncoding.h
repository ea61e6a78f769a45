// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

#include "jx/platform/linux/JXEnvironment.h"
#include "jx/platform/linux/JXInstalledLocale.h"

namespace jx {

/// Returns the number of a charset, given any of its usual names in any spelling ("utf8", "UTF-8",
/// "ISO_8859-1"); 0 if the charset has no number.
std::uint32_t encodingNumber(std::string_view charset);

/// Returns the number of the default byte-string encoding: the charset in the name of the character
/// locale (LC_ALL, LC_CTYPE, LANG), else the charset of that locale if it is installed, else ASCII
/// for the C locale and if no locale is set; 0 if unknown.
std::uint32_t defaultEncodingNumber(const JXEnvironment& environment,
                                    const JXInstalledLocaleLookup& installed);

}  // namespace jx
