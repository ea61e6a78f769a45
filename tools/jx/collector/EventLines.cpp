// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventLines.h"

#include "jx/core/json/JXUtf8.h"
#include "tools/jx/collector/Base64.h"
#include "tools/jx/collector/ImportLimits.h"
#include "tools/jx/collector/JsonMembers.h"
#include "tools/jx/collector/JsonOut.h"

namespace jx {
namespace {

void readHeaders(const JsonTree& tree, ReceivedRequest& request) {
  const std::optional<std::uint32_t> headers = tree.find(0, "headers");
  if (!headers || tree.node(*headers).kind != JsonNode::Kind::Array) return;
  forEachIn(tree, *headers, [&](std::uint32_t pair) {
    const bool isPair = tree.node(pair).kind == JsonNode::Kind::Array && tree.sizeOf(pair) == 2;
    if (!isPair) return;
    const JsonNode& name = tree.node(pair + 1);
    const JsonNode& value = tree.node(name.end);
    request.headers.emplace_back(std::string(name.text), std::string(value.text));
  });
}

}  // namespace

std::string eventToLine(const StoredEvent& event) {
  const ReceivedRequest& request = event.request;
  JsonOut out;
  out.beginObject()
      .member("received_ms", request.receivedMs)
      .member("last_seen_ms", event.lastSeenMs)
      .member("repeats", event.repeats)
      .member("method", request.method)
      .member("path", request.path)
      .member("query", request.query);
  out.key("headers").beginArray();
  for (const auto& [name, value] : request.headers)
    out.beginArray().value(name).value(value).endArray();
  out.endArray();
  if (isUtf8(request.body)) {
    out.member("body", request.body);
  } else {
    out.member("body_base64", toBase64(request.body));
  }
  out.endObject();
  return out.text() + "\n";
}

Result<StoredEvent> eventFromLine(std::string_view line) {
  const JsonTree tree = JsonTree::read(line);
  if (tree.problem() != JsonTree::Problem::None || !tree.isObject(0)) {
    return Error{"not a JSON object"};
  }
  StoredEvent event;
  ReceivedRequest& request = event.request;
  const std::optional<std::int64_t> received = integerMember(tree, 0, "received_ms");
  if (!received || *received < 0) return Error{"received_ms must be a non-negative integer"};
  if (*received > kMaxTimeMs) {
    return Error{"received_ms must be at most 253402300799999, which is in the year 9999"};
  }
  request.receivedMs = event.receivedMs = *received;
  const Result<std::int64_t> seen = timeMember(tree, 0, "last_seen_ms", *received);
  if (!seen) return seen.error();
  event.lastSeenMs = *seen;
  const Result<std::int64_t> repeats = repeatsMember(tree, 0, "repeats");
  if (!repeats) return repeats.error();
  event.repeats = *repeats;
  request.method = stringMember(tree, 0, "method").value_or("POST");
  request.path = stringMember(tree, 0, "path").value_or("/events");
  request.query = stringMember(tree, 0, "query").value_or("");
  readHeaders(tree, request);
  const std::optional<std::string> encoded = stringMember(tree, 0, "body_base64");
  const std::optional<std::string> body =
      encoded ? fromBase64(*encoded) : stringMember(tree, 0, "body");
  if (!body) return Error{encoded ? "body_base64 is not valid Base64" : "body must be a string"};
  request.body = *body;
  return event;
}

}  // namespace jx
