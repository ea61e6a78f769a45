// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

#include "jx/core/json/JXJsonSink.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/platform/JXStringBuilder.h"

namespace jx {

/// Writes the entries of one JSON object directly as JSON text. Does not detect duplicate keys: a
/// key that is added twice is written twice. Gives the guarantees of `JXJsonWriter` for its text.
class JXJsonTextSink final : public JXJsonSink {
 public:
  /// `expectedSize` is a hint in bytes that avoids reallocation.
  JXJsonTextSink(JXJsonStyle style, std::size_t expectedSize);

  void text(std::string_view key, const JXString& value) override;
  void number(std::string_view key, const std::optional<JXDecimal>& value) override;
  void numberFromString(std::string_view key, const JXString& value) override;
  void flag(std::string_view key, bool value) override;
  void value(std::string_view key, const JXJsonValue& value) override;
  void beginObject(std::string_view key) override;
  void beginArray(std::string_view key) override;
  void stringElement(const JXString& value) override;
  void beginObjectElement() override;
  void endObject() override { end('}'); }
  void endArray() override { end(']'); }

  /// Writes all entries of an object, in addition to entries added by other calls.
  void entries(const JXJsonObject& object);
  /// Writes all entries of the object that the text represents; a value that contains this object
  /// is a circular reference.
  void root(const JXJsonObject& object);

  /// Returns the number of values omitted so far.
  std::size_t leftOut() const { return leftOut_; }
  /// Returns the text. The sink must not be used afterwards.
  JXString finish();

 private:
  using Kind = JXJsonValue::Kind;

  // `key` is null for an array element. Each value is written by `start` and the caller, which ends
  // it with `out_.extendTo`, if `start` returns a place; otherwise by `begin`, which considers
  // escapes, deep levels and the size limit.
  char* start(const std::string_view* key, std::size_t room, std::size_t maxLength);
  void putValue(const std::string_view* key, const JXJsonValue& value);
  void putObject(const std::string_view* key, const JXJsonObject& object);
  void putArray(const std::string_view* key, const JXJsonArray& array);
  void putString(const std::string_view* key, std::string_view text);
  void putBare(const std::string_view* key, std::string_view text);
  bool begin(const std::string_view* key, std::size_t length, const std::string_view* text);
  void finishValue(const char* end);
  bool fits(std::size_t length) const;
  void beginContainer(const std::string_view* key, char opening);
  void open(char opening);
  void end(char closing);
  bool mustOmit(const void* node);
  char* putLine(char* to, bool hasComma) const;
  std::size_t lineRoom() const;
  std::size_t endLength() const;

  JXStringBuilder out_;
  const bool isPretty_;
  std::size_t level_ = 0;
  std::size_t line_ = isPretty_ ? 1 : 0;  ///< length of a line break and its indentation
  bool isFirst_ = true;                   ///< the innermost open container is empty so far
  std::size_t skipped_ = 0;               ///< open levels of an omitted container
  std::size_t closing_ = 0;               ///< bytes needed to close the open containers
  std::vector<const void*> ancestors_;    ///< nodes of the containers being written
  std::size_t leftOut_ = 0;
};

}  // namespace jx
