// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ScriptEventLine.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXEventClass.h"
#include "tools/jx/Printable.h"

namespace jx {
namespace {

using Kind = JXJsonValue::Kind;

constexpr std::string_view kSessionProperty = "videoSessionID";

Result<const JXEventClass*> classOf(const JXJsonObject& line) {
  const JXJsonValue name = line.get("class");
  if (!name.isPresent()) return Error{"class is missing"};
  if (name.kind() != Kind::String) return Error{"class must be a string"};
  const JXEventClass* const type = eventClassNamed(name.string().view());
  if (type == nullptr) return Error{"unknown event class " + quoted(name.string().view())};
  return type;
}

// Returns 0 for a class without modes.
Result<int> modeOf(const JXEventClass& type, const JXJsonObject& line) {
  const JXJsonValue mode = line.get("mode");
  if (type.modes.empty()) {
    if (!mode.isPresent()) return 0;
    return Error{"mode is not allowed: " + std::string(type.className) + " has no modes"};
  }
  if (!mode.isPresent()) return Error{"mode is missing"};
  if (mode.kind() != Kind::String) return Error{"mode must be a string"};
  const JXString name = mode.string();
  const auto found = std::find(type.modes.begin(), type.modes.end(), name.view());
  if (found == type.modes.end()) {
    return Error{"unknown mode " + quoted(name.view()) + " of " + std::string(type.className)};
  }
  return static_cast<int>(found - type.modes.begin());
}

// Returns null when the key is missing or null.
Result<JXString> stringOf(const JXJsonObject& line, std::string_view key) {
  const JXJsonValue value = line.get(key);
  const bool isNull = value.kind() == Kind::Absent || value.kind() == Kind::Null;
  if (!isNull && value.kind() != Kind::String) {
    return Error{std::string(key) + " must be a string or null"};
  }
  return value.string();
}

// Returns the argument of the initialiser: the name of a custom event, the session of a video
// event.
Result<JXString> argumentOf(const JXEventClass& type, const JXJsonObject& line) {
  const bool takesName = &type == &JXCustomEvent::eventClass();
  if (!takesName && line.contains("name")) {
    return Error{"name is allowed only for JXCustomEvent; set the name of a " +
                 std::string(type.className) + " in \"fields\""};
  }
  return takesName ? stringOf(line, "name") : stringOf(line, "session");
}

std::string fill(const JXEventClass& type, const JXJsonObject& line, JXEvent& event) {
  // Also sets the session of JXVideoEvent, whose initialiser has no session argument.
  if (line.contains("session")) {
    const std::string error = type.setProperty(event, kSessionProperty, line.get("session"));
    if (!error.empty()) return "session " + error;
  }
  const JXJsonValue fields = line.get("fields");
  if (fields.isPresent() && fields.kind() != Kind::Object) return "fields must be an object";
  for (const JXJsonEntry& field : fields.object().entries()) {
    const std::string error = type.setProperty(event, field.key.view(), field.value);
    if (!error.empty()) return quoted(field.key.view()) + " " + error;
  }
  const JXJsonValue parameters = line.get("parameters");
  if (parameters.isPresent() && parameters.kind() != Kind::Object) {
    return "parameters must be an object";
  }
  event.addAdditionalParameter(parameters.object());
  return {};
}

}  // namespace

Result<ScriptCommand> readEventLine(const JXJsonObject& line) {
  const Result<const JXEventClass*> type = classOf(line);
  if (!type) return type.error();
  const Result<int> mode = modeOf(**type, line);
  if (!mode) return mode.error();
  const Result<JXString> argument = argumentOf(**type, line);
  if (!argument) return argument.error();
  const std::shared_ptr<JXEvent> event = (*type)->create(*mode, *argument);
  std::string error = fill(**type, line, *event);
  if (!error.empty()) return Error{asOneLine(error)};
  return ScriptCommand(ScriptEvent{event});
}

}  // namespace jx
