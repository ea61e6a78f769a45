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

/// Appends the frame that gives `key` the value; an absent value removes the entry. Returns an
/// errno value, 0 for success.
int appendDefault(JXJournal& journal, const JXString& key, const JXString& value);

/// The same frame, behind what `frames` holds.
void encodeDefault(const JXString& key, const JXString& value, std::string& frames);

/// Applies one frame of a defaults file to `values`; a frame of another kind is passed.
void applyDefault(std::string_view payload, JXDefaultsMap& values);

/// How many bytes a file needs that holds these entries and nothing else.
std::uint64_t bytesOfDefaults(const JXDefaultsMap& values);

}  // namespace jx
