// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#include "jx/events/JXCustomEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {

std::shared_ptr<JXCustomEvent> JXCustomEvent::initWithName(const JXString& name) {
  std::shared_ptr<JXCustomEvent> event = make<JXCustomEvent>();
  event->setName(name);
  return event;
}

const JXEventClass& JXCustomEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXCustomEvent>(
      JXEvent::eventClass(), "JXCustomEvent", {}, {},
      {
          nonEmptyString(JXE_EVENT),
      },
      JXEventFactory::of<JXCustomEvent>(
          [](int, const JXString& argument) -> std::shared_ptr<JXEvent> {
            return initWithName(argument);
          }));
  return type;
}

}  // namespace jx
