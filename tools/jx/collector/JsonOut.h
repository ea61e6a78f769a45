// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jx {

/// Writes one JSON value. Bytes that are not UTF-8 become U+FFFD; nullopt becomes null. The caller
/// is responsible for a valid sequence of calls.
class JsonOut {
 public:
  JsonOut& beginObject() { return open('{'); }
  JsonOut& endObject() { return close('}'); }
  JsonOut& beginArray() { return open('['); }
  JsonOut& endArray() { return close(']'); }

  JsonOut& key(std::string_view name);
  JsonOut& value(std::string_view bytes);
  JsonOut& value(const char* text) { return value(std::string_view(text)); }
  JsonOut& value(const std::string& text) { return value(std::string_view(text)); }
  JsonOut& value(std::int64_t number) { return word(std::to_string(number)); }
  JsonOut& value(bool flag) { return word(flag ? "true" : "false"); }
  template <typename Value>
  JsonOut& value(const std::optional<Value>& content) {
    return content ? value(*content) : word("null");
  }
  template <typename Value>
  JsonOut& member(std::string_view name, const Value& content) {
    return key(name).value(content);
  }

  const std::string& text() const { return text_; }

 private:
  JsonOut& open(char bracket);
  JsonOut& close(char bracket);
  JsonOut& word(std::string_view text);
  void separate();
  void quote(std::string_view text);

  std::string text_;
  bool needsComma_ = false;
};

}  // namespace jx
