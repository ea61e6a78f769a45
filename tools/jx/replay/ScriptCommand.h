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

/// The event, filled, ready for `execute`.
struct ScriptEvent {
  std::shared_ptr<JXEvent> event;
};

/// Moves the clock; backwards when negative.
struct ScriptAdvance {
  std::int64_t ms = 0;
};

/// A permanent datum of any JSON value, JSON's null included.
struct ScriptPermanent {
  std::string key;
  JXJsonValue value;
};

struct ScriptForget {
  std::string key;
};

/// What happens to the application, or what its viewer decides.
enum class ScriptAct { Background, Foreground, Enable, Disable };

/// One line of a session script.
using ScriptCommand = std::variant<ScriptNothing, ScriptEvent, ScriptAdvance, ScriptPermanent,
                                   ScriptForget, ScriptAct>;

}  // namespace jx
