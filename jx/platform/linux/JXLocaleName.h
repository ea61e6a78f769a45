// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// The parts of a POSIX locale name such as "zh_Hans_CN.UTF-8@variant". An empty language
/// means that the name has none: the C locale, or a malformed name.
struct JXLocaleName {
  std::string language;   ///< two or three letters, lower case
  std::string script;     ///< four letters, "Hans"; empty if not set
  std::string territory;  ///< two letters, upper case, or three digits; empty if not set
  std::string variant;    ///< remaining parts, lower case, joined by '-'
  std::string codeset;    ///< as written: "UTF-8", "iso88591"
  std::string modifier;   ///< as written: "euro", "latin"
};

/// Parses a locale name. Accepts '-' in place of '_', as in "fr-CA". Names of more than 128
/// characters are malformed.
JXLocaleName parseLocaleName(std::string_view text);

/// Returns true for "C" and "POSIX", with or without a codeset.
bool isPlainLocale(std::string_view name);

/// Returns the locale name of `category` ("LC_MESSAGES", ...): the first of LC_ALL, the category
/// and LANG that is set and not empty; null if there is none.
JXString effectiveLocale(const JXEnvironment& environment, std::string_view category);

}  // namespace jx
