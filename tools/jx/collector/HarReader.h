// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventRecords.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

// Events in the HTTP archive format (HAR 1.2), which many programs can display. Values for which
// HAR has no member are stored in members whose names begin with an underscore.

/// The text before the first entry, between two entries, and after the last entry.
std::string harHead();
constexpr std::string_view kHarBetween = ",\n";
constexpr std::string_view kHarTail = "\n]}}\n";
/// Serialises an event as an entry.
std::string harEntry(const StoredEvent& event);

/// Returns the array of entries; nullopt when the document is not an archive.
std::optional<std::uint32_t> harEntries(const JsonTree& archive);
/// Reads an event from an entry. Returns an error when the request is not a POST, has no body or
/// time, or has an invalid _base64.
Result<StoredEvent> eventFromHar(const JsonTree& archive, std::uint32_t entry);

/// Parses "2026-01-02T03:04:05.678Z", or a time with an offset such as "+01:00". Returns
/// milliseconds since the Unix epoch; nullopt for anything else.
std::optional<std::int64_t> msOfIsoTime(std::string_view text);

}  // namespace jx
