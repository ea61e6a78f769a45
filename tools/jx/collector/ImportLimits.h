// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/collector/JsonMembers.h"

namespace jx {

/// The last millisecond of the year 9999, the last one that ISO 8601 writes with four digits.
constexpr std::int64_t kMaxTimeMs = 253'402'300'799'999;
/// Sums over the repeats of all events fit into 64 bits.
constexpr std::int64_t kMaxRepeats = 1'000'000'000;

/// Returns the time under `key`, or `otherwise` when it is not set or null. Returns an error when
/// it is not a time between the years 1970 and 9999.
inline Result<std::int64_t> timeMember(const JsonTree& tree, std::uint32_t object,
                                       std::string_view key, std::int64_t otherwise) {
  if (isUnset(tree, object, key)) return otherwise;
  const std::optional<std::int64_t> time = integerMember(tree, object, key);
  if (time && *time >= 0 && *time <= kMaxTimeMs) return *time;
  return Error{std::string(key) +
               " must be between 0 and 253402300799999, which is in the year 9999"};
}

/// Returns the number of repeats under `key`, or 0 when it is not set or null. Returns an error
/// when it is not in range.
inline Result<std::int64_t> repeatsMember(const JsonTree& tree, std::uint32_t object,
                                          std::string_view key) {
  if (isUnset(tree, object, key)) return std::int64_t{0};
  const std::optional<std::int64_t> repeats = integerMember(tree, object, key);
  if (repeats && *repeats >= 0 && *repeats <= kMaxRepeats) return *repeats;
  return Error{std::string(key) + " must be an integer between 0 and 1000000000"};
}

}  // namespace jx
