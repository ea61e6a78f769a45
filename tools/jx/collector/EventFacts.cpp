// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventFacts.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <charconv>
#include <limits>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

// Picks the known fields out of the stream of JSON tokens. Only keys of the outermost object and
// of its "context" object count.
class FactReader : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, FactReader> {
 public:
  explicit FactReader(EventFacts& facts) : facts_(facts) {}

  bool sawObject() const { return sawObject_; }

  bool Default() { return leaveField(); }
  bool StartObject() {
    if (depth_ == 0) sawObject_ = true;
    if (depth_ == 1 && field_ == Field::context) contextDepth_ = 2;
    return enter();
  }
  bool EndObject(rapidjson::SizeType) { return leave(); }
  bool StartArray() { return enter(); }
  bool EndArray(rapidjson::SizeType) { return leave(); }

  bool Key(const char* text, rapidjson::SizeType size, bool) {
    const std::string_view key(text, size);
    field_ = Field::other;
    if (depth_ == 1 && sawObject_) {
      if (key == "event_name") field_ = Field::name;
      if (key == "context") field_ = Field::context;
    } else if (depth_ == contextDepth_) {
      if (key == "event_id") field_ = Field::eventID;
      if (key == "event_timestamp") field_ = Field::eventTimestamp;
    }
    return true;
  }
  bool String(const char* text, rapidjson::SizeType size, bool) {
    if (field_ == Field::name) facts_.name = std::string(text, size);
    if (field_ == Field::eventID) facts_.eventID = std::string(text, size);
    return leaveField();
  }
  bool Int(int value) { return integer(value); }
  bool Uint(unsigned value) { return integer(value); }
  bool Int64(std::int64_t value) { return integer(value); }
  bool Uint64(std::uint64_t value) {
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
      return leaveField();
    }
    return integer(static_cast<std::int64_t>(value));
  }

 private:
  enum class Field { other, name, context, eventID, eventTimestamp };

  bool integer(std::int64_t value) {
    if (field_ == Field::eventTimestamp) facts_.eventTimestamp = value;
    return leaveField();
  }
  bool leaveField() {
    field_ = Field::other;
    return true;
  }
  bool enter() {
    ++depth_;
    leaveField();
    return depth_ <= kMaxDepth;
  }
  bool leave() {
    if (depth_ == contextDepth_) contextDepth_ = kNowhere;
    --depth_;
    return leaveField();
  }

  // Far beyond any event; it bounds what a body of brackets alone takes in memory.
  static constexpr std::size_t kMaxDepth = 1000;
  static constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

  EventFacts& facts_;
  Field field_ = Field::other;
  std::size_t depth_ = 0;
  std::size_t contextDepth_ = kNowhere;
  bool sawObject_ = false;
};

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::string> textOf(const JXJsonValue& value) {
  if (value.kind() != JXJsonValue::Kind::String) return std::nullopt;
  return value.string().toStdString();
}

// With the reader of the library, which writes numbers digit for digit, however large.
std::optional<std::string> problemOfLargeNumbers(std::string_view body, EventFacts& facts) {
  const JXJsonReading reading = JXJsonReader::read(body);
  if (!reading.value.isPresent()) return "not JSON";
  const JXJsonObject object = reading.value.object();
  if (!object.isPresent()) return "not a JSON object";
  const JXJsonObject context = object.get("context").object();
  facts.name = textOf(object.get("event_name"));
  facts.eventID = textOf(context.get("event_id"));
  facts.eventTimestamp = wholeNumber(context.get("event_timestamp").numberText().view());
  return std::nullopt;
}

std::optional<std::string> problemOf(std::string_view body, EventFacts& facts) {
  if (!isUtf8(body)) return "not UTF-8";
  rapidjson::MemoryStream stream(body.data() ? body.data() : "", body.size());
  rapidjson::Reader reader;
  FactReader handler(facts);
  // Iterative, so that a body of brackets alone cannot exhaust the stack.
  constexpr unsigned kFlags = rapidjson::kParseIterativeFlag;
  const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, handler);
  if (result.Code() == rapidjson::kParseErrorTermination) return "nested too deep";
  if (result.Code() == rapidjson::kParseErrorNumberTooBig) {
    return problemOfLargeNumbers(body, facts);
  }
  // The parser takes a NUL byte for the end of the text.
  if (result.IsError() || stream.Tell() != body.size()) return "not JSON";
  if (!handler.sawObject()) return "not a JSON object";
  return std::nullopt;
}

std::optional<std::string_view> parameter(std::string_view query, std::string_view name) {
  while (!query.empty()) {
    const std::size_t end = query.find('&');
    const std::string_view pair = query.substr(0, end);
    const std::size_t equals = pair.find('=');
    if (equals != std::string_view::npos && pair.substr(0, equals) == name) {
      return pair.substr(equals + 1);
    }
    query = end == std::string_view::npos ? std::string_view() : query.substr(end + 1);
  }
  return std::nullopt;
}

}  // namespace

EventFacts EventFacts::read(std::string_view query, std::string_view body) {
  EventFacts facts;
  const std::optional<std::string> problem = problemOf(body, facts);
  // A body that breaks off has no facts: what was read of it so far may be half of the truth.
  if (problem) facts = EventFacts();
  facts.problem = problem;
  if (const auto site = parameter(query, "jx_s")) facts.site = wholeNumber(*site);
  if (const auto token = parameter(query, "token")) facts.token = std::string(*token);
  return facts;
}

}  // namespace jx
