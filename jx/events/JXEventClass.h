// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "jx/events/JXCondition.h"
#include "jx/events/JXFieldTable.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXEvent;

/// Creates the events of a class.
struct JX_API JXEventFactory {
  /// Creates an event; see `JXEventClass::create` for the arguments.
  using Create = std::shared_ptr<JXEvent> (*)(int mode, const JXString& argument);

  /// Returns the factory of the class `Event`, whose events `create` creates.
  template <typename Event>
  static constexpr JXEventFactory of(Create create) {
    // A class with a custom JSON form overrides `getJsonObject`.
    using Inherited = JXJsonObject (JXEvent::*)() const;
    constexpr bool usesFieldTable = std::is_same_v<decltype(&Event::getJsonObject), Inherited>;
    return {create, usesFieldTable ? &typeid(Event) : nullptr};
  }
  /// Calls `create`.
  std::shared_ptr<JXEvent> operator()(int mode, const JXString& argument) const {
    return create(mode, argument);
  }

  Create create;  ///< never null
  /// The type of the events that the field tables serialise; null if their JSON may differ.
  const std::type_info* serialisedByTables;
};

/// The descriptor of an event class: its name, the fields that it writes, and its validation
/// conditions. Each class has one, which is created once and never destroyed.
struct JX_API JXEventClass {
  std::string_view className;  ///< "JXPurchaseEvent"
  const JXEventClass* base;    ///< null for JXEvent
  /// The names of this class's events: one name, or one for each mode of a video class. Empty if
  /// the application chooses the name.
  std::vector<std::string_view> eventNames;
  /// The fields that this class writes after those of its base, in order.
  const JXFieldTable* written;
  /// The conditions that make an event of this class valid, in the order of testing. The conditions
  /// of the base class do not apply in addition.
  std::vector<JXCondition> conditions;
  /// Creates an event as the class's initialiser does. `mode` is an index into `modes`. `argument`
  /// is the name or the video session ID for the initialiser. Both are ignored if the initialiser
  /// has no such parameter.
  JXEventFactory create;
  /// Names of the modes, in the order of `eventNames`; empty for a class without modes.
  std::vector<std::string_view> modes = {};
  /// Properties that can be set although this class does not write them; null if there are none.
  const JXFieldTable* unwritten = nullptr;

  /// Returns the field with this JSON key, in this class or its bases; null if there is none.
  const JXFieldInfo* fieldOfKey(std::string_view key) const;
  /// Sets a property of this class or its bases. Returns an empty string on success. On error,
  /// returns a message such as "must be a string", to follow the property's name, and leaves the
  /// event unchanged.
  std::string setProperty(JXEvent& event, std::string_view property,
                          const JXJsonValue& value) const;
  /// Writes the fields of the base classes, then its own, in order. Does not write the fields of
  /// JXEvent, which `JXEvent::writeHead` writes.
  void writeFields(const JXEvent& event, JXJsonSink& sink) const;
  /// Returns true if `writeFields` may write this key.
  bool mayWrite(std::string_view key) const;
  /// Returns the first condition that the event fails; null if the event is valid.
  const JXCondition* firstFailed(const JXEvent& event) const;
  /// Describes the condition: "items must contain at least one element".
  std::string describe(const JXCondition& condition) const;

 private:
  JXFieldState stateOfKey(const JXEvent& event, std::string_view key) const;
  bool holds(const JXCondition& condition, const JXEvent& event) const;
  std::string_view propertyOfKey(std::string_view key) const;
};

/// The `create` of a class whose initialiser has no parameters.
template <typename Event>
inline constexpr JXEventFactory createByInit = JXEventFactory::of<Event>(
    [](int, const JXString&) -> std::shared_ptr<JXEvent> { return Event::init(); });

/// The `create` of a video class.
template <typename Event, typename Mode>
inline constexpr JXEventFactory createByMode =
    JXEventFactory::of<Event>([](int mode, const JXString& sessionId) -> std::shared_ptr<JXEvent> {
      return Event::initWithMode_andSessionId(static_cast<Mode>(mode), sessionId);
    });

/// Returns all event classes, base classes first. Thread-safe.
JX_API const std::vector<const JXEventClass*>& allEventClasses();
/// Returns the class with this name; null if there is none. Thread-safe.
JX_API const JXEventClass* eventClassNamed(std::string_view className);

}  // namespace jx
