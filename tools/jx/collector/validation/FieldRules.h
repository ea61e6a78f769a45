// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "jx/events/JXEventClass.h"
#include "tools/jx/collector/validation/Diagnostics.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

/// Holds the JSON of an event, of its items and of their products against the library's own tables:
/// which keys there are, what type each has, and what makes the whole complete.
class FieldRules {
 public:
  /// Both outlive the rules.
  FieldRules(const JsonTree& tree, Diagnostics& reasons) : tree_(tree), reasons_(reasons) {}

  /// `event` is an object. `name` is the event's name.
  void validateEvent(std::uint32_t event, const JXEventClass& type, std::string_view name);

 private:
  /// One kind of object: its fields and what completes it.
  struct Block {
    std::string_view name;
    std::vector<const JXFieldTable*> tables;
    const std::vector<JXCondition>* conditions;

    const JXFieldInfo* field(std::string_view key) const;
  };

  void validateBlock(std::uint32_t object, const Block& block, std::string_view eventName);
  void validateValue(std::uint32_t value, const JXFieldInfo& field);
  void validateNumber(std::uint32_t value);
  void validateStrings(std::uint32_t list);
  void validateEnum(std::uint32_t value, const JXFieldInfo& field);
  void validateItems(std::uint32_t list);
  void validateCondition(std::uint32_t object, const Block& block, const JXCondition& condition);
  JXFieldState stateOf(std::uint32_t object, std::string_view key) const;
  bool hasKind(std::uint32_t value, JsonNode::Kind kind, std::string_view wanted);

  const JsonTree& tree_;
  Diagnostics& reasons_;
};

}  // namespace jx
