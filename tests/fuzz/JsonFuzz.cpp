// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <string_view>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/storage/JXEventId.h"
#include "jx/core/storage/JXSendFilter.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceJson.h"

namespace jx::fuzz {
namespace {

using Kind = JXJsonValue::Kind;

// Expects the library to accept the same input as RapidJSON, except for the limits documented by
// its reader, and to return the same value.
void checkAgainstReference(std::string_view text, const JXJsonReading& reading) {
  const bool isAccepted = reading.value.isPresent();
  require(isAccepted == reading.error.empty(), "exactly the rejected input has an error message");
  require(isAccepted || reading.errorOffset <= text.size(),
          "the offset of an error is within the input");
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  const bool isMarked = text.substr(0, kByteOrderMark.size()) == kByteOrderMark;
  const ReferenceReading reference =
      readReference(isMarked ? text.substr(kByteOrderMark.size()) : text);
  if (reference.isUndecided) return;
  const bool isWithinLimits = reference.depth <= JXJsonReader::kMaxDepth &&
                              !reference.hasEndlessNumber && !reference.hasLoneSurrogate;
  require(isAccepted == (reference.isJson && isWithinLimits), "exactly valid JSON is accepted",
          isAccepted ? "accepted" : reading.error, text);
  if (isAccepted) {
    require(isSame(reference.value, reading.value), "the value equals the reference value");
  }
}

std::string written(const JXJsonObject& object, JXJsonStyle style, std::size_t& leftOut) {
  const JXJsonText text = JXJsonWriter::write(object, style);
  leftOut = text.leftOut;
  return text.text;
}

// Expects the output to be JSON that is read as the same value.
void checkRoundTrip(const JXJsonObject& object, JXJsonStyle style) {
  std::size_t leftOut = 0;
  const std::string text = written(object, style, leftOut);
  const ReferenceReading reference = readReference(text);
  require(reference.isJson || reference.isUndecided, "the output is JSON", text, {});
  require(reference.depth <= JXJsonWriter::kMaxDepth,
          "the output does not exceed the maximum depth");
  const JXJsonReading again = JXJsonReader::read(text);
  require(again.value.kind() == Kind::Object, "the output can be read", again.error, text);
  if (leftOut == 0 && reference.isJson) {
    require(isSame(reference.value, object.mutableCopy()), "the output equals the value");
  }
  std::size_t leftOutAgain = 0;
  const std::string second = written(again.value.object(), style, leftOutAgain);
  require(second == text, "reading and writing does not change the output", second, text);
  require(leftOutAgain == 0, "writing again omits nothing");
}

// Expects the scanner that finds the ID of an event to agree with the reader.
void checkEventId(std::string_view text, const JXJsonReading& reading) {
  const JXString id = eventIdOf(text);
  const JXString expected = reading.value.object().get("context").object().get("event_id").string();
  require(id == expected, "the ID is that of the event", id.view(), expected.view());
}

// Expects a request with the waiting marker to end with this value.
void checkWaitingMarker(std::string_view text, const JXJsonReading& reading) {
  if (!reading.value.object().isPresent() || !JXSendFilter::hasWaitingMarker(text)) return;
  const ReferenceReading reference = readReference(text);
  if (!reference.isJson || reference.repeatsKey) return;
  const ReferenceValue& last = reference.value.members.back().value;
  require(last.text == "waiting_for_consent", "a request with the marker ends with it", text, {});
}

void check(std::string_view text) {
  const JXJsonReading reading = JXJsonReader::read(text);
  checkAgainstReference(text, reading);
  checkEventId(text, reading);
  checkWaitingMarker(text, reading);
  if (!reading.value.isPresent()) return;
  JXJsonObject object = reading.value.object();
  if (!object.isPresent()) {
    object = JXJsonObject();
    object.set("value", reading.value);
  }
  checkRoundTrip(object, JXJsonStyle::Compact);
  checkRoundTrip(object, JXJsonStyle::Pretty);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::silenceLog();
  jx::fuzz::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
