// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <string>
#include <string_view>
#include <variant>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/json/JXUtf8.h"
#include "tests/fuzz/Fuzz.h"
#include "tools/jx/replay/ScriptLine.h"

namespace jx::fuzz {
namespace {

std::string bodyOf(const ScriptCommand& command) {
  const auto* const event = std::get_if<ScriptEvent>(&command);
  if (event == nullptr) return {};
  require(event->event != nullptr, "an \"event\" line contains an event");
  event->event->verifyEvent();
  JXJsonObject body = event->event->getJsonObject();
  // Contains a new ID each time.
  body.remove("context");
  return JXJsonWriter::write(body, JXJsonStyle::Compact).text;
}

// Expects an error message that fits one line of a terminal.
void checkMessage(const std::string& message) {
  require(!message.empty(), "a rejected line has an error message");
  require(isUtf8(message), "an error message is UTF-8", message, {});
  require(message.back() != '.', "an error message does not end with a full stop", message, {});
  const bool isOneLine = std::none_of(message.begin(), message.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
  });
  require(isOneLine, "an error message has no control characters", message, {});
}

void checkCommand(std::string_view line, const ScriptCommand& command) {
  if (std::holds_alternative<ScriptNothing>(command)) {
    require(line.find_first_not_of(" \t\r\n") == std::string_view::npos,
            "only a blank line does nothing", line, {});
    return;
  }
  const JXJsonReading reading = JXJsonReader::read(line);
  require(reading.value.object().get("do").string().testString(),
          "a command is an object with the key \"do\"", line, {});
  const std::string body = bodyOf(command);
  if (body.empty()) return;
  const JXJsonReading written = JXJsonReader::read(body);
  require(written.value.kind() == JXJsonValue::Kind::Object, "an event is serialised as an object",
          written.error, body);
}

void check(std::string_view line) {
  const Result<ScriptCommand> first = readScriptLine(line);
  if (first) {
    checkCommand(line, *first);
  } else {
    checkMessage(first.error().text);
  }
  // Lines are independent of each other, and a trailing carriage return is ignored.
  const Result<ScriptCommand> second = readScriptLine(std::string(line) + "\r");
  require(static_cast<bool>(first) == static_cast<bool>(second),
          "a line is accepted or rejected again");
  if (!first) return;
  require(first->index() == second->index() && bodyOf(*first) == bodyOf(*second),
          "a line is parsed as the same command again", bodyOf(*second), bodyOf(*first));
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::silenceLog();
  jx::fuzz::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
