// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/jx/collector/EventMetadata.h"
#include "tools/jx/collector/validation/Diagnostics.h"

namespace jx {

/// What the collector makes of one request: what it is, whether it is right, and why not. Told from
/// the tables by which the library itself writes events.
struct ValidationResult {
  EventMetadata facts;
  std::string className;  ///< of the events of this name; empty when there is no name
  std::string line;       ///< what matters about it, in one line
  Diagnostics reasons;

  bool isGood() const { return reasons.errors() == 0; }

  /// Any bytes.
  static ValidationResult of(std::string_view query, std::string_view body);
  /// Changes when the rules or the library's tables do.
  static std::int64_t rules();
};

}  // namespace jx
