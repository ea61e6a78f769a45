// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "jx/core/json/JXUtf8.h"

namespace jx {

/// Writes one JSON text. Bytes that are not UTF-8 become U+FFFD; what is absent becomes null.
class JsonOut {
 public:
  JsonOut() : writer_(buffer_) {}

  JsonOut& beginObject() { return writer_.StartObject(), *this; }
  JsonOut& endObject() { return writer_.EndObject(), *this; }
  JsonOut& beginArray() { return writer_.StartArray(), *this; }
  JsonOut& endArray() { return writer_.EndArray(), *this; }

  JsonOut& key(std::string_view name) {
    writer_.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
    return *this;
  }
  JsonOut& value(std::string_view bytes) {
    const std::string text = withReplacementCharacters(bytes);
    writer_.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    return *this;
  }
  JsonOut& value(const char* text) { return value(std::string_view(text)); }
  JsonOut& value(const std::string& text) { return value(std::string_view(text)); }
  JsonOut& value(std::int64_t number) { return writer_.Int64(number), *this; }
  JsonOut& value(bool flag) { return writer_.Bool(flag), *this; }
  template <typename Value>
  JsonOut& value(const std::optional<Value>& value_) {
    if (value_) return value(*value_);
    writer_.Null();
    return *this;
  }
  template <typename Value>
  JsonOut& member(std::string_view name, const Value& content) {
    return key(name).value(content);
  }

  std::string text() const { return {buffer_.GetString(), buffer_.GetSize()}; }

 private:
  rapidjson::StringBuffer buffer_;
  rapidjson::Writer<rapidjson::StringBuffer> writer_;
};

}  // namespace jx
