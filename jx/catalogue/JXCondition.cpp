// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXCondition.h"

#include <algorithm>
#include <utility>

namespace jx {
namespace {

JXCondition condition(JXCondition::Kind kind, std::string_view key,
                      std::string_view otherKey = {}) {
  JXCondition result;
  result.kind = kind;
  result.key = key;
  result.otherKey = otherKey;
  return result;
}

bool contains(const std::vector<std::string_view>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

JXFieldState JXFieldState::ofJson(JXJsonValue::Kind kind, std::size_t size) {
  using Kind = JXJsonValue::Kind;
  return {kind != Kind::Absent && kind != Kind::Null, kind == Kind::String && size != 0,
          kind == Kind::Array && size != 0};
}

bool JXCondition::appliesTo(std::string_view eventName) const {
  return (onlyFor.empty() || contains(onlyFor, eventName)) && !contains(exceptFor, eventName);
}

bool JXCondition::holds(const JXFieldState& ofKey, const JXFieldState& ofOtherKey) const {
  switch (kind) {
    case Kind::Never:
      return false;
    case Kind::NonEmptyString:
      return ofKey.isNonEmptyString;
    case Kind::Present:
      return ofKey.isPresent;
    case Kind::NonEmptyList:
      return ofKey.hasEntries;
    case Kind::Together:
      return ofKey.isPresent == ofOtherKey.isNonEmptyString;
  }
  return false;
}

JXCondition neverValid() { return condition(JXCondition::Kind::Never, {}); }

JXCondition nonEmptyString(std::string_view key) {
  return condition(JXCondition::Kind::NonEmptyString, key);
}

JXCondition present(std::string_view key) { return condition(JXCondition::Kind::Present, key); }

JXCondition nonEmptyList(std::string_view key) {
  return condition(JXCondition::Kind::NonEmptyList, key);
}

JXCondition together(std::string_view key, std::string_view stringKey) {
  return condition(JXCondition::Kind::Together, key, stringKey);
}

JXCondition onlyFor(JXCondition condition, std::vector<std::string_view> eventNames) {
  condition.onlyFor = std::move(eventNames);
  return condition;
}

JXCondition exceptFor(JXCondition condition, std::vector<std::string_view> eventNames) {
  condition.exceptFor = std::move(eventNames);
  return condition;
}

}  // namespace jx
