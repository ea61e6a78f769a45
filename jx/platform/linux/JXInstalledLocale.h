// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <optional>

#include "jx/platform/JXString.h"

namespace jx {

/// Properties of an installed locale, as reported by the C library. Strings are in the charset of
/// the locale; null if the locale does not define them.
struct JXInstalledLocale {
  JXString charset;         ///< "UTF-8", "ISO-8859-1"
  JXString currencyCode;    ///< "CAD"
  JXString currencySymbol;  ///< "$"
};

/// Finds a locale by its POSIX name; nothing if it is not installed.
using JXInstalledLocaleLookup = std::function<std::optional<JXInstalledLocale>(const JXString&)>;

/// Queries the C library with a separate locale object: the locale of the process, which belongs to
/// the application, is neither read nor changed. Thread-safe.
std::optional<JXInstalledLocale> findInstalledLocale(const JXString& name);

}  // namespace jx
