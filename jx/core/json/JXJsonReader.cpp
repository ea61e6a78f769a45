// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonReader.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <utility>
#include <vector>

namespace jx {

// Builds the value from the reader's events. The containers that are open stand in a stack.
class JXJsonReader::Handler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Handler> {
 public:
  bool Null() { return put(JXJsonValue::null()); }
  bool Bool(bool value) { return put(value); }
  bool RawNumber(const char* digits, rapidjson::SizeType length, bool) {
    JXJsonValue number = JXJsonValue::numberFromText(std::string_view(digits, length));
    if (!number.isPresent()) refusal_ = "a number has too many digits";
    return number.isPresent() && put(std::move(number));
  }
  bool String(const char* text, rapidjson::SizeType length, bool) {
    return put(std::string_view(text, length));
  }
  bool Key(const char* text, rapidjson::SizeType length, bool) {
    open_.back().key = std::string_view(text, length);
    return true;
  }
  bool StartObject() { return start(JXJsonObject()); }
  bool StartArray() { return start(JXJsonArray()); }
  bool EndObject(rapidjson::SizeType) { return end(); }
  bool EndArray(rapidjson::SizeType) { return end(); }

  JXJsonValue takeResult() { return std::move(result_); }
  const std::string& refusal() const { return refusal_; }

 private:
  struct Open {
    JXJsonValue container;
    JXString key;
  };

  bool put(JXJsonValue value) {
    if (open_.empty()) {
      result_ = std::move(value);
    } else if (open_.back().container.kind() == JXJsonValue::Kind::Object) {
      open_.back().container.object().set(open_.back().key.view(), std::move(value));
    } else {
      open_.back().container.array().append(std::move(value));
    }
    return true;
  }
  bool start(const JXJsonValue& container) {
    if (open_.size() >= kMaxDepth) {
      refusal_ = "values are nested too deep";
      return false;
    }
    put(container);
    open_.push_back({container, {}});
    return true;
  }
  bool end() {
    open_.pop_back();
    return true;
  }

  JXJsonValue result_;
  std::vector<Open> open_;
  std::string refusal_;
};

JXJsonReading JXJsonReader::read(std::string_view text) {
  constexpr unsigned kFlags = rapidjson::kParseIterativeFlag |
                              rapidjson::kParseNumbersAsStringsFlag |
                              rapidjson::kParseValidateEncodingFlag;
  rapidjson::MemoryStream bytes(text.data(), text.size());
  rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream> stream(bytes);
  rapidjson::Reader reader;
  Handler handler;
  const rapidjson::ParseResult parsed = reader.Parse<kFlags>(stream, handler);
  JXJsonReading reading;
  if (parsed.IsError()) {
    reading.errorOffset = parsed.Offset();
    reading.error =
        handler.refusal().empty() ? rapidjson::GetParseError_En(parsed.Code()) : handler.refusal();
    return reading;
  }
  // The reader takes a NUL byte for the end; what stands behind it would pass unread.
  if (stream.Tell() < text.size()) {
    reading.errorOffset = stream.Tell();
    reading.error = "a NUL byte stands outside of a text";
    return reading;
  }
  reading.value = handler.takeResult();
  return reading;
}

}  // namespace jx
