// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonTreeSink.h"

#include <utility>

namespace jx {

JXJsonTreeSink::JXJsonTreeSink(const JXJsonObject& root) { levels_.push_back({root, nullptr}); }

void JXJsonTreeSink::put(std::string_view key, JXJsonValue value) {
  if (value.isPresent()) levels_.back().object.set(key, std::move(value));
}

void JXJsonTreeSink::text(std::string_view key, const JXString& value) { put(key, value); }

void JXJsonTreeSink::number(std::string_view key, const std::optional<JXDecimal>& value) {
  if (value) put(key, *value);
}

void JXJsonTreeSink::numberFromString(std::string_view key, const JXString& value) {
  put(key, JXJsonValue::numberFromString(value));
}

void JXJsonTreeSink::flag(std::string_view key, bool value) { put(key, value); }

void JXJsonTreeSink::value(std::string_view key, const JXJsonValue& value) { put(key, value); }

void JXJsonTreeSink::beginObject(std::string_view key) {
  const JXJsonObject object;
  put(key, object);
  levels_.push_back({object, nullptr});
}

void JXJsonTreeSink::beginArray(std::string_view key) {
  const JXJsonArray array;
  put(key, array);
  levels_.push_back({nullptr, array});
}

void JXJsonTreeSink::stringElement(const JXString& value) { levels_.back().array.append(value); }

void JXJsonTreeSink::beginObjectElement() {
  const JXJsonObject object;
  levels_.back().array.append(object);
  levels_.push_back({object, nullptr});
}

void JXJsonTreeSink::endObject() { levels_.pop_back(); }

void JXJsonTreeSink::endArray() { levels_.pop_back(); }

}  // namespace jx
