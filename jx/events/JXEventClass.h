// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "jx/catalogue/JXBlockClass.h"
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

/// The descriptor of an event class: its names, the fields that it writes, and its validation
/// conditions.
struct JX_API JXEventClass : JXBlockClass {
  /// The names of this class's events: one name, or one for each mode of a video class. Empty if
  /// the application chooses the name.
  std::vector<std::string_view> eventNames;
  /// Creates an event as the class's initialiser does. `mode` is an index into `modes`. `argument`
  /// is the name or the video session ID for the initialiser. Both are ignored if the initialiser
  /// has no such parameter.
  JXEventFactory create;
  /// Names of the modes, in the order of `eventNames`; empty for a class without modes.
  std::vector<std::string_view> modes = {};

  /// Returns a new descriptor of the class `Event`, which is never destroyed. All strings must be
  /// constants. `fields` lists the fields in writing order; a field that a base class writes is not
  /// written again. Without conditions, every event is valid. docs/adding-an-event.md has an
  /// example.
  template <typename Event>
  static const JXEventClass& of(const JXEventClass& base, std::string_view className,
                                std::vector<std::string_view> eventNames, JXFieldTable fields,
                                std::vector<JXCondition> conditions = {},
                                JXEventFactory create = createByInit<Event>,
                                std::vector<std::string_view> modes = {},
                                JXFieldTable unwritten = {}) {
    return newClass({{className, &base, nullptr, std::move(conditions)},
                     std::move(eventNames),
                     create,
                     std::move(modes)},
                    std::move(fields), std::move(unwritten));
  }

 private:
  static const JXEventClass& newClass(JXEventClass type, JXFieldTable written,
                                      JXFieldTable unwritten);
};

/// Returns all event classes, base classes first. Thread-safe.
JX_API const std::vector<const JXEventClass*>& allEventClasses();
/// Returns the class with this name; null if there is none. Thread-safe.
JX_API const JXEventClass* eventClassNamed(std::string_view className);

}  // namespace jx
