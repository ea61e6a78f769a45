// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonTextSink.h"

#include <algorithm>
#include <cstring>

#include "jx/core/json/JXJsonString.h"

namespace jx {
namespace {

constexpr std::size_t kIndent = 2;
// Copying 32 characters is two instructions; those after the indentation are overwritten.
constexpr std::size_t kLineCopy = 32;
constexpr char kCommaAndLine[] = ",\n                               ";
static_assert(sizeof kCommaAndLine > kLineCopy + 1);

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
  const std::string_view text = value.view();
  // Digits without a leading zero are a JSON number as they are.
  const bool isShort = !text.empty() && text.size() <= kMaxCopiedDigits;
  if (isShort && (text.front() != '0' || text.size() == 1)) {
    char* const place = start(&key, text.size(), text.size());
    if (place != nullptr && copyDigits(text, place)) return finishValue(place + text.size());
  }
  this->value(key, JXJsonValue::numberFromString(value));
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
  const std::size_t length = 1 + endLength();
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
  closing_ += endLength();
  ++level_;
  if (isPretty_) line_ = 1 + kIndent * level_;
  isFirst_ = true;
}

void JXJsonTextSink::end(char closing) {
  if (skipped_ != 0) {
    --skipped_;
    return;
  }
  --level_;
  if (isPretty_) line_ = 1 + kIndent * level_;
  closing_ -= endLength();
  char* to = out_.room(1 + lineRoom());
  if (!isFirst_) to = putLine(to, false);
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
  constexpr std::size_t kSeparators = 2;  // colon, space
  const std::size_t keySize = key != nullptr ? key->size() : 0;
  const std::size_t around = kSeparators + lineRoom() + maxJsonStringLength({}) + room;
  if (skipped_ != 0 || !fits(around + kMaxEscapedLength * keySize + maxLength)) return nullptr;
  char* to = putLine(out_.room(around + keySize), !isFirst_);
  if (key == nullptr) return to;
  to = writePlainJsonString(*key, to);
  if (to == nullptr) return nullptr;
  to[0] = ':';
  to[1] = ' ';
  return to + (isPretty_ ? 2 : 1);
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
  const std::size_t around = length + (isFirst_ ? 0 : 1) + line_ +
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
  out_.extendTo(putLine(out_.room(lineRoom()), !isFirst_));
  isFirst_ = false;
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

// Writes a line break with its indentation, after a comma if there is one, in up to `lineRoom`
// characters. Returns the end.
char* JXJsonTextSink::putLine(char* to, bool hasComma) const {
  std::memcpy(to, kCommaAndLine + (hasComma ? 0 : 1), kLineCopy);
  const std::size_t length = line_ + (hasComma ? 1 : 0);
  if (length > kLineCopy) std::memset(to + kLineCopy, ' ', length - kLineCopy);
  return to + length;
}

// The room for a comma and a line.
std::size_t JXJsonTextSink::lineRoom() const { return std::max(line_ + 1, kLineCopy); }

// The length of the end of a container that is in the innermost open one.
std::size_t JXJsonTextSink::endLength() const { return 1 + line_; }

}  // namespace jx
