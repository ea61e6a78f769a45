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

/// How an event of a class is made.
struct JX_API JXEventFactory {
  /// Makes an event; see `JXEventClass::create` for the arguments.
  using Create = std::shared_ptr<JXEvent> (*)(int mode, const JXString& text);

  /// For a class whose events `create` creates.
  template <typename Event>
  static constexpr JXEventFactory of(Create create) {
    // A class that writes its JSON in a way of its own has a `getJsonObject` of its own.
    using Inherited = JXJsonObject (JXEvent::*)() const;
    constexpr bool usesFieldTable = std::is_same_v<decltype(&Event::getJsonObject), Inherited>;
    return {create, usesFieldTable ? &typeid(Event) : nullptr};
  }
  /// Calls `create`.
  std::shared_ptr<JXEvent> operator()(int mode, const JXString& text) const {
    return create(mode, text);
  }

  Create create;  ///< never null
  /// The type of the events whose JSON is what the tables tell; null when it may be another.
  const std::type_info* serialisedByTables;
};

/// Everything that tells one event class from the others, as data: what it is called, what it
/// writes and what makes it complete. Each class has one, made once and never destroyed.
struct JX_API JXEventClass {
  std::string_view className;  ///< "JXPurchaseEvent"
  const JXEventClass* base;    ///< null for JXEvent itself
  /// The names that events of this class carry: one, or of a video class one for each mode; none
  /// when the host chooses the name.
  std::vector<std::string_view> eventNames;
  /// What this class writes behind what its base writes, in order.
  const JXFieldTable* written;
  /// What makes an event of this class complete, in the order of testing. The base's conditions do
  /// not count beside them.
  std::vector<JXCondition> conditions;
  /// A new event as its initialiser makes it. `mode` is an index into `modes`, `text` the argument
  /// of an initialiser that takes a name or a video session; both are ignored where none is taken.
  JXEventFactory create;
  /// Names of the modes, in step with `eventNames`; empty for a class without modes.
  std::vector<std::string_view> modes = {};
  /// Properties that a host may set although no JSON shows them on this class; null when none.
  const JXFieldTable* unwritten = nullptr;

  /// The field with this JSON key, in this class or its bases; null when there is none.
  const JXFieldInfo* fieldOfKey(std::string_view key) const;
  /// Gives the property a value, in this class or its bases. Returns what is wrong, empty when
  /// nothing is; the event is unchanged then.
  std::string setProperty(JXEvent& event, std::string_view property,
                          const JXJsonValue& value) const;
  /// Tells the sink the fields of the class's bases and its own, in order. JXEvent's own, which
  /// follow rules of their own, are not among them.
  void writeFields(const JXEvent& event, JXJsonSink& sink) const;
  /// True when `writeFields` may set this key.
  bool mayWrite(std::string_view key) const;
  /// The first condition that the event fails, null when it passes all.
  const JXCondition* firstFailed(const JXEvent& event) const;
  /// The condition in words: "items holds no entry".
  std::string describe(const JXCondition& condition) const;

 private:
  JXFieldState stateOfKey(const JXEvent& event, std::string_view key) const;
  bool holds(const JXCondition& condition, const JXEvent& event) const;
  std::string_view propertyOfKey(std::string_view key) const;
};

/// The `create` of a class whose initialiser takes nothing.
template <typename Event>
inline constexpr JXEventFactory createByInit = JXEventFactory::of<Event>(
    [](int, const JXString&) -> std::shared_ptr<JXEvent> { return Event::init(); });

/// The `create` of a video class.
template <typename Event, typename Mode>
inline constexpr JXEventFactory createByMode =
    JXEventFactory::of<Event>([](int mode, const JXString& sessionId) -> std::shared_ptr<JXEvent> {
      return Event::initWithMode_andSessionId(static_cast<Mode>(mode), sessionId);
    });

/// All event classes, bases first. Thread-safe.
JX_API const std::vector<const JXEventClass*>& allEventClasses();
/// The class of this name, null when there is none.
JX_API const JXEventClass* eventClassNamed(std::string_view className);

}  // namespace jx
