// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// The parts of a POSIX locale name such as "zh_Hans_CN.UTF-8@variant". An empty language says
/// that the name stands for no language: the C locale, or a name that is malformed.
struct JXLocaleName {
  std::string language;   ///< two or three letters, lower case
  std::string script;     ///< four letters, "Hans"; empty when not stated
  std::string territory;  ///< two letters, upper case, or three digits; empty when not stated
  std::string variant;    ///< what stands behind them, lower case, parts joined by '-'
  std::string codeset;    ///< as written: "UTF-8", "iso88591"
  std::string modifier;   ///< as written: "euro", "latin"
};

/// Takes a name apart. Also takes '-' for '_', so that "fr-CA" is understood. Names of more than
/// 128 characters are malformed: no system has one.
JXLocaleName parseLocaleName(std::string_view text);

/// True for "C" and "POSIX", with or without a codeset: the locale of no country.
bool isPlainLocale(std::string_view name);

/// The locale name that applies to `category` ("LC_MESSAGES", ...): the first of LC_ALL, the
/// category and LANG that is set and not empty; absent when none is.
JXString effectiveLocale(const JXEnvironment& environment, std::string_view category);

}  // namespace jx
