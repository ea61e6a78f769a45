// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXEventClass.h"

#include "jx/events/JXEvent.h"

namespace jx {

const JXFieldInfo* JXEventClass::fieldOfKey(std::string_view key) const {
  for (const JXEventClass* type = this; type != nullptr; type = type->base) {
    const std::size_t field = type->written->findKey(key);
    if (field != JXFieldTable::npos) return &type->written->fields()[field];
  }
  return nullptr;
}

std::string JXEventClass::setProperty(JXEvent& event, std::string_view property,
                                      const JXJsonValue& value) const {
  for (const JXEventClass* type = this; type != nullptr; type = type->base) {
    for (const JXFieldTable* table : {type->written, type->unwritten}) {
      if (table == nullptr) continue;
      const std::size_t field = table->findProperty(property);
      if (field != JXFieldTable::npos) return table->set(event, field, value);
    }
  }
  return "is not a field of " + std::string(className);
}

void JXEventClass::writeFields(const JXEvent& event, JXJsonSink& sink) const {
  if (base == nullptr) return;
  base->writeFields(event, sink);
  written->write(event, sink);
}

bool JXEventClass::mayWrite(std::string_view key) const {
  return base != nullptr && (written->mayWrite(key) || base->mayWrite(key));
}

const JXCondition* JXEventClass::firstFailed(const JXEvent& event) const {
  for (const JXCondition& condition : conditions) {
    if (condition.appliesTo(event.name().view()) && !holds(condition, event)) return &condition;
  }
  return nullptr;
}

bool JXEventClass::holds(const JXCondition& condition, const JXEvent& event) const {
  return condition.holds(stateOfKey(event, condition.key), stateOfKey(event, condition.otherKey));
}

JXFieldState JXEventClass::stateOfKey(const JXEvent& event, std::string_view key) const {
  for (const JXEventClass* type = this; type != nullptr; type = type->base) {
    const std::size_t field = type->written->findKey(key);
    if (field != JXFieldTable::npos) return type->written->state(event, field);
  }
  return {};
}

std::string_view JXEventClass::propertyOfKey(std::string_view key) const {
  const JXFieldInfo* const field = fieldOfKey(key);
  return field != nullptr ? field->property : key;
}

std::string JXEventClass::describe(const JXCondition& condition) const {
  const std::string property(propertyOfKey(condition.key));
  switch (condition.kind) {
    case JXCondition::Kind::Never:
      break;
    case JXCondition::Kind::NonEmptyString:
      return property + " must be a non-empty string";
    case JXCondition::Kind::Present:
      return property + " must be set";
    case JXCondition::Kind::NonEmptyList:
      return property + " must contain at least one element";
    case JXCondition::Kind::Together:
      return property + " and " + std::string(propertyOfKey(condition.otherKey)) +
             " must be set together";
  }
  return std::string(className) + " is a base class and never passes validation";
}

const JXEventClass* eventClassNamed(std::string_view className) {
  for (const JXEventClass* type : allEventClasses()) {
    if (type->className == className) return type;
  }
  return nullptr;
}

}  // namespace jx
