// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonTextSink.h"

#include <algorithm>
#include <cstring>

#include "jx/core/json/JXJsonString.h"

namespace jx {
namespace {

constexpr std::size_t kIndent = 2;
// Returns true for digits that are a valid JSON number as they are.
bool isPlainInteger(std::string_view text) noexcept {
  if (text.empty() || (text.front() == '0' && text.size() != 1)) return false;
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

JXJsonTextSink::JXJsonTextSink(JXJsonStyle style, std::size_t expectedSize)
    : out_(expectedSize), isPretty_(style == JXJsonStyle::Pretty) {
  open('{');
}

JXString JXJsonTextSink::finish() {
  endObject();
  return out_.finish();
}

void JXJsonTextSink::text(std::string_view key, const JXString& value) {
  if (value.isPresent()) putString(&key, value.view());
}

void JXJsonTextSink::number(std::string_view key, const std::optional<JXDecimal>& value) {
  if (value && !value->isNaN()) putBare(&key, value->toString());
}

void JXJsonTextSink::numberFromString(std::string_view key, const JXString& value) {
  if (isPlainInteger(value.view())) {
    putBare(&key, value.view());
  } else {
    this->value(key, JXJsonValue::numberFromString(value));
  }
}

void JXJsonTextSink::flag(std::string_view key, bool value) {
  putBare(&key, value ? "true" : "false");
}

void JXJsonTextSink::value(std::string_view key, const JXJsonValue& value) {
  if (value.isPresent()) putValue(&key, value);
}

void JXJsonTextSink::beginObject(std::string_view key) { beginContainer(&key, '{'); }

void JXJsonTextSink::beginArray(std::string_view key) { beginContainer(&key, '['); }

void JXJsonTextSink::stringElement(const JXString& value) {
  if (value.isPresent()) putString(nullptr, value.view());
}

void JXJsonTextSink::beginObjectElement() { beginContainer(nullptr, '{'); }

void JXJsonTextSink::root(const JXJsonObject& object) {
  ancestors_.push_back(object.node_.get());
  entries(object);
  ancestors_.pop_back();
}

void JXJsonTextSink::entries(const JXJsonObject& object) {
  for (const JXJsonEntry& entry : object.entries()) {
    const std::string_view key = entry.key.view();
    putValue(&key, entry.value);
  }
}

void JXJsonTextSink::putValue(const std::string_view* key, const JXJsonValue& value) {
  switch (value.kind()) {
    case Kind::Absent:
    case Kind::Null:
      putBare(key, "null");
      return;
    case Kind::Bool:
      putBare(key, std::get<bool>(value.value_) ? "true" : "false");
      return;
    case Kind::Number:
      putBare(key, std::get<JXJsonValue::Number>(value.value_).digits.view());
      return;
    case Kind::String:
      putString(key, std::get<JXString>(value.value_).view());
      return;
    case Kind::Object:
      putObject(key, std::get<JXJsonObject>(value.value_));
      return;
    case Kind::Array:
      putArray(key, std::get<JXJsonArray>(value.value_));
      return;
  }
}

void JXJsonTextSink::putObject(const std::string_view* key, const JXJsonObject& object) {
  if (mustOmit(object.node_.get())) return;
  beginContainer(key, '{');
  if (skipped_ == 0) root(object);
  endObject();
}

void JXJsonTextSink::putArray(const std::string_view* key, const JXJsonArray& array) {
  if (mustOmit(array.node_.get())) return;
  beginContainer(key, '[');
  if (skipped_ == 0) {
    ancestors_.push_back(array.node_.get());
    for (const JXJsonValue& element : array.values())
      putValue(nullptr, element);
    ancestors_.pop_back();
  }
  endArray();
}

// Returns true inside an omitted container and for a circular reference.
bool JXJsonTextSink::mustOmit(const void* node) {
  if (skipped_ != 0) return true;
  if (std::find(ancestors_.begin(), ancestors_.end(), node) == ancestors_.end()) return false;
  ++leftOut_;
  return true;
}

void JXJsonTextSink::beginContainer(const std::string_view* key, char opening) {
  if (skipped_ != 0) {
    ++skipped_;
    return;
  }
  const bool isTooDeep = level_ >= JXJsonWriter::kMaxDepth;
  if (isTooDeep) ++leftOut_;
  if (isTooDeep || !begin(key, 1 + endLength(level_), nullptr)) {
    skipped_ = 1;
    return;
  }
  open(opening);
}

void JXJsonTextSink::open(char opening) {
  out_.append(opening);
  closing_ += endLength(level_);
  ++level_;
  isFirst_ = true;
}

void JXJsonTextSink::end(char closing) {
  if (skipped_ != 0) {
    --skipped_;
    return;
  }
  --level_;
  closing_ -= endLength(level_);
  if (isPretty_ && !isFirst_) putLineBreak(level_);
  out_.append(closing);
  isFirst_ = false;
}

void JXJsonTextSink::putString(const std::string_view* key, std::string_view text) {
  if (begin(key, 0, &text)) appendJsonString(text, out_);
}

void JXJsonTextSink::putBare(const std::string_view* key, std::string_view text) {
  if (begin(key, text.size(), nullptr)) out_.append(text);
}

// Writes the separator, line break and key before a value. Returns false when the value exceeds the
// size limit and must be omitted. `length` is the value's length in addition to `text`, which is
// null unless the value is a string.
bool JXJsonTextSink::begin(const std::string_view* key, std::size_t length,
                           const std::string_view* text) {
  if (skipped_ != 0) return false;
  const std::size_t around = length + (isFirst_ ? 0 : 1) + (isPretty_ ? lineLength(level_) : 0) +
                             (key == nullptr ? 0
                              : isPretty_    ? 2
                                             : 1);
  const auto lengthBy = [&](auto textLength) {
    return around + (key != nullptr ? textLength(*key) : 0) +
           (text != nullptr ? textLength(*text) : 0);
  };
  if (!fits(lengthBy(maxJsonStringLength)) && !fits(lengthBy(jsonStringLength))) {
    ++leftOut_;
    return false;
  }
  if (!isFirst_) out_.append(',');
  isFirst_ = false;
  if (isPretty_) putLineBreak(level_);
  if (key == nullptr) return true;
  appendJsonString(*key, out_);
  out_.append(':');
  if (isPretty_) out_.append(' ');
  return true;
}

bool JXJsonTextSink::fits(std::size_t length) const {
  const std::size_t taken = out_.size() + closing_;
  return taken <= JXJsonWriter::kMaxBytes && length <= JXJsonWriter::kMaxBytes - taken;
}

void JXJsonTextSink::putLineBreak(std::size_t level) {
  // A copy of constant size is one or two instructions; surplus spaces are removed afterwards.
  constexpr std::string_view kLine = "\n                               ";
  const std::size_t length = lineLength(level);
  char* const line = out_.extend(std::max(length, kLine.size()));
  std::memcpy(line, kLine.data(), kLine.size());
  if (length > kLine.size()) {
    std::memset(line + kLine.size(), ' ', length - kLine.size());
  } else {
    out_.shrink(kLine.size() - length);
  }
}

// The length of a newline and the indentation of the next line.
std::size_t JXJsonTextSink::lineLength(std::size_t level) { return 1 + kIndent * level; }

std::size_t JXJsonTextSink::endLength(std::size_t level) const {
  return 1 + (isPretty_ ? lineLength(level) : 0);
}

}  // namespace jx
