// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fuzz/ReferenceJson.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "jx/core/json/JXDecimalText.h"
#include "jx/core/json/JXUtf8.h"

namespace jx::fuzz {
namespace {

using Kind = JXJsonValue::Kind;

std::int64_t exponentOf(std::string_view number) {
  const std::size_t e = number.find_first_of("eE");
  if (e == std::string_view::npos) return 0;
  constexpr long kFar = 1'000'000;
  return std::clamp(std::strtol(std::string(number.substr(e + 1)).c_str(), nullptr, 10), -kFar,
                    kFar);
}

std::size_t digitsIn(std::string_view number) {
  const std::string_view mantissa = number.substr(0, number.find_first_of("eE"));
  return static_cast<std::size_t>(
      std::count_if(mantissa.begin(), mantissa.end(), [](char c) { return c >= '0' && c <= '9'; }));
}

bool isEndless(std::string_view number) {
  const std::int64_t exponent = exponentOf(number);
  return exponent != 0 && digitsIn(number) + static_cast<std::size_t>(std::abs(exponent)) >
                              JXDecimalText::kMaxPlainDigits;
}

// Builds the values on a stack, the innermost open one last.
class Builder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Builder> {
 public:
  explicit Builder(ReferenceReading& reading) : reading_(reading) {}

  bool Null() { return put({Kind::Null, false, {}, {}}); }
  bool Bool(bool truth) { return put({Kind::Bool, truth, {}, {}}); }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
    const std::string number(text, size);
    reading_.hasEndlessNumber = reading_.hasEndlessNumber || isEndless(number);
    return put({Kind::Number, false, number, {}});
  }
  bool String(const char* text, rapidjson::SizeType size, bool) {
    return put({Kind::String, false, checked(text, size), {}});
  }
  bool StartObject() { return enter(Kind::Object); }
  bool StartArray() { return enter(Kind::Array); }
  bool Key(const char* text, rapidjson::SizeType size, bool) {
    open_.back().second = checked(text, size);
    return true;
  }
  bool EndObject(rapidjson::SizeType) { return leave(); }
  bool EndArray(rapidjson::SizeType) { return leave(); }

 private:
  std::string checked(const char* text, rapidjson::SizeType size) {
    std::string copy(text, size);
    // The input was validated, so invalid UTF-8 is the result of an escape.
    reading_.hasLoneSurrogate = reading_.hasLoneSurrogate || !isUtf8(copy);
    return copy;
  }
  bool enter(Kind kind) {
    open_.push_back({ReferenceValue{kind, false, {}, {}}, {}});
    reading_.depth = std::max(reading_.depth, open_.size());
    return true;
  }
  bool leave() {
    ReferenceValue value = std::move(open_.back().first);
    open_.pop_back();
    return put(std::move(value));
  }
  // A duplicate key replaces the value and keeps its position.
  bool put(ReferenceValue value) {
    if (open_.empty()) {
      reading_.value = std::move(value);
      return true;
    }
    ReferenceValue& container = open_.back().first;
    const std::string& key = open_.back().second;
    auto& members = container.members;
    const auto same = container.kind == Kind::Array
                          ? members.end()
                          : std::find_if(members.begin(), members.end(),
                                         [&](const auto& member) { return member.key == key; });
    if (same == members.end()) {
      members.push_back({key, std::move(value)});
    } else {
      reading_.repeatsKey = true;
      same->value = std::move(value);
    }
    return true;
  }

  ReferenceReading& reading_;
  std::vector<std::pair<ReferenceValue, std::string>> open_;  // with the key that was read last
};

bool sameMembers(const ReferenceValue& expected, const JXJsonValue& found) {
  if (expected.kind == Kind::Array) {
    const std::vector<JXJsonValue> values = found.array().values();
    return std::equal(
        expected.members.begin(), expected.members.end(), values.begin(), values.end(),
        [](const auto& member, const JXJsonValue& value) { return isSame(member.value, value); });
  }
  const std::vector<JXJsonEntry> entries = found.object().entries();
  return std::equal(expected.members.begin(), expected.members.end(), entries.begin(),
                    entries.end(), [](const auto& member, const JXJsonEntry& entry) {
                      return member.key == entry.key.view() && isSame(member.value, entry.value);
                    });
}

}  // namespace

ReferenceReading readReference(std::string_view text) {
  ReferenceReading reading;
  // RapidJSON stops at a NUL byte, so the end of the input is checked below.
  rapidjson::MemoryStream stream(text.empty() ? "" : text.data(), text.size());
  rapidjson::Reader reader;
  Builder builder(reading);
  constexpr unsigned kFlags = rapidjson::kParseIterativeFlag |
                              rapidjson::kParseNumbersAsStringsFlag |
                              rapidjson::kParseValidateEncodingFlag;
  const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, builder);
  reading.isUndecided = result.Code() == rapidjson::kParseErrorNumberTooBig;
  reading.isJson = !result.IsError() && stream.Tell() == text.size();
  return reading;
}

std::string plainDigits(std::string_view number) {
  const bool negative = !number.empty() && number.front() == '-';
  if (negative || (!number.empty() && number.front() == '+')) number.remove_prefix(1);
  const std::string_view mantissa = number.substr(0, number.find_first_of("eE"));
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  std::string whole(mantissa.substr(0, point));
  std::string fraction(mantissa.substr(std::min(point + 1, mantissa.size())));
  // Moves the point by one digit, or by a zero if there is none.
  for (std::int64_t left = exponentOf(number); left > 0; --left) {
    whole.push_back(fraction.empty() ? '0' : fraction.front());
    if (!fraction.empty()) fraction.erase(0, 1);
  }
  for (std::int64_t left = exponentOf(number); left < 0; ++left) {
    fraction.insert(0, 1, whole.empty() ? '0' : whole.back());
    if (!whole.empty()) whole.pop_back();
  }
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  if (whole.empty()) whole = "0";
  return (negative ? "-" : "") + whole + (fraction.empty() ? "" : "." + fraction);
}

bool isSame(const ReferenceValue& expected, const JXJsonValue& found) {
  if (expected.kind != found.kind()) return false;
  switch (expected.kind) {
    case Kind::Bool:
      return expected.truth == found.boolValue();
    case Kind::Number:
      return plainDigits(expected.text) == found.numberString().view();
    case Kind::String:
      return expected.text == found.string().view();
    case Kind::Object:
    case Kind::Array:
      return sameMembers(expected, found);
    case Kind::Absent:
    case Kind::Null:
      break;
  }
  return true;
}

}  // namespace jx::fuzz
