// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXEventClass.h"
#include "jx/events/JXEventClasses.h"

namespace jx {

const std::vector<const JXEventClass*>& allEventClasses() {
  static const auto& classes = *[] {
    auto* const all = new std::vector<const JXEventClass*>();
    for (const auto& eventClass : kJXEventClasses)
      all->push_back(&eventClass());
    return all;
  }();
  return classes;
}

}  // namespace jx
