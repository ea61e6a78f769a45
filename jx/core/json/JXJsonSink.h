// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Receives the entries of a JSON block in output order, to build a tree that the application may
/// inspect and extend, or to write JSON text directly. A null or absent value omits its key; an
/// empty string, zero, `false` and an empty array are written. One thread at a time.
class JX_API JXJsonSink {
 public:
  virtual ~JXJsonSink() = default;

  /// @name Entries of the innermost open object
  /// @{

  /// Adds a string; omitted if null.
  virtual void text(std::string_view key, const JXString& value) = 0;
  /// Adds a number exactly, without rounding; omitted if nullopt or NaN.
  virtual void number(std::string_view key, const std::optional<JXDecimal>& value) = 0;
  /// Adds the number in a string, parsed as by `JXJsonValue::numberFromString`; omitted if null or
  /// not a number.
  virtual void numberFromString(std::string_view key, const JXString& value) = 0;
  /// Adds a boolean.
  virtual void flag(std::string_view key, bool value) = 0;
  /// Adds any JSON value, including JSON null; omitted if absent.
  virtual void value(std::string_view key, const JXJsonValue& value) = 0;
  /// Begins an object under `key`. Following calls add its entries, until its `endObject`.
  virtual void beginObject(std::string_view key) = 0;
  /// Begins an array under `key`. Following calls add its elements, until its `endArray`.
  virtual void beginArray(std::string_view key) = 0;

  /// @}
  /// @name Elements of the innermost open array
  /// @{

  /// Adds a string; omitted if null.
  virtual void stringElement(const JXString& value) = 0;
  /// Begins an object in the array. Following calls add its entries, until its `endObject`.
  virtual void beginObjectElement() = 0;
  /// @}

  /// Ends the innermost open object.
  virtual void endObject() = 0;
  /// Ends the innermost open array.
  virtual void endArray() = 0;

  /// Adds an object under `key` with the entries that `block.writeEntries` writes.
  template <typename Block>
  void block(std::string_view key, const Block& block) {
    beginObject(key);
    block.writeEntries(*this);
    endObject();
  }
};

}  // namespace jx
