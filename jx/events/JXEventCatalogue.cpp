// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXEventClass.h"

namespace jx {

const std::vector<const JXEventClass*>& allEventClasses() {
  static const auto& classes = *new std::vector<const JXEventClass*>{
      &JXEvent::eventClass(),
      &JXECommerceEvent::eventClass(),
      &JXCustomEvent::eventClass(),
  };
  return classes;
}

}  // namespace jx
