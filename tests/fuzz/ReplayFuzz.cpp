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
  require(event->event != nullptr, "a line that does \"event\" has one");
  event->event->verifyEvent();
  JXJsonObject body = event->event->getJsonObject();
  // Holds an id that is new each time.
  body.remove("context");
  return JXJsonWriter::write(body, JXJsonStyle::Compact).text;
}

// A reason is shown to a person, on one line of a terminal.
void checkReason(const std::string& reason) {
  require(!reason.empty(), "a refusal has a reason");
  require(isUtf8(reason), "a reason is UTF-8", reason, {});
  require(reason.back() != '.', "a reason has no full stop", reason, {});
  const bool isOneLine = std::none_of(reason.begin(), reason.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
  });
  require(isOneLine, "a reason is one line without control characters", reason, {});
}

void checkCommand(std::string_view line, const ScriptCommand& command) {
  if (std::holds_alternative<ScriptNothing>(command)) {
    require(line.find_first_not_of(" \t\r\n") == std::string_view::npos,
            "only a blank line does nothing", line, {});
    return;
  }
  const JXJsonReading reading = JXJsonReader::read(line);
  require(reading.value.object().get("do").string().testString(),
          "a command is an object that says what to do", line, {});
  const std::string body = bodyOf(command);
  if (body.empty()) return;
  const JXJsonReading written = JXJsonReader::read(body);
  require(written.value.kind() == JXJsonValue::Kind::Object, "an event is written as an object",
          written.error, body);
}

void check(std::string_view line) {
  const Result<ScriptCommand> first = readScriptLine(line);
  if (first) {
    checkCommand(line, *first);
  } else {
    checkReason(first.error().text);
  }
  // Nothing is remembered between lines, and a carriage return at the end is no matter.
  const Result<ScriptCommand> second = readScriptLine(std::string(line) + "\r");
  require(static_cast<bool>(first) == static_cast<bool>(second), "a line reads the same again");
  if (!first) return;
  require(first->index() == second->index() && bodyOf(*first) == bodyOf(*second),
          "a line does the same again", bodyOf(*second), bodyOf(*first));
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::silenceLog();
  jx::fuzz::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
