// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXFieldTable.h"

#include <algorithm>

namespace jx {

std::size_t JXFieldTable::findProperty(std::string_view property) const {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (fields_[i].property == property) return i;
  }
  return npos;
}

std::size_t JXFieldTable::findKey(std::string_view key) const {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (fields_[i].key == key) return i;
  }
  return npos;
}

bool JXFieldTable::mayWrite(std::string_view key) const {
  return std::any_of(fields_.begin(), fields_.end(), [key](const JXFieldInfo& field) {
    const bool isNumbered = field.kind == JXFieldKind::NumberedStrings;
    return isNumbered ? key.substr(0, field.key.size()) == field.key : key == field.key;
  });
}

JXFieldState JXFieldTable::stateOfKey(const JXAdditionalProperties& object,
                                      std::string_view key) const {
  const std::size_t field = findKey(key);
  return field != npos ? state(object, field) : JXFieldState{};
}

bool JXFieldTable::meetsAll(const JXAdditionalProperties& object,
                            const std::vector<JXCondition>& conditions) const {
  return std::all_of(conditions.begin(), conditions.end(), [&](const JXCondition& condition) {
    return condition.holds(stateOfKey(object, condition.key),
                           stateOfKey(object, condition.otherKey));
  });
}

}  // namespace jx
