// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/FieldRules.h"

#include <algorithm>

#include "jx/core/JXCoreConstants.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "tools/jx/collector/validation/DiagnosticCodes.h"
#include "tools/jx/collector/validation/NumberLoss.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

}  // namespace

void FieldRules::validateBlock(std::uint32_t object, const JXBlockClass& type,
                               std::string_view eventName) {
  forEachIn(tree_, object, [&](std::uint32_t value) {
    const std::string_view key = tree_.node(value).key;
    // validateContext() validates these two blocks.
    if (object == 0 && (key == JXE_CONTEXT || key == JXE_USER)) return;
    if (const JXFieldInfo* const field = type.fieldWriting(key)) {
      validateValue(value, *field);
    } else {
      diagnostics_.warning(kUnknownKey, tree_.pathOf(value),
                           "is not a field of " + std::string(type.className) +
                               "; treated as an additional property");
    }
  });
  for (const JXCondition& condition : type.conditions) {
    if (condition.appliesTo(eventName)) validateCondition(object, type, condition);
  }
}

void FieldRules::validateValue(std::uint32_t value, const JXFieldInfo& field) {
  switch (field.kind) {
    case JXFieldKind::String:
    case JXFieldKind::NumberedStrings:
      hasKind(value, Kind::String, "a string");
      break;
    case JXFieldKind::Number:
      validateNumber(value);
      break;
    case JXFieldKind::Boolean:
      hasKind(value, Kind::Bool, "true or false");
      break;
    case JXFieldKind::Strings:
      validateStrings(value);
      break;
    case JXFieldKind::Values:
      hasKind(value, Kind::Array, "an array");
      break;
    case JXFieldKind::Enumeration:
      validateEnum(value, field);
      break;
    case JXFieldKind::Items:
      validateItems(value);
      break;
    case JXFieldKind::Product:
      if (hasKind(value, Kind::Object, "an object")) {
        validateBlock(value, JXProduct::blockClass(), {});
      }
  }
}

void FieldRules::validateNumber(std::uint32_t value) {
  if (!hasKind(value, Kind::Number, "a number") || fitsAmount(tree_.node(value).text)) return;
  diagnostics_.error(kLossyNumber, tree_.pathOf(value),
                     "must be within the range of an amount and have at most 38 digits");
}

void FieldRules::validateStrings(std::uint32_t list) {
  if (!hasKind(list, Kind::Array, "an array of strings")) return;
  forEachIn(tree_, list, [this](std::uint32_t text) { hasKind(text, Kind::String, "a string"); });
}

void FieldRules::validateEnum(std::uint32_t value, const JXFieldInfo& field) {
  if (!hasKind(value, Kind::String, "a string")) return;
  const std::vector<std::string_view> allowed = field.enumStrings.allStrings();
  if (std::find(allowed.begin(), allowed.end(), tree_.node(value).text) != allowed.end()) return;
  std::string list;
  for (const std::string_view text : allowed)
    list += (list.empty() ? "" : ", ") + std::string(text);
  diagnostics_.error(kWrongType, tree_.pathOf(value), "must be one of: " + list);
}

void FieldRules::validateItems(std::uint32_t list) {
  if (!hasKind(list, Kind::Array, "an array of items")) return;
  forEachIn(tree_, list, [this](std::uint32_t item) {
    if (hasKind(item, Kind::Object, "an object")) validateBlock(item, JXItem::blockClass(), {});
  });
}

void FieldRules::validateCondition(std::uint32_t object, const JXBlockClass& type,
                                   const JXCondition& condition) {
  const JXFieldState first = stateOf(object, condition.key);
  if (condition.holds(first, stateOf(object, condition.otherKey))) return;
  const bool isTogether = condition.kind == JXCondition::Kind::Together;
  const std::string_view missing =
      isTogether && first.isPresent ? condition.otherKey : condition.key;
  diagnostics_.error(kMissingField, tree_.pathOf(object, missing), type.describe(condition));
}

// A value of the wrong type meets every condition: validateValue() has already reported it, and a
// second diagnostic for the same value would not help.
JXFieldState FieldRules::stateOf(std::uint32_t object, std::string_view key) const {
  const std::optional<std::uint32_t> value = tree_.find(object, key);
  if (!value) return {};
  const JsonNode& node = tree_.node(*value);
  const JXFieldState state = JXFieldState::ofJson(
      node.kind, node.kind == Kind::Array ? tree_.sizeOf(*value) : node.text.size());
  return {true, node.kind != Kind::String || state.isNonEmptyString,
          node.kind != Kind::Array || state.hasEntries};
}

bool FieldRules::hasKind(std::uint32_t value, Kind kind, std::string_view wanted) {
  const Kind found = tree_.node(value).kind;
  if (found == kind) return true;
  diagnostics_.error(kWrongType, tree_.pathOf(value),
                     "must be " + std::string(wanted) + ", not " + std::string(nameOf(found)));
  return false;
}

}  // namespace jx
