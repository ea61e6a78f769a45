// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXConversion.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "jx/core/JXLogger.h"
#include "jx/core/json/JXJsonArray.h"
#include "jx/core/json/JXJsonObject.h"
#import "jx/objc/internal/JXNumberConversion.h"
#import "jx/objc/internal/JXOwnership.h"

namespace jx::objc {
namespace {

constexpr int kMaxDepth = 1'000;
constexpr unichar kReplacement = 0xFFFD;

bool isHighSurrogate(unichar unit) { return (unit & 0xFC00) == 0xD800; }
bool isLowSurrogate(unichar unit) { return (unit & 0xFC00) == 0xDC00; }

void logWrongClass(Class expected, id object, const char* place) {
  JXLogger::sharedInstance().logMessage_withLevel(
      std::string(place) + ": " + [NSStringFromClass([object class]) UTF8String] + " instead of " +
          [NSStringFromClass(expected) UTF8String] + "; ignored",
      3);
}

void appendCharacter(std::uint32_t code, std::string& bytes) {
  const auto byte = [&bytes](std::uint32_t value) { bytes += static_cast<char>(value); };
  if (code < 0x80) {
    byte(code);
  } else if (code < 0x800) {
    byte(0xC0 | code >> 6);
    byte(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    byte(0xE0 | code >> 12);
    byte(0x80 | (code >> 6 & 0x3F));
    byte(0x80 | (code & 0x3F));
  } else {
    byte(0xF0 | code >> 18);
    byte(0x80 | (code >> 12 & 0x3F));
    byte(0x80 | (code >> 6 & 0x3F));
    byte(0x80 | (code & 0x3F));
  }
}

std::string bytesOf(const std::vector<unichar>& units) {
  std::string bytes;
  bytes.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const bool isPair =
        isHighSurrogate(units[i]) && i + 1 < units.size() && isLowSurrogate(units[i + 1]);
    if (!isPair) {
      appendCharacter(units[i], bytes);
    } else {
      const std::uint32_t high = units[i] & 0x3FFu;
      appendCharacter(0x10000 + (high << 10 | (units[++i] & 0x3FFu)), bytes);
    }
  }
  return bytes;
}

// Returns the number of bytes of the character that begins here, 0 if none does.
std::size_t lengthAt(std::string_view bytes) {
  const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char first = at(0);
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  if (length == 0 || length > bytes.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0) != 0x80) return 0;
  }
  const bool isOverlong = (first == 0xE0 && at(1) < 0xA0) || (first == 0xF0 && at(1) < 0x90);
  return isOverlong || (first == 0xF4 && at(1) > 0x8F) ? 0 : length;
}

std::vector<unichar> unitsOf(std::string_view bytes) {
  std::vector<unichar> units;
  units.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t length = lengthAt(bytes);
    std::uint32_t code = static_cast<unsigned char>(bytes[0]);
    if (length > 1) code &= 0x7Fu >> length;
    for (std::size_t i = 1; i < length; ++i)
      code = code << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3Fu);
    bytes.remove_prefix(length == 0 ? 1 : length);
    if (length == 0) code = kReplacement;
    if (code >= 0x10000) units.push_back(static_cast<unichar>(0xD800 + ((code - 0x10000) >> 10)));
    if (code >= 0x10000) code = 0xDC00 + (code & 0x3FF);
    units.push_back(static_cast<unichar>(code));
  }
  return units;
}

class JsonReader {
 public:
  explicit JsonReader(const char* place) : place_(place) {}

  JXJsonValue value(id object) {
    if (object == nil) return {};
    if ([object isKindOfClass:[NSString class]]) return toString(object, place_);
    if ([object isKindOfClass:[NSNumber class]]) {
      NSNumber* const number = object;
      return isBoolean(number) ? JXJsonValue([number boolValue] != NO)
                               : JXJsonValue(decimalOf(number));
    }
    if ([object isKindOfClass:[NSNull class]]) return JXJsonValue::null();
    if ([object isKindOfClass:[NSArray class]]) {
      return nested(object, [&] { return array(object); });
    }
    if ([object isKindOfClass:[NSDictionary class]]) {
      return nested(object, [&] { return this->object(object); });
    }
    logWrongClass([NSDictionary class], object, place_);
    return {};
  }

  JXJsonObject object(NSDictionary* dictionary) {
    JXJsonObject result;
    for (id key in dictionary) {
      if (!isOf([NSString class], key, place_)) continue;
      result.set(toString(key, place_).view(), value([dictionary objectForKey:key]));
    }
    return result;
  }

  JXJsonArray array(NSArray* elements) {
    JXJsonArray result;
    for (id element in elements)
      result.append(value(element));
    return result;
  }

 private:
  template <typename Read>
  JXJsonValue nested(id object, const Read& read) {
    const void* const pointer = (__bridge void*)object;
    const bool containsItself = std::find(path_.begin(), path_.end(), pointer) != path_.end();
    if (containsItself || path_.size() == kMaxDepth) {
      const char* const reason =
          containsItself ? ": contains itself" : ": nested more deeply than 1,000 levels";
      JXLogger::sharedInstance().logMessage_withLevel(std::string(place_) + reason + "; ignored",
                                                      3);
      return {};
    }
    path_.push_back(pointer);
    JXJsonValue result = read();
    path_.pop_back();
    return result;
  }

  const char* const place_;
  std::vector<const void*> path_;  // the arrays and dictionaries being read
};

}  // namespace

bool isOf(Class type, id object, const char* place) {
  if ([object isKindOfClass:type]) return true;
  if (object != nil) logWrongClass(type, object, place);
  return false;
}

bool isNilOr(Class type, id object, const char* place) {
  return object == nil || isOf(type, object, place);
}

std::string reasonOf(id thrown) {
  const id reason = [thrown isKindOfClass:[NSException class]] ? [thrown reason] : thrown;
  if (reason == nil) return "no reason";
  return toString([reason description], "NSException").toStdString();
}

JXString toString(id object, const char* place) {
  if (!isOf([NSString class], object, place)) return nullptr;
  NSString* const string = object;
  std::vector<unichar> units([string length]);
  if (!units.empty()) [string getCharacters:units.data() range:NSMakeRange(0, units.size())];
  return JXString(bytesOf(units));
}

NSString* toFoundation(const JXString& string) {
  if (!string.isPresent()) return nil;
  const std::vector<unichar> units = unitsOf(string.view());
  NSString* const result = [[NSString alloc] initWithCharacters:units.data() length:units.size()];
  if (result != nil) return JX_AUTORELEASE(result);
  // GNUstep rejects an unpaired surrogate here, but not in a mutable string.
  NSMutableString* const composed = [NSMutableString stringWithCapacity:units.size()];
  for (const unichar unit : units)
    [composed appendFormat:@"%C", unit];
  return composed;
}

JXJsonValue toJson(id object, const char* place) { return JsonReader(place).value(object); }

JXJsonObject toJsonObject(id object, const char* place) {
  if (!isOf([NSDictionary class], object, place)) return nullptr;
  return JsonReader(place).value(object).object();
}

JXJsonArray toJsonArray(id object, const char* place) {
  if (!isOf([NSArray class], object, place)) return nullptr;
  return JsonReader(place).value(object).array();
}

id toFoundation(const JXJsonValue& value) {
  switch (value.kind()) {
    case JXJsonValue::Kind::Absent:
      return nil;
    case JXJsonValue::Kind::Null:
      return [NSNull null];
    case JXJsonValue::Kind::Bool:
      return [NSNumber numberWithBool:value.boolValue() ? YES : NO];
    case JXJsonValue::Kind::Number:
      return numberOf(value);
    case JXJsonValue::Kind::String:
      return toFoundation(value.string());
    case JXJsonValue::Kind::Object:
      return toFoundation(value.object());
    case JXJsonValue::Kind::Array:
      return toFoundation(value.array());
  }
  return nil;
}

NSMutableDictionary* toFoundation(const JXJsonObject& object) {
  if (!object.isPresent()) return nil;
  NSMutableDictionary* const result = [NSMutableDictionary dictionaryWithCapacity:object.size()];
  for (const JXJsonEntry& entry : object.entries())
    [result setObject:toFoundation(entry.value) forKey:toFoundation(entry.key)];
  return result;
}

NSMutableArray* toFoundation(const JXJsonArray& array) {
  if (!array.isPresent()) return nil;
  NSMutableArray* const result = [NSMutableArray arrayWithCapacity:array.size()];
  for (const JXJsonValue& value : array.values())
    [result addObject:toFoundation(value)];
  return result;
}

}  // namespace jx::objc
