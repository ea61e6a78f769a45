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

// True for a numbered key such as "category_12": the prefix and a number starting at 1.
bool isNumbered(std::string_view key, std::string_view prefix) {
  if (key.size() <= prefix.size() || key.substr(0, prefix.size()) != prefix) return false;
  const std::string_view number = key.substr(prefix.size());
  return number.front() != '0' && number.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::string FieldRules::propertyOf(const Block& block, std::string_view key) {
  const JXFieldInfo* const info = block.field(key);
  return std::string(info != nullptr ? info->property : key);
}

const JXFieldInfo* FieldRules::Block::field(std::string_view key) const {
  for (const JXFieldTable* table : tables) {
    for (const JXFieldInfo& info : table->fields()) {
      const bool isIt =
          info.kind == JXFieldKind::NumberedStrings ? isNumbered(key, info.key) : key == info.key;
      if (isIt) return &info;
    }
  }
  return nullptr;
}

void FieldRules::validateEvent(std::uint32_t event, const JXEventClass& type,
                               std::string_view name) {
  Block block{type.className, {}, &type.conditions};
  for (const JXEventClass* each = &type; each != nullptr; each = each->base)
    block.tables.push_back(each->written);
  validateBlock(event, block, name);
}

void FieldRules::validateBlock(std::uint32_t object, const Block& block,
                               std::string_view eventName) {
  forEachIn(tree_, object, [&](std::uint32_t value) {
    const std::string_view key = tree_.node(value).key;
    // validateContext() validates these two blocks.
    if (object == 0 && (key == JXE_CONTEXT || key == JXE_USER)) return;
    if (const JXFieldInfo* const field = block.field(key)) {
      validateValue(value, *field);
    } else {
      diagnostics_.warning(
          kUnknownKey, tree_.pathOf(value),
          "is not a field of " + std::string(block.name) + "; treated as an additional property");
    }
  });
  for (const JXCondition& condition : *block.conditions) {
    if (condition.appliesTo(eventName)) validateCondition(object, block, condition);
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
        static const Block& product =
            *new Block{"JXProduct", {&JXProduct::fields()}, &JXProduct::conditions()};
        validateBlock(value, product, {});
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
  static const Block& block = *new Block{"JXItem", {&JXItem::fields()}, &JXItem::conditions()};
  if (!hasKind(list, Kind::Array, "an array of items")) return;
  forEachIn(tree_, list, [this](std::uint32_t item) {
    if (hasKind(item, Kind::Object, "an object")) validateBlock(item, block, {});
  });
}

void FieldRules::validateCondition(std::uint32_t object, const Block& block,
                                   const JXCondition& condition) {
  const JXFieldState first = stateOf(object, condition.key);
  const JXFieldState second = stateOf(object, condition.otherKey);
  if (condition.holds(first, second)) return;
  const bool isTogether = condition.kind == JXCondition::Kind::Together;
  const std::string_view missing =
      isTogether && first.isPresent ? condition.otherKey : condition.key;
  std::string text = propertyOf(block, missing);
  if (isTogether) {
    text += " must be set when " +
            propertyOf(block, first.isPresent ? condition.key : condition.otherKey) + " is set";
  } else if (!tree_.find(object, missing)) {
    text += " must be set";
  } else if (condition.kind == JXCondition::Kind::NonEmptyList) {
    text += " must contain at least one entry";
  } else {
    text += " must not be empty";
  }
  diagnostics_.error(kMissingField, tree_.pathOf(object, missing), std::move(text));
}

// A value of the wrong type counts as usable: validateValue() has already reported it, and a second
// diagnostic for the same value would not help.
JXFieldState FieldRules::stateOf(std::uint32_t object, std::string_view key) const {
  if (key.empty()) return {};
  const std::optional<std::uint32_t> value = tree_.find(object, key);
  if (!value) return {};
  const JsonNode& node = tree_.node(*value);
  const bool isEmptyText = node.kind == Kind::String && node.text.empty();
  const bool isEmptyList = node.kind == Kind::Array && node.end == *value + 1;
  return {true, !isEmptyText, !isEmptyList};
}

bool FieldRules::hasKind(std::uint32_t value, Kind kind, std::string_view wanted) {
  const Kind found = tree_.node(value).kind;
  if (found == kind) return true;
  diagnostics_.error(kWrongType, tree_.pathOf(value),
                     "must be " + std::string(wanted) + ", not " + std::string(nameOf(found)));
  return false;
}

}  // namespace jx
