// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXEventClass.h"

#include "jx/events/JXEventClasses.h"

namespace jx {

const JXEventClass& JXEventClass::newClass(JXEventClass type, JXFieldTable written,
                                           JXFieldTable unwritten) {
  for (const JXBlockClass* base = type.base; base != nullptr; base = base->base)
    written.markDuplicatesOf(*base->written);
  type.written = new JXFieldTable(std::move(written));
  if (!unwritten.fields().empty()) type.unwritten = new JXFieldTable(std::move(unwritten));
  return *new JXEventClass(std::move(type));
}

const std::vector<const JXEventClass*>& allEventClasses() {
  static const auto& classes = *[] {
    auto* const all = new std::vector<const JXEventClass*>();
    for (const auto& eventClass : kJXEventClasses)
      all->push_back(&eventClass());
    return all;
  }();
  return classes;
}

const JXEventClass* eventClassNamed(std::string_view className) {
  for (const JXEventClass* type : allEventClasses()) {
    if (type->className == className) return type;
  }
  return nullptr;
}

}  // namespace jx
