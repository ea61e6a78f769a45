// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/jx/collector/EventMetadata.h"
#include "tools/jx/collector/validation/Diagnostics.h"

namespace jx {

/// The result of validating one request: its metadata, its event class and its diagnostics. Events
/// are validated against the field tables that the library uses to serialise them.
struct ValidationResult {
  EventMetadata metadata;
  std::string className;  ///< class of events with this name; empty when the name is not set
  std::string line;       ///< one-line summary
  Diagnostics diagnostics;

  bool isValid() const { return diagnostics.errors() == 0; }

  /// Validates any bytes.
  static ValidationResult of(std::string_view query, std::string_view body);
  /// Returns a number that changes when the rules or the field tables of the library change.
  static std::int64_t rulesVersion();
};

}  // namespace jx
