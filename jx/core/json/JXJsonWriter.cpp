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
namespace {

std::size_t escapedLength(std::string_view text) {
  std::size_t length = 0;
  for (const char c : text) {
    if (c == '"' || c == '\\' || c == '\b' || c == '\f' || c == '\n' || c == '\r' || c == '\t') {
      length += 2;
    } else {
      length += static_cast<unsigned char>(c) < 0x20 ? 6 : 1;
    }
  }
  return length;
}

constexpr std::size_t kIndent = 2;
constexpr std::size_t kQuotes = 2;

// How long a text is once it is written.
std::size_t writtenLength(const JXString& text) {
  return kQuotes + (isUtf8(text.view()) ? escapedLength(text.view())
                                        : escapedLength(withReplacementCharacters(text.view())));
}

// The same, no less than that, and without looking at the text: no byte becomes more than six.
std::size_t longestWritten(const JXString& text) { return kQuotes + 6 * text.size(); }

}  // namespace

// One pass over a value with a RapidJSON writer. Holds the containers that the pass is inside of,
// to see a value that contains itself before following it.
template <typename Writer>
class JXJsonWriter::Walk {
 public:
  Walk(Writer& writer, const rapidjson::StringBuffer& buffer, JXJsonStyle style)
      : writer_(writer), buffer_(buffer), isPretty_(style == JXJsonStyle::Pretty) {}

  std::size_t leftOut() const { return leftOut_; }

  void object(const JXJsonObject& object) {
    enter(object.node_.get());
    writer_.StartObject();
    for (const JXJsonEntry& entry : object.entries()) {
      if (!mayWrite(&entry.key, entry.value)) continue;
      text(entry.key, true);
      value(entry.value);
    }
    leave();
    writer_.EndObject();
  }

 private:
  using Kind = JXJsonValue::Kind;

  void array(const JXJsonArray& array) {
    enter(array.node_.get());
    writer_.StartArray();
    for (const JXJsonValue& element : array.values()) {
      if (mayWrite(nullptr, element)) value(element);
    }
    leave();
    writer_.EndArray();
  }

  void enter(const void* node) {
    closing_ += endLength(inside_.size());
    inside_.push_back(node);
  }
  void leave() {
    inside_.pop_back();
    closing_ -= endLength(inside_.size());
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

  // `key` is null for an array's element.
  bool mayWrite(const JXString* key, const JXJsonValue& value) {
    const bool may = !isEndless(value) && (fits(lengthOf(key, value, longestWritten)) ||
                                           fits(lengthOf(key, value, writtenLength)));
    if (!may) ++leftOut_;
    return may;
  }

  bool fits(std::size_t length) const {
    const std::size_t taken = buffer_.GetSize() + closing_;
    return taken <= kMaxBytes && length <= kMaxBytes - taken;
  }

  // Of an entry with what parts it from its neighbours; of a container without what it holds.
  template <typename TextLength>
  std::size_t lengthOf(const JXString* key, const JXJsonValue& value, TextLength textLength) const {
    const char last = *(buffer_.GetString() + buffer_.GetSize() - 1);
    std::size_t length = last == '{' || last == '[' ? 0 : 1;
    if (isPretty_) length += lineLength(inside_.size());
    if (key != nullptr) length += textLength(*key) + (isPretty_ ? 2 : 1);
    switch (value.kind()) {
      case Kind::Number:
        return length + std::get<JXJsonValue::Number>(value.value_).digits.size();
      case Kind::String:
        return length + textLength(std::get<JXString>(value.value_));
      case Kind::Object:
      case Kind::Array:
        return length + 1 + endLength(inside_.size());
      case Kind::Bool:
        return length + (std::get<bool>(value.value_) ? 4 : 5);
      case Kind::Absent:
      case Kind::Null:
        break;
    }
    return length + 4;
  }

  // A line's end and the blanks that the next line begins with.
  static std::size_t lineLength(std::size_t level) { return 1 + kIndent * level; }
  std::size_t endLength(std::size_t level) const { return 1 + (isPretty_ ? lineLength(level) : 0); }

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
  const bool isPretty_;
  std::vector<const void*> inside_;
  std::size_t closing_ = 0;  // what the ends of the containers will take
  std::size_t leftOut_ = 0;
};

JXJsonText JXJsonWriter::write(const JXJsonObject& object, JXJsonStyle style) {
  rapidjson::StringBuffer buffer;
  JXJsonText result;
  if (style == JXJsonStyle::Pretty) {
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    writer.SetIndent(' ', kIndent);
    Walk<decltype(writer)> walk(writer, buffer, style);
    walk.object(object);
    result.leftOut = walk.leftOut();
  } else {
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    Walk<decltype(writer)> walk(writer, buffer, style);
    walk.object(object);
    result.leftOut = walk.leftOut();
  }
  result.text.assign(buffer.GetString(), buffer.GetSize());
  return result;
}

}  // namespace jx
