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

// Expects the library's reader to find the same name and ID.
void checkMetadata(const EventMetadata& metadata, std::string_view body) {
  const JXJsonReading reading = JXJsonReader::read(body);
  const ReferenceReading reference = readReference(body);
  if (metadata.problem) {
    require(!metadata.name && !metadata.eventID && !metadata.eventTimestamp,
            "an invalid event has no metadata");
    // The library's reader accepts a byte order mark; a request body must not have one.
    const bool isMarked = body.substr(0, 1) == "\xEF";
    require(isMarked || reading.value.kind() != Kind::Object,
            "JSON objects that the library accepts are events", *metadata.problem, body);
    return;
  }
  require(reference.isUndecided || reference.value.kind == Kind::Object,
          "an event is a JSON object", body, {});
  // Readers differ for duplicate keys, and the library has limits that RapidJSON does not have.
  if (reference.repeatsKey || reading.value.kind() != Kind::Object) return;
  const JXJsonObject object = reading.value.object();
  const JXJsonObject context = object.get("context").object();
  require(metadata.name == textIn(object, "event_name"), "the name is that of the event", body, {});
  require(metadata.eventID == textIn(context, "event_id"), "the ID is that of the event", body, {});
  if (!metadata.eventTimestamp) return;
  require(context.get("event_timestamp").decimal() == JXDecimal(*metadata.eventTimestamp),
          "the timestamp is that of the event", body, {});
}

// Expects bodies that are not events to be invalid, and a message in every diagnostic.
void checkValidation(const ValidationResult& validation, std::string_view body) {
  require(!validation.metadata.problem || !validation.isValid(),
          "a body that is not an event is invalid", body, {});
  for (const Diagnostic& diagnostic : validation.diagnostics.kept())
    require(!diagnostic.text.empty(), "a diagnostic has a message", body, {});
}

// Expects the collector's representation to be JSON for any input.
void checkShown(const StoredEvent& event, const ValidationResult& validation) {
  const JXJsonReading shown =
      JXJsonReader::read(eventToJson(event, validation.diagnostics.kept(), std::nullopt));
  require(shown.value.kind() == Kind::Object, "an event is represented by an object", shown.error,
          {});
  const JXJsonObject object = shown.value.object();
  const std::string wanted = withReplacementCharacters(event.request.body);
  require(object.get("body").string() == JXString(wanted), "the body is included", wanted, {});
  require(object.contains("body_base64") == !isUtf8(event.request.body),
          "a body that is not UTF-8 is also included as Base64");
  require(JXJsonReader::read(eventsToJson({event, event}, 0)).error.empty(),
          "a list of events is JSON");
}

void check(Input input) {
  StoredEvent event;
  event.request.query = std::string(input.bytes(input.byte() % 64u));
  event.request.body = std::string(input.rest());
  event.request.headers.emplace_back(event.request.query, event.request.body);
  const ValidationResult validation = ValidationResult::of(event.request.query, event.request.body);
  checkMetadata(validation.metadata, event.request.body);
  checkValidation(validation, event.request.body);
  event.metadata = validation.metadata;
  checkShown(event, validation);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::check({data, size});
  return 0;
}
