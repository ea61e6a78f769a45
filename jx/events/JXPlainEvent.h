// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// What tells one plain event class from the others: see JXPlainEvent.
template <typename Event>
struct JX_API JXPlainDescription {
  /// The class's name, "JXRateEvent".
  std::string_view className;
  /// The name that its events carry.
  std::string_view eventName;
  /// The fields in writing order.
  JXFields<Event> fields;
  /// What makes an event complete, in the order of testing; empty: it always is.
  std::vector<JXCondition> conditions = {};
};

/// Base of an event class with one name and fields of its own, which says what it is in one
/// operation: docs/adding-an-event.md shows one. Made on any thread; never complete without what
/// its description asks for.
/// A class with initialisers or modes of its own stands on JXEvent itself.
template <typename Event>
class JX_API JXPlainEvent : public JXEvent {
 public:
  /// A new event with the class's event name and no field set.
  static std::shared_ptr<Event> init() { return std::make_shared<Event>(); }

  /// What tells the class from others; made once and never destroyed.
  static const JXEventClass& eventClass() {
    static const auto& told = *new JXPlainDescription<Event>(Event::description());
    static const auto& type =
        *new JXEventClass{told.className, &JXEvent::eventClass(), {told.eventName},
                          &told.fields,   told.conditions,        createByInit<Event>};
    return type;
  }
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 protected:
  JXPlainEvent() { setName(eventClass().eventNames.front()); }
};

}  // namespace jx
