// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

#include "jx/platform/linux/JXEnvironment.h"
#include "jx/platform/linux/JXInstalledLocale.h"

namespace jx {

/// The number of a charset, told by any of its usual names in any spelling ("utf8", "UTF-8",
/// "ISO_8859-1"); 0 when the list of numbers has no such charset.
std::uint32_t encodingNumber(std::string_view charset);

/// The number of the default byte-string encoding: the charset that the locale of characters
/// (LC_ALL, LC_CTYPE, LANG) names, else the charset of that locale where it is installed, else
/// ASCII for the C locale and where no locale is set; 0 when unknown.
std::uint32_t defaultEncodingNumber(const JXEnvironment& environment,
                                    const JXInstalledLocaleLookup& installed);

}  // namespace jx
