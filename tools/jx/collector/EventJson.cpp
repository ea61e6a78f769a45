// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventJson.h"

#include <openssl/evp.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <optional>

#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void write(Writer& writer, const std::string& bytes) {
  const std::string text = withReplacementCharacters(bytes);
  writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void write(Writer& writer, std::int64_t value) { writer.Int64(value); }

template <typename Value>
void write(Writer& writer, const std::optional<Value>& value) {
  if (value) {
    write(writer, *value);
  } else {
    writer.Null();
  }
}

template <typename Value>
void member(Writer& writer, const char* key, const Value& value) {
  writer.Key(key);
  write(writer, value);
}

std::string base64(const std::string& bytes) {
  std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
  const int length = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()),
                                     reinterpret_cast<const unsigned char*>(bytes.data()),
                                     static_cast<int>(bytes.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void write(Writer& writer, const StoredEvent& event) {
  const ReceivedRequest& request = event.request;
  writer.StartObject();
  member(writer, "id", event.id);
  member(writer, "received_ms", request.receivedMs);
  member(writer, "last_seen_ms", event.lastSeenMs);
  member(writer, "repeats", event.repeats);
  member(writer, "event_id", event.facts.eventID);
  member(writer, "name", event.facts.name);
  member(writer, "event_timestamp", event.facts.eventTimestamp);
  member(writer, "site", event.facts.site);
  member(writer, "token", event.facts.token);
  member(writer, "problem", event.facts.problem);
  member(writer, "method", request.method);
  member(writer, "path", request.path);
  member(writer, "query", request.query);
  writer.Key("headers");
  writer.StartArray();
  for (const auto& [name, value] : request.headers) {
    writer.StartObject();
    member(writer, "name", name);
    member(writer, "value", value);
    writer.EndObject();
  }
  writer.EndArray();
  member(writer, "body", request.body);
  if (!isUtf8(request.body)) member(writer, "body_base64", base64(request.body));
  writer.EndObject();
}

std::string textOf(const rapidjson::StringBuffer& buffer) {
  return std::string(buffer.GetString(), buffer.GetSize());
}

}  // namespace

std::string eventToJson(const StoredEvent& event) {
  rapidjson::StringBuffer buffer;
  Writer writer(buffer);
  write(writer, event);
  return textOf(buffer);
}

std::string eventsToJson(const std::vector<StoredEvent>& events, std::int64_t after) {
  rapidjson::StringBuffer buffer;
  Writer writer(buffer);
  writer.StartObject();
  writer.Key("events");
  writer.StartArray();
  for (const StoredEvent& event : events)
    write(writer, event);
  writer.EndArray();
  member(writer, "last", events.empty() ? after : events.back().id);
  writer.EndObject();
  return textOf(buffer);
}

std::string summaryToJson(const EventSummary& summary) {
  rapidjson::StringBuffer buffer;
  Writer writer(buffer);
  writer.StartObject();
  member(writer, "requests", summary.requests);
  member(writer, "events", summary.events);
  member(writer, "repeats", summary.repeats);
  member(writer, "bad", summary.bad);
  member(writer, "evicted", summary.evicted);
  member(writer, "first_ms", summary.firstMs);
  member(writer, "last_ms", summary.lastMs);
  writer.Key("by_name");
  writer.StartArray();
  for (const auto& [name, count] : summary.byName) {
    writer.StartObject();
    member(writer, "name", name);
    member(writer, "events", count);
    writer.EndObject();
  }
  writer.EndArray();
  writer.EndObject();
  return textOf(buffer);
}

std::string errorToJson(const std::string& text) {
  rapidjson::StringBuffer buffer;
  Writer writer(buffer);
  writer.StartObject();
  member(writer, "error", text);
  writer.EndObject();
  return textOf(buffer);
}

}  // namespace jx
