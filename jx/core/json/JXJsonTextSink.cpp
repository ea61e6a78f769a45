// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonTextSink.h"

#include <algorithm>
#include <cstring>

#include "jx/core/json/JXJsonString.h"

namespace jx {
namespace {

constexpr std::size_t kIndent = 2;
// Copying it is one or two instructions; the bytes after the indentation are overwritten.
constexpr std::string_view kLine = "\n                               ";

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
  if (!value || value->isNaN()) return;
  if (value->isShort()) {
    char text[JXDecimal::kMaxShortLength];
    putBare(&key, value->writeShort(text));
  } else {
    putBare(&key, value->toString());
  }
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
  const std::size_t length = 1 + endLength(level_);
  if (const char* const place = isTooDeep ? nullptr : start(key, 1, length)) {
    out_.extendTo(place);
  } else if (isTooDeep || !begin(key, length, nullptr)) {
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
  char* to = out_.room(1 + lineRoom(level_));
  if (isPretty_ && !isFirst_) to = putLineBreak(to, level_);
  *to++ = closing;
  out_.extendTo(to);
  isFirst_ = false;
}

void JXJsonTextSink::putString(const std::string_view* key, std::string_view text) {
  if (char* const place = start(key, text.size() + 2, maxJsonStringLength(text))) {
    if (const char* const end = writePlainJsonString(text, place)) return finishValue(end);
  }
  if (begin(key, 0, &text)) appendJsonString(text, out_);
}

void JXJsonTextSink::putBare(const std::string_view* key, std::string_view text) {
  if (char* const place = start(key, text.size(), text.size())) {
    std::memcpy(place, text.data(), text.size());
    return finishValue(place + text.size());
  }
  if (begin(key, text.size(), nullptr)) out_.append(text);
}

// Writes the separator, line break and key before a value, and returns the place of the value, with
// room for `room` characters. Returns null, without a change, if the key needs an escape, or if a
// value of `maxLength` characters might exceed the size limit.
char* JXJsonTextSink::start(const std::string_view* key, std::size_t room, std::size_t maxLength) {
  constexpr std::size_t kSeparators = 3;  // comma, colon, space
  const std::size_t keyRoom = key != nullptr ? key->size() + 2 : 0;
  const std::size_t keyLength = key != nullptr ? maxJsonStringLength(*key) : 0;
  const std::size_t line = lineRoom(level_);
  if (skipped_ != 0 || !fits(kSeparators + line + keyLength + maxLength)) return nullptr;
  char* to = out_.room(kSeparators + line + keyRoom + room);
  if (!isFirst_) *to++ = ',';
  if (isPretty_) to = putLineBreak(to, level_);
  if (key == nullptr) return to;
  to = writePlainJsonString(*key, to);
  if (to == nullptr) return nullptr;
  *to++ = ':';
  if (isPretty_) *to++ = ' ';
  return to;
}

void JXJsonTextSink::finishValue(const char* end) {
  out_.extendTo(end);
  isFirst_ = false;
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
  if (isPretty_) out_.extendTo(putLineBreak(out_.room(lineRoom(level_)), level_));
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

// Writes up to `lineRoom` characters, and returns the end of the line break.
char* JXJsonTextSink::putLineBreak(char* to, std::size_t level) const {
  const std::size_t length = lineLength(level);
  std::memcpy(to, kLine.data(), kLine.size());
  if (length > kLine.size()) std::memset(to + kLine.size(), ' ', length - kLine.size());
  return to + length;
}

std::size_t JXJsonTextSink::lineRoom(std::size_t level) {
  return std::max(lineLength(level), kLine.size());
}

// The length of a newline and the indentation of the next line.
std::size_t JXJsonTextSink::lineLength(std::size_t level) { return 1 + kIndent * level; }

std::size_t JXJsonTextSink::endLength(std::size_t level) const {
  return 1 + (isPretty_ ? lineLength(level) : 0);
}

}  // namespace jx
