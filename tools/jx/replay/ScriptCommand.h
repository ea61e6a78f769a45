// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "jx/core/json/JXJsonValue.h"
#include "jx/events/JXEvent.h"

namespace jx {

/// A blank line.
struct ScriptNothing {};

/// An event with its fields, ready for `execute`.
struct ScriptEvent {
  std::shared_ptr<JXEvent> event;
};

/// Advances the clock; a negative value moves it back.
struct ScriptAdvance {
  std::int64_t ms = 0;
};

/// Adds a permanent parameter with any JSON value, including null.
struct ScriptPermanent {
  std::string key;
  JXJsonValue value;
};

/// Removes a permanent parameter.
struct ScriptForget {
  std::string key;
};

/// A state change of the application, or a consent decision of the user.
enum class ScriptAct { Background, Foreground, Enable, Disable };

/// One line of a session script.
using ScriptCommand = std::variant<ScriptNothing, ScriptEvent, ScriptAdvance, ScriptPermanent,
                                   ScriptForget, ScriptAct>;

}  // namespace jx
