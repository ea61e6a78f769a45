// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <string_view>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceJson.h"

namespace jx::fuzz {
namespace {

using Kind = JXJsonValue::Kind;

// The library accepts what RapidJSON accepts, but for the limits that its reader names, and no
// more; both then hold the same value.
void checkAgainstReference(std::string_view text, const JXJsonReading& reading) {
  const bool isAccepted = reading.value.isPresent();
  require(isAccepted == reading.error.empty(), "what is refused has a reason, and nothing else");
  require(isAccepted || reading.errorOffset <= text.size(), "an error stands inside of the text");
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  const bool isMarked = text.substr(0, kByteOrderMark.size()) == kByteOrderMark;
  const ReferenceReading reference =
      readReference(isMarked ? text.substr(kByteOrderMark.size()) : text);
  if (reference.isUndecided) return;
  const bool isWithinLimits = reference.depth <= JXJsonReader::kMaxDepth &&
                              !reference.hasEndlessNumber && !reference.hasLoneSurrogate;
  require(isAccepted == (reference.isJson && isWithinLimits),
          "JSON is accepted and nothing else is", isAccepted ? "accepted" : reading.error, text);
  if (isAccepted) {
    require(isSame(reference.value, reading.value), "the value is the one in the text");
  }
}

std::string written(const JXJsonObject& object, JXJsonStyle style, std::size_t& leftOut) {
  const JXJsonText text = JXJsonWriter::write(object, style);
  leftOut = text.leftOut;
  return text.text;
}

// What is written is JSON, and reads as what was written.
void checkRoundTrip(const JXJsonObject& object, JXJsonStyle style) {
  std::size_t leftOut = 0;
  const std::string text = written(object, style, leftOut);
  const ReferenceReading reference = readReference(text);
  require(reference.isJson || reference.isUndecided, "what is written is JSON", text, {});
  require(reference.depth <= JXJsonWriter::kMaxDepth, "nothing is written too deep");
  const JXJsonReading again = JXJsonReader::read(text);
  require(again.value.kind() == Kind::Object, "what is written is read", again.error, text);
  if (leftOut == 0 && reference.isJson) {
    require(isSame(reference.value, object.mutableCopy()), "what is written is the value");
  }
  std::size_t leftOutAgain = 0;
  const std::string second = written(again.value.object(), style, leftOutAgain);
  require(second == text, "what was read is written as it was", second, text);
  require(leftOutAgain == 0, "what was written once is written whole again");
}

void check(std::string_view text) {
  const JXJsonReading reading = JXJsonReader::read(text);
  checkAgainstReference(text, reading);
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
