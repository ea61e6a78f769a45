// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/core/JXUserDefaults.h"

namespace jx {

/// The text that was kept under the key in this or an earlier process, absent when there is none.
inline JXString persistedText(std::string_view key) {
  return JXUserDefaults::retrieveInfoFromUserDefaults(key);
}

/// Keeps the text for later processes; an absent one removes the entry.
inline void persistText(std::string_view key, const JXString& text) {
  JXUserDefaults::saveInfoToUserDefaults_forLabel(text, key);
}

}  // namespace jx
