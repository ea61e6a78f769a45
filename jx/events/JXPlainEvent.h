// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The description of a plain event class; see JXPlainEvent.
template <typename Event>
struct JX_API JXPlainDescription {
  /// The name of the class: "JXRateEvent".
  std::string_view className;
  /// The name of its events.
  std::string_view eventName;
  /// The fields in writing order.
  JXFields<Event> fields;
  /// The conditions that make an event valid, in the order of testing. Empty: always valid.
  std::vector<JXCondition> conditions = {};
};

/// Base of an event class with one event name and its own fields. The class defines
/// `static JXPlainDescription<Event> description()`; docs/adding-an-event.md has an example. Events
/// may be created on any thread. An event is valid if it meets the conditions of the description. A
/// class with other initialisers or with modes derives from JXEvent.
template <typename Event>
class JX_API JXPlainEvent : public JXEvent {
 public:
  /// Creates an event with the class's event name; no other field is set.
  static std::shared_ptr<Event> init() { return std::make_shared<Event>(); }

  /// Returns the descriptor of the class. Created on the first call and never destroyed.
  static const JXEventClass& eventClass() {
    static const auto& plain = *new JXPlainDescription<Event>(Event::description());
    static const auto& type =
        *new JXEventClass{plain.className, &JXEvent::eventClass(), {plain.eventName},
                          &plain.fields,   plain.conditions,       createByInit<Event>};
    return type;
  }
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 protected:
  JXPlainEvent() { setName(eventClass().eventNames.front()); }
};

}  // namespace jx
