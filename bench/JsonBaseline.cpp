// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/JsonBaseline.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>

namespace jx::bench {

struct JsonBaseline::Recorder : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Recorder> {
  explicit Recorder(std::vector<Step>& into) : steps(into) {}
  bool add(Step::Kind kind, std::string_view text = {}, bool flag = false) {
    steps.push_back({kind, flag, std::string(text)});
    return true;
  }
  bool Null() { return add(Step::Kind::Null); }
  bool Bool(bool value) { return add(Step::Kind::Bool, {}, value); }
  bool RawNumber(const char* digits, rapidjson::SizeType length, bool) {
    return add(Step::Kind::Number, {digits, length});
  }
  bool String(const char* text, rapidjson::SizeType length, bool) {
    return add(Step::Kind::String, {text, length});
  }
  bool Key(const char* text, rapidjson::SizeType length, bool) {
    return add(Step::Kind::Key, {text, length});
  }
  bool StartObject() { return add(Step::Kind::StartObject); }
  bool EndObject(rapidjson::SizeType) { return add(Step::Kind::EndObject); }
  bool StartArray() { return add(Step::Kind::StartArray); }
  bool EndArray(rapidjson::SizeType) { return add(Step::Kind::EndArray); }

  std::vector<Step>& steps;
};

struct JsonBaseline::Buffer {
  rapidjson::StringBuffer text;
};

JsonBaseline::JsonBaseline(std::string_view json) : buffer_(std::make_unique<Buffer>()) {
  rapidjson::MemoryStream bytes(json.data(), json.size());
  rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream> stream(bytes);
  Recorder recorder(steps_);
  rapidjson::Reader reader;
  reader.Parse<rapidjson::kParseNumbersAsStringsFlag>(stream, recorder);
}

JsonBaseline::~JsonBaseline() = default;

template <typename Writer>
void JsonBaseline::replay(Writer& writer) const {
  for (const Step& step : steps_) {
    const auto length = static_cast<rapidjson::SizeType>(step.text.size());
    switch (step.kind) {
      case Step::Kind::Key:
        writer.Key(step.text.data(), length);
        break;
      case Step::Kind::String:
        writer.String(step.text.data(), length);
        break;
      case Step::Kind::Number:
        writer.RawValue(step.text.data(), length, rapidjson::kNumberType);
        break;
      case Step::Kind::Bool:
        writer.Bool(step.flag);
        break;
      case Step::Kind::Null:
        writer.Null();
        break;
      case Step::Kind::StartObject:
        writer.StartObject();
        break;
      case Step::Kind::EndObject:
        writer.EndObject();
        break;
      case Step::Kind::StartArray:
        writer.StartArray();
        break;
      case Step::Kind::EndArray:
        writer.EndArray();
        break;
    }
  }
}

std::string_view JsonBaseline::write() {
  buffer_->text.Clear();
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer_->text);
  writer.SetIndent(' ', 2);
  replay(writer);
  return {buffer_->text.GetString(), buffer_->text.GetSize()};
}

}  // namespace jx::bench
