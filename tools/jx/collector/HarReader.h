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

// Events in the HTTP archive format, version 1.2, which many programs show. What that has no place
// for stands in members that begin with an underscore.

/// What stands before the entries, between two of them, and behind them.
std::string harHead();
constexpr std::string_view kHarBetween = ",\n";
constexpr std::string_view kHarTail = "\n]}}\n";
std::string harEntry(const StoredEvent& event);

/// The array of entries; absent when the text is no archive.
std::optional<std::uint32_t> harEntries(const JsonTree& archive);
/// One of the entries as an event. Fails when it holds none: no POST, or one without a text.
Result<StoredEvent> eventFromHar(const JsonTree& archive, std::uint32_t entry);

/// "2026-01-02T03:04:05.678Z", or with an offset "+01:00", in milliseconds since the Unix epoch.
std::optional<std::int64_t> msOfIsoTime(std::string_view text);

}  // namespace jx
