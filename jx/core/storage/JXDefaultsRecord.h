// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "jx/core/storage/JXJournal.h"
#include "jx/platform/JXString.h"

namespace jx {

using JXDefaultsMap = std::unordered_map<JXString, JXString>;

/// Appends the frame that sets `key` to `value`; a null value removes the entry. Returns an errno
/// value, 0 for success.
int appendDefault(JXJournal& journal, const JXString& key, const JXString& value);

/// Appends the same frame to `frames`.
void encodeDefault(const JXString& key, const JXString& value, std::string& frames);

/// Applies one frame of a defaults file to `values`; ignores a frame of another kind.
void applyDefault(std::string_view payload, JXDefaultsMap& values);

/// Returns the size in bytes of a file that contains only these entries.
std::uint64_t bytesOfDefaults(const JXDefaultsMap& values);

}  // namespace jx
