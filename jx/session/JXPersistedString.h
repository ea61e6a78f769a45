// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/core/JXUserDefaults.h"

namespace jx {

/// Returns the string that this or an earlier process stored under the key; null if there is none.
inline JXString persistedString(std::string_view key) {
  return JXUserDefaults::retrieveInfoFromUserDefaults(key);
}

/// Stores the string for later processes; a null string removes the entry.
inline void persistString(std::string_view key, const JXString& string) {
  JXUserDefaults::saveInfoToUserDefaults_forLabel(string, key);
}

}  // namespace jx
