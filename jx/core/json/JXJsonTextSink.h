// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

#include "jx/core/json/JXJsonSink.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/platform/JXStringBuilder.h"

namespace jx {

/// Writes the text of one JSON object while it is told what the object holds. Nothing is looked
/// up: a key that is told twice stands there twice. What `JXJsonWriter` promises of its text holds.
class JXJsonTextSink final : public JXJsonSink {
 public:
  /// `expectedSize` saves the growing of the text where it is known.
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

  /// Writes every entry of an object that is told otherwise in part.
  void entries(const JXJsonObject& object);
  /// Writes every entry of the object that the text is of: what contains it is endless.
  void root(const JXJsonObject& object);

  /// Values that had to stay out so far.
  std::size_t leftOut() const { return leftOut_; }
  /// The text, after which the sink is of no use any more.
  JXString finish();

 private:
  using Kind = JXJsonValue::Kind;

  // `key` is null of an array's element.
  void putValue(const std::string_view* key, const JXJsonValue& value);
  void putObject(const std::string_view* key, const JXJsonObject& object);
  void putArray(const std::string_view* key, const JXJsonArray& array);
  void putString(const std::string_view* key, std::string_view text);
  void putBare(const std::string_view* key, std::string_view text);
  bool begin(const std::string_view* key, std::size_t length, const std::string_view* text);
  bool fits(std::size_t length) const;
  void beginContainer(const std::string_view* key, char opening);
  void open(char opening);
  void end(char closing);
  bool leavesOut(const void* node);
  void putLine(std::size_t level);
  static std::size_t lineLength(std::size_t level);
  std::size_t endLength(std::size_t level) const;

  JXStringBuilder out_;
  const bool isPretty_;
  std::size_t level_ = 0;
  bool isFirst_ = true;              ///< nothing was written yet into what was begun last
  std::size_t skipped_ = 0;          ///< levels of a container that had to stay out
  std::size_t closing_ = 0;          ///< what the ends of the containers will take
  std::vector<const void*> inside_;  ///< nodes of the trees that are being written
  std::size_t leftOut_ = 0;
};

}  // namespace jx
