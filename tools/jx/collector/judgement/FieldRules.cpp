// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/judgement/FieldRules.h"

#include <algorithm>

#include "jx/core/JXCoreConstants.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "tools/jx/collector/judgement/NumberLoss.h"
#include "tools/jx/collector/judgement/ReasonCodes.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

// "category_12": the prefix and a number from 1.
bool isNumbered(std::string_view key, std::string_view prefix) {
  if (key.size() <= prefix.size() || key.substr(0, prefix.size()) != prefix) return false;
  const std::string_view number = key.substr(prefix.size());
  return number.front() != '0' && number.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

const JXFieldInfo* FieldRules::Block::field(std::string_view key) const {
  for (const JXFieldTable* table : tables) {
    for (const JXFieldInfo& info : table->fields()) {
      const bool isIt =
          info.kind == JXFieldKind::NumberedTexts ? isNumbered(key, info.key) : key == info.key;
      if (isIt) return &info;
    }
  }
  return nullptr;
}

void FieldRules::judgeEvent(std::uint32_t event, const JXEventClass& type, std::string_view name) {
  Block block{type.className, {}, &type.conditions};
  for (const JXEventClass* each = &type; each != nullptr; each = each->base)
    block.tables.push_back(each->written);
  judgeBlock(event, block, name);
}

void FieldRules::judgeBlock(std::uint32_t object, const Block& block, std::string_view eventName) {
  forEachIn(tree_, object, [&](std::uint32_t value) {
    const std::string_view key = tree_.node(value).key;
    // The blocks beside the event's own fields have rules of their own.
    if (object == 0 && (key == JXE_CONTEXT || key == JXE_USER)) return;
    if (const JXFieldInfo* const field = block.field(key)) {
      judgeValue(value, *field);
    } else {
      reasons_.note(kUnknownKey, tree_.pathOf(value),
                    "is no field of " + std::string(block.name) + ": an additional property");
    }
  });
  for (const JXCondition& condition : *block.conditions) {
    if (condition.concerns(eventName)) judgeCondition(object, block, condition);
  }
}

void FieldRules::judgeValue(std::uint32_t value, const JXFieldInfo& field) {
  switch (field.kind) {
    case JXFieldKind::Text:
    case JXFieldKind::NumberedTexts:
      hasKind(value, Kind::String, "a text");
      break;
    case JXFieldKind::Number:
      judgeNumber(value);
      break;
    case JXFieldKind::Flag:
      hasKind(value, Kind::Bool, "true or false");
      break;
    case JXFieldKind::Texts:
      judgeTexts(value);
      break;
    case JXFieldKind::Values:
      hasKind(value, Kind::Array, "an array");
      break;
    case JXFieldKind::Choice:
      judgeChoice(value, field);
      break;
    case JXFieldKind::Items:
      judgeItems(value);
      break;
    case JXFieldKind::Product:
      if (hasKind(value, Kind::Object, "an object")) {
        static const Block& product =
            *new Block{"JXProduct", {&JXProduct::fields()}, &JXProduct::conditions()};
        judgeBlock(value, product, {});
      }
  }
}

void FieldRules::judgeNumber(std::uint32_t value) {
  if (!hasKind(value, Kind::Number, "a number") || fitsAnAmount(tree_.node(value).text)) return;
  reasons_.error(kLossyNumber, tree_.pathOf(value),
                 "has more than the 38 digits of an amount, or is out of its range");
}

void FieldRules::judgeTexts(std::uint32_t list) {
  if (!hasKind(list, Kind::Array, "an array of texts")) return;
  forEachIn(tree_, list, [this](std::uint32_t text) { hasKind(text, Kind::String, "a text"); });
}

void FieldRules::judgeChoice(std::uint32_t value, const JXFieldInfo& field) {
  if (!hasKind(value, Kind::String, "a text")) return;
  const std::vector<std::string_view> texts = field.choices.allTexts();
  if (std::find(texts.begin(), texts.end(), tree_.node(value).text) != texts.end()) return;
  std::string wanted;
  for (const std::string_view text : texts)
    wanted += (wanted.empty() ? "" : ", ") + std::string(text);
  reasons_.error(kWrongType, tree_.pathOf(value), "is none of: " + wanted);
}

void FieldRules::judgeItems(std::uint32_t list) {
  static const Block& block = *new Block{"JXItem", {&JXItem::fields()}, &JXItem::conditions()};
  if (!hasKind(list, Kind::Array, "an array of items")) return;
  forEachIn(tree_, list, [this](std::uint32_t item) {
    if (hasKind(item, Kind::Object, "an object")) judgeBlock(item, block, {});
  });
}

void FieldRules::judgeCondition(std::uint32_t object, const Block& block,
                                const JXCondition& condition) {
  const JXFieldState first = stateOf(object, condition.key);
  const JXFieldState second = stateOf(object, condition.otherKey);
  if (condition.holds(first, second)) return;
  const bool isTogether = condition.kind == JXCondition::Kind::Together;
  const std::string_view missing =
      isTogether && first.isPresent ? condition.otherKey : condition.key;
  const JXFieldInfo* const field = block.field(missing);
  std::string text = "the required " + std::string(field != nullptr ? field->property : missing);
  if (isTogether) {
    text += " is absent, although its other half is there";
  } else if (!tree_.find(object, missing)) {
    text += " is absent";
  } else {
    text += condition.kind == JXCondition::Kind::NotEmpty ? " holds no entry" : " is empty";
  }
  reasons_.error(kMissingField, tree_.pathOf(object, missing), std::move(text));
}

// A value of a wrong type is already told; that it is unusable, too, would be said twice.
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
  reasons_.error(kWrongType, tree_.pathOf(value),
                 "must be " + std::string(wanted) + ", is " + std::string(nameOf(found)));
  return false;
}

}  // namespace jx
