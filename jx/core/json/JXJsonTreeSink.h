// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/core/json/JXJsonSink.h"

namespace jx {

/// Writes entries to a JSON object and replaces values with the same keys.
class JXJsonTreeSink final : public JXJsonSink {
 public:
  /// `root` must not be null.
  explicit JXJsonTreeSink(const JXJsonObject& root);

  void text(std::string_view key, const JXString& value) override;
  void number(std::string_view key, const std::optional<JXDecimal>& value) override;
  void numberFromString(std::string_view key, const JXString& value) override;
  void flag(std::string_view key, bool value) override;
  void value(std::string_view key, const JXJsonValue& value) override;
  void beginObject(std::string_view key) override;
  void beginArray(std::string_view key) override;
  void stringElement(const JXString& value) override;
  void beginObjectElement() override;
  void endObject() override;
  void endArray() override;

 private:
  struct Level {
    JXJsonObject object;
    JXJsonArray array;
  };

  void put(std::string_view key, JXJsonValue value);

  std::vector<Level> levels_;
};

/// Writes the entries of `extras` and the entries that `writeFields` passes to its sink to `sink`.
/// A field replaces an extra entry with the same key, in its position. To detect this, the entries
/// are first collected in an object; without extras they are written directly.
template <typename Fields>
void writeOver(const JXJsonObject& extras, JXJsonSink& sink, const Fields& writeFields) {
  if (extras.size() == 0) return writeFields(sink);
  const JXJsonObject object = extras.mutableCopy();
  JXJsonTreeSink tree(object);
  writeFields(tree);
  for (const JXJsonEntry& entry : object.entries())
    sink.value(entry.key.view(), entry.value);
}

}  // namespace jx
