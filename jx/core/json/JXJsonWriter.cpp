// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonWriter.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <vector>

#include "jx/core/json/JXUtf8.h"

namespace jx {

// One pass over a value with a RapidJSON writer. Holds the nodes that the pass is inside of, to
// see a value that contains itself before following it.
template <typename Writer>
class JXJsonWriter::Walk {
 public:
  Walk(Writer& writer, const rapidjson::StringBuffer& buffer) : writer_(writer), buffer_(buffer) {}

  std::size_t leftOut() const { return leftOut_; }

  void object(const JXJsonObject& object) {
    inside_.push_back(object.node_.get());
    writer_.StartObject();
    for (const JXJsonEntry& entry : object.entries()) {
      if (!mayWrite(entry.value)) continue;
      text(entry.key, true);
      value(entry.value);
    }
    writer_.EndObject();
    inside_.pop_back();
  }

 private:
  using Kind = JXJsonValue::Kind;

  void array(const JXJsonArray& array) {
    inside_.push_back(array.node_.get());
    writer_.StartArray();
    for (const JXJsonValue& element : array.values()) {
      if (mayWrite(element)) value(element);
    }
    writer_.EndArray();
    inside_.pop_back();
  }

  void value(const JXJsonValue& value) {
    switch (value.kind()) {
      case Kind::Absent:
      case Kind::Null:
        writer_.Null();
        return;
      case Kind::Bool:
        writer_.Bool(std::get<bool>(value.value_));
        return;
      case Kind::Number: {
        const JXString& digits = std::get<JXJsonValue::Number>(value.value_).digits;
        writer_.RawValue(digits.c_str(), digits.size(), rapidjson::kNumberType);
        return;
      }
      case Kind::String:
        text(std::get<JXString>(value.value_), false);
        return;
      case Kind::Object:
        object(std::get<JXJsonObject>(value.value_));
        return;
      case Kind::Array:
        array(std::get<JXJsonArray>(value.value_));
        return;
    }
  }

  void text(const JXString& text, bool isKey) {
    if (isUtf8(text.view())) {
      put(text.view(), isKey);
    } else {
      put(withReplacementCharacters(text.view()), isKey);
    }
  }

  void put(std::string_view text, bool isKey) {
    const auto length = static_cast<rapidjson::SizeType>(text.size());
    if (isKey) {
      writer_.Key(text.data(), length);
    } else {
      writer_.String(text.data(), length);
    }
  }

  bool mayWrite(const JXJsonValue& value) {
    const bool may = fits(value) && !isEndless(value);
    if (!may) ++leftOut_;
    return may;
  }

  bool fits(const JXJsonValue& value) const {
    const std::size_t size =
        value.kind() == Kind::String ? std::get<JXString>(value.value_).size() : 0;
    return size <= kMaxBytes && buffer_.GetSize() <= kMaxBytes - size;
  }

  bool isEndless(const JXJsonValue& value) const {
    const void* node = nullptr;
    if (value.kind() == Kind::Object) node = std::get<JXJsonObject>(value.value_).node_.get();
    if (value.kind() == Kind::Array) node = std::get<JXJsonArray>(value.value_).node_.get();
    if (node == nullptr) return false;
    return inside_.size() >= kMaxDepth ||
           std::find(inside_.begin(), inside_.end(), node) != inside_.end();
  }

  Writer& writer_;
  const rapidjson::StringBuffer& buffer_;
  std::vector<const void*> inside_;
  std::size_t leftOut_ = 0;
};

JXJsonText JXJsonWriter::write(const JXJsonObject& object, JXJsonStyle style) {
  rapidjson::StringBuffer buffer;
  JXJsonText result;
  if (style == JXJsonStyle::Pretty) {
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    writer.SetIndent(' ', 2);
    Walk<decltype(writer)> walk(writer, buffer);
    walk.object(object);
    result.leftOut = walk.leftOut();
  } else {
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    Walk<decltype(writer)> walk(writer, buffer);
    walk.object(object);
    result.leftOut = walk.leftOut();
  }
  result.text.assign(buffer.GetString(), buffer.GetSize());
  return result;
}

}  // namespace jx
