// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "jx/catalogue/JXBlockClass.h"
#include "tools/jx/collector/validation/Diagnostics.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

/// Validates the JSON of an event, its items and their products against the descriptors
/// of the library: known keys, the type of each value, and the conditions for required fields.
class FieldRules {
 public:
  /// `tree` and `diagnostics` must outlive this object.
  FieldRules(const JsonTree& tree, Diagnostics& diagnostics)
      : tree_(tree), diagnostics_(diagnostics) {}

  /// Validates the object at index `event`. `name` is the event name, which selects the conditions
  /// that apply.
  void validateEvent(std::uint32_t event, const JXBlockClass& type, std::string_view name) {
    validateBlock(event, type, name);
  }

 private:
  void validateBlock(std::uint32_t object, const JXBlockClass& type, std::string_view eventName);
  void validateValue(std::uint32_t value, const JXFieldInfo& field);
  void validateNumber(std::uint32_t value);
  void validateStrings(std::uint32_t list);
  void validateEnum(std::uint32_t value, const JXFieldInfo& field);
  void validateItems(std::uint32_t list);
  void validateCondition(std::uint32_t object, const JXBlockClass& type,
                         const JXCondition& condition);
  JXFieldState stateOf(std::uint32_t object, std::string_view key) const;
  bool hasKind(std::uint32_t value, JsonNode::Kind kind, std::string_view wanted);

  const JsonTree& tree_;
  Diagnostics& diagnostics_;
};

}  // namespace jx
