// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <optional>

#include "jx/platform/JXString.h"

namespace jx {

/// What the C library knows about a locale that is installed. Texts are in the locale's own
/// charset; absent when the locale states none.
struct JXInstalledLocale {
  JXString charset;         ///< "UTF-8", "ISO-8859-1"
  JXString currencyCode;    ///< "CAD"
  JXString currencySymbol;  ///< "$"
};

/// Finds a locale by its POSIX name; nothing when it is not installed.
using JXInstalledLocaleLookup = std::function<std::optional<JXInstalledLocale>(const JXString&)>;

/// Asks the C library through a locale object of its own: the process's locale, which belongs to
/// the host, is neither read nor changed. Safe on any thread.
std::optional<JXInstalledLocale> findInstalledLocale(const JXString& name);

}  // namespace jx
