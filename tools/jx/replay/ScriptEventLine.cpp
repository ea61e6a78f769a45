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
  if (name.kind() != Kind::String) return Error{"class is no text"};
  const JXEventClass* const type = eventClassNamed(name.string().view());
  if (type == nullptr) return Error{quoted(name.string().view()) + " is no event class"};
  return type;
}

// 0 for a class without modes.
Result<int> modeOf(const JXEventClass& type, const JXJsonObject& line) {
  const JXJsonValue mode = line.get("mode");
  if (type.modes.empty()) {
    if (!mode.isPresent()) return 0;
    return Error{std::string(type.className) + " has no modes"};
  }
  if (!mode.isPresent()) return Error{"mode is missing"};
  if (mode.kind() != Kind::String) return Error{"mode is no text"};
  const JXString name = mode.string();
  const auto found = std::find(type.modes.begin(), type.modes.end(), name.view());
  if (found == type.modes.end()) {
    return Error{quoted(name.view()) + " is no mode of " + std::string(type.className)};
  }
  return static_cast<int>(found - type.modes.begin());
}

// Absent when the key is missing or null.
Result<JXString> textOf(const JXJsonObject& line, std::string_view key) {
  const JXJsonValue value = line.get(key);
  const bool isAbsent = value.kind() == Kind::Absent || value.kind() == Kind::Null;
  if (!isAbsent && value.kind() != Kind::String) return Error{std::string(key) + " is no text"};
  return value.string();
}

// The argument of the class's initialiser: the name of a custom event, the session of a video one.
Result<JXString> argumentOf(const JXEventClass& type, const JXJsonObject& line) {
  const bool takesName = &type == &JXCustomEvent::eventClass();
  if (!takesName && line.contains("name")) {
    return Error{"name is no argument of " + std::string(type.className) +
                 "; it is one of its fields"};
  }
  return takesName ? textOf(line, "name") : textOf(line, "session");
}

std::string fill(const JXEventClass& type, const JXJsonObject& line, JXEvent& event) {
  // Also for the base of the video classes, whose initialiser takes no session.
  if (line.contains("session")) {
    const std::string wrong = type.setProperty(event, kSessionProperty, line.get("session"));
    if (!wrong.empty()) return "session " + wrong;
  }
  const JXJsonValue fields = line.get("fields");
  if (fields.isPresent() && fields.kind() != Kind::Object) return "fields is no object";
  for (const JXJsonEntry& field : fields.object().entries()) {
    const std::string wrong = type.setProperty(event, field.key.view(), field.value);
    if (!wrong.empty()) return quoted(field.key.view()) + " " + wrong;
  }
  const JXJsonValue parameters = line.get("parameters");
  if (parameters.isPresent() && parameters.kind() != Kind::Object) return "parameters is no object";
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
  std::string wrong = fill(**type, line, *event);
  if (!wrong.empty()) return Error{asOneLine(wrong)};
  return ScriptCommand(ScriptEvent{event});
}

}  // namespace jx
