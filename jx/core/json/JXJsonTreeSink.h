// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/core/json/JXJsonSink.h"

namespace jx {

/// Puts what it is told into a JSON object, over what stands there under the same keys.
class JXJsonTreeSink final : public JXJsonSink {
 public:
  /// `root` must be present.
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

/// Tells `sink` the entries of `extras` and, over them, what `writeFields` tells to the sink that
/// it is given. A field takes the place of an extra entry of its key, which only the whole object
/// shows; without extras nothing is built.
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
