// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ScriptLine.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXUtf8.h"
#include "tools/jx/Printable.h"
#include "tools/jx/replay/ScriptEventLine.h"

namespace jx {
namespace {

using Kind = JXJsonValue::Kind;
using Reader = Result<ScriptCommand> (*)(const JXJsonObject& line);

struct Verb {
  std::string_view name;
  std::initializer_list<std::string_view> keys;  ///< in addition to "do"
  Reader read;
};

Result<std::string> keyOf(const JXJsonObject& line) {
  const JXJsonValue key = line.get("key");
  if (!key.isPresent()) return Error{"key is missing"};
  if (key.kind() != Kind::String) return Error{"key must be a string"};
  return key.string().toStdString();
}

Result<ScriptCommand> readAdvance(const JXJsonObject& line) {
  const JXJsonValue ms = line.get("ms");
  if (!ms.isPresent()) return Error{"ms is missing"};
  if (ms.kind() != Kind::Number) return Error{"ms must be a number"};
  const JXString digits = ms.numberString();
  const std::string_view text = digits.view();
  ScriptAdvance advance;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), advance.ms);
  if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size()) {
    return Error{"ms must be a 64-bit integer"};
  }
  return ScriptCommand(advance);
}

Result<ScriptCommand> readPermanent(const JXJsonObject& line) {
  Result<std::string> key = keyOf(line);
  if (!key) return key.error();
  if (!line.contains("value")) return Error{"value is missing"};
  return ScriptCommand(ScriptPermanent{std::move(*key), line.get("value")});
}

Result<ScriptCommand> readForget(const JXJsonObject& line) {
  Result<std::string> key = keyOf(line);
  if (!key) return key.error();
  return ScriptCommand(ScriptForget{std::move(*key)});
}

template <ScriptAct act>
Result<ScriptCommand> readAct(const JXJsonObject&) {
  return ScriptCommand(act);
}

const std::array<Verb, 8>& verbs() {
  static const std::array<Verb, 8> all{{
      {"event", {"class", "name", "mode", "session", "fields", "parameters"}, readEventLine},
      {"advance", {"ms"}, readAdvance},
      {"background", {}, readAct<ScriptAct::Background>},
      {"foreground", {}, readAct<ScriptAct::Foreground>},
      {"enable", {}, readAct<ScriptAct::Enable>},
      {"disable", {}, readAct<ScriptAct::Disable>},
      {"permanent", {"key", "value"}, readPermanent},
      {"forget", {"key"}, readForget},
  }};
  return all;
}

// Rejects misspelt keys, whose values would otherwise be ignored silently.
std::optional<Error> unknownKey(const Verb& verb, const JXJsonObject& line) {
  for (const JXJsonEntry& entry : line.entries()) {
    const std::string_view key = entry.key.view();
    if (key == "do" || std::find(verb.keys.begin(), verb.keys.end(), key) != verb.keys.end()) {
      continue;
    }
    return Error{"unknown key " + quoted(key) + " for command \"" + std::string(verb.name) + "\""};
  }
  return std::nullopt;
}

}  // namespace

Result<ScriptCommand> readScriptLine(std::string_view line) {
  if (line.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    return ScriptCommand(ScriptNothing{});
  }
  if (!isUtf8(line)) return Error{"invalid UTF-8"};
  const JXJsonReading reading = JXJsonReader::read(line);
  if (!reading.error.empty()) {
    return Error{"invalid JSON at byte " + std::to_string(reading.errorOffset + 1) + ": " +
                 reading.error};
  }
  if (reading.value.kind() != Kind::Object) return Error{"a line must be a JSON object"};
  const JXJsonObject object = reading.value.object();
  const JXJsonValue verbValue = object.get("do");
  if (!verbValue.isPresent()) return Error{"\"do\" is missing"};
  if (verbValue.kind() != Kind::String) return Error{"\"do\" must be a string"};
  const JXString name = verbValue.string();
  for (const Verb& verb : verbs()) {
    if (verb.name != name.view()) continue;
    if (std::optional<Error> unknown = unknownKey(verb, object)) return std::move(*unknown);
    return verb.read(object);
  }
  return Error{"unknown command " + quoted(name.view())};
}

}  // namespace jx
