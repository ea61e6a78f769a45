// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <optional>
#include <string>
#include <string_view>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXUtf8.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceJson.h"
#include "tools/jx/collector/EventJson.h"
#include "tools/jx/collector/validation/ValidationResult.h"

namespace jx::fuzz {
namespace {

using Kind = JXJsonValue::Kind;

std::optional<std::string> textIn(const JXJsonObject& object, std::string_view key) {
  const JXString text = object.get(key).string();
  return text.isPresent() ? std::optional(text.toStdString()) : std::nullopt;
}

// The library's own reader finds the same name and id.
void checkFacts(const EventMetadata& facts, std::string_view body) {
  const JXJsonReading reading = JXJsonReader::read(body);
  const ReferenceReading reference = readReference(body);
  if (facts.problem) {
    require(!facts.name && !facts.eventID && !facts.eventTimestamp,
            "what is no event has no facts");
    // The library's reader passes a byte order mark; on the way no body has one.
    const bool isMarked = body.substr(0, 1) == "\xEF";
    require(isMarked || reading.value.kind() != Kind::Object,
            "what the library may write is an event", *facts.problem, body);
    return;
  }
  require(reference.isUndecided || reference.value.kind == Kind::Object, "an event is an object",
          body, {});
  // Of a key that comes twice either value may count; the library has limits that RapidJSON lacks.
  if (reference.repeatsKey || reading.value.kind() != Kind::Object) return;
  const JXJsonObject object = reading.value.object();
  const JXJsonObject context = object.get("context").object();
  require(facts.name == textIn(object, "event_name"), "the name is the event's", body, {});
  require(facts.eventID == textIn(context, "event_id"), "the id is the event's", body, {});
  if (!facts.eventTimestamp) return;
  require(context.get("event_timestamp").decimal() == JXDecimal(*facts.eventTimestamp),
          "the time is the event's", body, {});
}

// What is no event is bad, and whatever is bad has a reason in words.
void checkJudgement(const ValidationResult& validation, std::string_view body) {
  require(!validation.metadata.problem || !validation.isValid(), "what is no event is not good",
          body, {});
  for (const Diagnostic& reason : validation.diagnostics.kept())
    require(!reason.text.empty(), "a reason has words", body, {});
}

// What the collector shows of it is JSON, whatever came.
void checkShown(const StoredEvent& event, const ValidationResult& validation) {
  const JXJsonReading shown =
      JXJsonReader::read(eventToJson(event, validation.diagnostics.kept(), std::nullopt));
  require(shown.value.kind() == Kind::Object, "an event is shown as an object", shown.error, {});
  const JXJsonObject object = shown.value.object();
  const std::string wanted = withReplacementCharacters(event.request.body);
  require(object.get("body").string() == JXString(wanted), "the body is shown", wanted, {});
  require(object.contains("body_base64") == !isUtf8(event.request.body),
          "a body that is no text is shown whole too");
  require(JXJsonReader::read(eventsToJson({event, event}, 0)).error.empty(),
          "a list of events is JSON");
}

void check(Input input) {
  StoredEvent event;
  event.request.query = std::string(input.bytes(input.byte() % 64u));
  event.request.body = std::string(input.rest());
  event.request.headers.emplace_back(event.request.query, event.request.body);
  const ValidationResult validation = ValidationResult::of(event.request.query, event.request.body);
  checkFacts(validation.metadata, event.request.body);
  checkJudgement(validation, event.request.body);
  event.metadata = validation.metadata;
  checkShown(event, validation);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::check({data, size});
  return 0;
}
