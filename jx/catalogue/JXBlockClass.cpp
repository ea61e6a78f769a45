// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXBlockClass.h"

#include <algorithm>

namespace jx {

template <typename Matches>
JXBlockClass::Place JXBlockClass::find(const Matches& matches, bool withUnwritten) const {
  for (const JXBlockClass* type = this; type != nullptr; type = type->base) {
    for (const JXFieldTable* table : {type->written, withUnwritten ? type->unwritten : nullptr}) {
      if (table == nullptr) continue;
      const auto& fields = table->fields();
      const auto field = std::find_if(fields.begin(), fields.end(), matches);
      if (field != fields.end()) return {table, static_cast<std::size_t>(field - fields.begin())};
    }
  }
  return {};
}

JXBlockClass::Place JXBlockClass::placeOfKey(std::string_view key) const {
  return find([key](const JXFieldInfo& field) { return field.key == key; });
}

JXBlockClass::Place JXBlockClass::placeOfProperty(std::string_view property) const {
  return find([property](const JXFieldInfo& field) { return field.property == property; }, true);
}

bool JXBlockClass::isOrDerivesFrom(std::string_view name) const {
  return className == name || (base != nullptr && base->isOrDerivesFrom(name));
}

const JXFieldInfo* JXBlockClass::fieldOfKey(std::string_view key) const {
  return placeOfKey(key).info();
}

const JXFieldInfo* JXBlockClass::fieldOfProperty(std::string_view property) const {
  return placeOfProperty(property).info();
}

const JXFieldInfo* JXBlockClass::fieldWriting(std::string_view key) const {
  return find([key](const JXFieldInfo& field) { return field.writesKey(key); }).info();
}

std::string JXBlockClass::setProperty(JXAdditionalProperties& object, std::string_view property,
                                      const JXJsonValue& value) const {
  const Place place = placeOfProperty(property);
  if (place.table == nullptr) return "is not a field of " + std::string(className);
  return place.table->set(object, place.field, value);
}

JXJsonValue JXBlockClass::getProperty(const JXAdditionalProperties& object,
                                      std::string_view property) const {
  const Place place = placeOfProperty(property);
  return place.table != nullptr ? place.table->get(object, place.field) : JXJsonValue();
}

void JXBlockClass::writeFields(const JXAdditionalProperties& object, JXJsonSink& sink,
                               const JXBlockClass* excluded) const {
  if (this == excluded) return;
  if (base != nullptr) base->writeFields(object, sink, excluded);
  written->write(object, sink);
}

const JXCondition* JXBlockClass::firstFailed(const JXAdditionalProperties& object,
                                             std::string_view eventName) const {
  const auto fails = [&](const JXCondition& condition) {
    return condition.appliesTo(eventName) &&
           !condition.holds(stateOfKey(object, condition.key),
                            stateOfKey(object, condition.otherKey));
  };
  const auto failed = std::find_if(conditions.begin(), conditions.end(), fails);
  return failed != conditions.end() ? &*failed : nullptr;
}

JXFieldState JXBlockClass::stateOfKey(const JXAdditionalProperties& object,
                                      std::string_view key) const {
  const Place place = placeOfKey(key);
  return place.table != nullptr ? place.table->state(object, place.field) : JXFieldState();
}

std::string JXBlockClass::describe(const JXCondition& condition, std::string_view quote) const {
  const auto quoted = [&](std::string_view key) {
    const JXFieldInfo* const field = fieldOfKey(key);
    return std::string(quote).append(field != nullptr ? field->property : key).append(quote);
  };
  switch (condition.kind) {
    case JXCondition::Kind::Never:
      break;
    case JXCondition::Kind::NonEmptyString:
      return quoted(condition.key) + " must be a non-empty string";
    case JXCondition::Kind::Present:
      return quoted(condition.key) + " must be set";
    case JXCondition::Kind::NonEmptyList:
      return quoted(condition.key) + " must contain at least one element";
    case JXCondition::Kind::Together:
      return quoted(condition.key) + " and " + quoted(condition.otherKey) + " must be set together";
  }
  return std::string(className) + " is a base class and never passes validation";
}

}  // namespace jx
