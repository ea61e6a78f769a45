// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Takes what a block of JSON holds, entry by entry in writing order: to build the tree that a host
/// may look at and extend, or to write the text at once. An absent value leaves its key out; an
/// empty string, a zero, `false` and an empty array are values. One thread at a time.
class JX_API JXJsonSink {
 public:
  virtual ~JXJsonSink() = default;

  /// @name Entries of the object that was begun last
  /// @{

  /// The text; an empty one is written.
  virtual void text(std::string_view key, const JXString& value) = 0;
  /// Digit for digit; not-a-number counts as absent.
  virtual void number(std::string_view key, const std::optional<JXDecimal>& value) = 0;
  /// The number that the text holds, as `JXJsonValue::numberFromString` reads it; a text that is no
  /// number counts as absent.
  virtual void numberFromString(std::string_view key, const JXString& value) = 0;
  /// The boolean.
  virtual void flag(std::string_view key, bool value) = 0;
  /// Any JSON value, JSON's null included.
  virtual void value(std::string_view key, const JXJsonValue& value) = 0;
  /// What follows are entries of an object under `key`, up to its `endObject`.
  virtual void beginObject(std::string_view key) = 0;
  /// What follows are elements of an array under `key`, up to its `endArray`.
  virtual void beginArray(std::string_view key) = 0;

  /// @}
  /// @name Elements of the array that was begun last
  /// @{

  /// The text; an absent one is left out.
  virtual void stringElement(const JXString& value) = 0;
  /// What follows are entries of an object in the array, up to its `endObject`.
  virtual void beginObjectElement() = 0;
  /// @}

  /// Ends the object that was begun last.
  virtual void endObject() = 0;
  /// Ends the array that was begun last.
  virtual void endArray() = 0;

  /// An object under `key` with the entries that `block` tells by its `writeEntries`.
  template <typename Block>
  void block(std::string_view key, const Block& block) {
    beginObject(key);
    block.writeEntries(*this);
    endObject();
  }
};

}  // namespace jx
