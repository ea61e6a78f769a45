// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventJson.h"

#include "jx/core/json/JXUtf8.h"
#include "tools/jx/collector/Base64.h"
#include "tools/jx/collector/JsonOut.h"

namespace jx {
namespace {

void writeRowMembers(JsonOut& out, const EventRow& row) {
  out.member("id", row.id)
      .member("received_ms", row.receivedMs)
      .member("name", row.metadata.name)
      .member("class", row.className)
      .member("good", row.isValid())
      .member("errors", row.errors)
      .member("notes", row.notes)
      .member("session", row.metadata.session)
      .member("video_session", row.metadata.videoSession)
      .member("line", row.line)
      .member("event_id", row.metadata.eventID)
      .member("event_timestamp", row.metadata.eventTimestamp)
      .member("site", row.metadata.site)
      .member("repeats", row.repeats)
      .member("bytes", row.bytes);
}

void writeRequestMembers(JsonOut& out, const StoredEvent& event) {
  out.member("last_seen_ms", event.lastSeenMs)
      .member("token", event.metadata.token)
      .member("problem", event.metadata.problem)
      .member("method", event.request.method)
      .member("path", event.request.path)
      .member("query", event.request.query);
}

void writeBody(JsonOut& out, const std::string& body) {
  out.member("body", body);
  if (!isUtf8(body)) out.member("body_base64", toBase64(body));
}

void writeEvent(JsonOut& out, const StoredEvent& event) {
  out.beginObject();
  writeRowMembers(out, event);
  writeRequestMembers(out, event);
  out.key("headers").beginArray();
  for (const auto& [name, value] : event.request.headers)
    out.beginObject().member("name", name).member("value", value).endObject();
  out.endArray();
  writeBody(out, event.request.body);
  out.endObject();
}

void writeDiagnostics(JsonOut& out, const std::vector<Diagnostic>& diagnostics) {
  out.key("reasons").beginArray();
  for (const Diagnostic::Level level : {Diagnostic::Level::Error, Diagnostic::Level::Warning}) {
    for (const Diagnostic& diagnostic : diagnostics) {
      if (diagnostic.level != level) continue;
      out.beginObject()
          .member("level", level == Diagnostic::Level::Error ? "error" : "note")
          .member("code", diagnostic.code)
          .member("key", diagnostic.key)
          .member("text", diagnostic.text)
          .endObject();
    }
  }
  out.endArray();
}

template <typename Event, typename Write>
std::string listToJson(const std::vector<Event>& events, std::int64_t last, const Write& write) {
  JsonOut out;
  out.beginObject().key("events").beginArray();
  for (const Event& event : events)
    write(out, event);
  out.endArray().member("last", events.empty() ? last : events.back().id).endObject();
  return out.text();
}

}  // namespace

void writeRow(JsonOut& out, const EventRow& row) {
  out.beginObject();
  writeRowMembers(out, row);
  out.endObject();
}

std::string rowToJson(const EventRow& row) {
  JsonOut out;
  writeRow(out, row);
  return out.text();
}

std::string rowsToJson(const std::vector<EventRow>& rows, std::int64_t last) {
  return listToJson(rows, last, writeRow);
}

std::string eventsToJson(const std::vector<StoredEvent>& events, std::int64_t last) {
  return listToJson(events, last, writeEvent);
}

std::string eventToJson(const StoredEvent& event, const std::vector<Diagnostic>& diagnostics,
                        const std::optional<std::int64_t>& previous) {
  JsonOut out;
  out.beginObject();
  writeRowMembers(out, event);
  writeRequestMembers(out, event);
  out.key("headers").beginArray();
  for (const auto& [name, value] : event.request.headers)
    out.beginArray().value(name).value(value).endArray();
  out.endArray();
  writeBody(out, event.request.body);
  writeDiagnostics(out, diagnostics);
  out.member("previous", previous).endObject();
  return out.text();
}

std::string diagnosticsToJson(const std::vector<Diagnostic>& diagnostics) {
  JsonOut out;
  out.beginObject();
  writeDiagnostics(out, diagnostics);
  out.endObject();
  return out.text();
}

std::string summaryToJson(const EventSummary& summary) {
  JsonOut out;
  out.beginObject()
      .member("requests", summary.requests)
      .member("events", summary.events)
      .member("repeats", summary.repeats)
      .member("good", summary.good)
      .member("bad", summary.bad)
      .member("notes", summary.notes)
      .member("evicted", summary.evicted)
      .member("first_ms", summary.firstMs)
      .member("last_ms", summary.lastMs);
  out.key("by_name").beginArray();
  for (const EventSummary::Name& name : summary.byName) {
    // Two keys for the same count: "events" remains for compatibility.
    out.beginObject()
        .member("name", name.name)
        .member("events", name.events)
        .member("count", name.events)
        .member("bad", name.bad)
        .endObject();
  }
  out.endArray().key("minutes").beginArray();
  for (const EventSummary::Minute& minute : summary.minutes) {
    out.beginObject()
        .member("minute_ms", minute.startMs)
        .member("good", minute.good)
        .member("bad", minute.bad)
        .endObject();
  }
  out.endArray().endObject();
  return out.text();
}

std::string sessionsToJson(const std::vector<SessionSummary>& sessions) {
  JsonOut out;
  out.beginObject().key("sessions").beginArray();
  for (const SessionSummary& session : sessions) {
    out.beginObject()
        .member("session", session.id)
        .member("first_ms", session.firstMs)
        .member("last_ms", session.lastMs)
        .member("events", session.events)
        .member("bad", session.bad);
    out.key("names").beginObject();
    for (const auto& [name, count] : session.names)
      out.member(withReplacementCharacters(name), count);
    out.endObject().key("video_sessions").beginArray();
    for (const SessionSummary::Video& video : session.videos) {
      out.beginObject()
          .member("id", video.id)
          .member("first_ms", video.firstMs)
          .member("last_ms", video.lastMs)
          .member("events", video.events)
          .endObject();
    }
    out.endArray().endObject();
  }
  out.endArray().endObject();
  return out.text();
}

std::string errorToJson(const std::string& text) {
  JsonOut out;
  out.beginObject().member("error", text).endObject();
  return out.text();
}

}  // namespace jx
