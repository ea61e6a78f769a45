// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUtils.h"

#include <limits>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/json/JXJsonTextSink.h"
#include "jx/platform/JXCharacters.h"

namespace jx {
namespace {

void setUnlessNull(JXJsonValue value, std::string_view key, JXJsonObject& dict) {
  if (value.isPresent()) dict.set(key, std::move(value));
}

}  // namespace

void JXUtils::setString_forKey_onDict(const JXString& value, std::string_view key,
                                      JXJsonObject& dict) {
  setUnlessNull(value, key, dict);
}

void JXUtils::setFloat_forKey_onDict(const std::optional<JXDecimal>& value, std::string_view key,
                                     JXJsonObject& dict) {
  if (value) setUnlessNull(*value, key, dict);
}

void JXUtils::setFloatFromString_forKey_onDict(const JXString& value, std::string_view key,
                                               JXJsonObject& dict) {
  setUnlessNull(JXJsonValue::numberFromString(value), key, dict);
}

void JXUtils::setBool_forKey_onDict(bool value, std::string_view key, JXJsonObject& dict) {
  dict.set(key, value);
}

void JXUtils::setArray_forKey_onDict(const JXJsonArray& value, std::string_view key,
                                     JXJsonObject& dict) {
  setUnlessNull(value, key, dict);
}

void JXUtils::setJson_forKey_onDict(const JXJsonObject& value, std::string_view key,
                                    JXJsonObject& dict) {
  setUnlessNull(value, key, dict);
}

std::int64_t JXUtils::numberFromNSString(const JXString& string) {
  std::string_view rest = string.view();
  while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t'))
    rest.remove_prefix(1);
  const bool negative = !rest.empty() && rest.front() == '-';
  if (negative || (!rest.empty() && rest.front() == '+')) rest.remove_prefix(1);
  // Accumulates downwards, because the negative range is larger by one.
  constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
  std::int64_t value = 0;
  for (const char c : rest) {
    if (!isDigit(c)) break;
    const std::int64_t digit = c - '0';
    value = value < (kLowest + digit) / 10 ? kLowest : value * 10 - digit;
  }
  if (negative) return value;
  return value == kLowest ? std::numeric_limits<std::int64_t>::max() : -value;
}

std::uint64_t JXUtils::unsignedFromDigits(const JXString& string) {
  std::uint64_t value = 0;
  for (const char c : string.view()) {
    if (!isDigit(c)) return 0;
    value = value * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return value;
}

JXString JXUtils::jsonDictionaryToString(const JXJsonObject& object) {
  if (!object.isPresent()) return nullptr;
  constexpr std::size_t kUsualSize = 256;
  JXJsonTextSink sink(JXJsonStyle::Compact, kUsualSize);
  sink.root(object);
  if (sink.leftOut() != 0) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "JSON string written without some values: circular reference or size limit exceeded", 3);
  }
  return sink.finish();
}

}  // namespace jx
