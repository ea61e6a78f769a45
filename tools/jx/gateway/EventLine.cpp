// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/EventLine.h"

#include <algorithm>
#include <charconv>

#include "tools/jx/collector/Base64.h"
#include "tools/jx/collector/EventMetadata.h"
#include "tools/jx/collector/JsonOut.h"
#include "tools/jx/collector/validation/JsonTree.h"
#include "tools/jx/gateway/UtcTime.h"

namespace jx {
namespace {

// The site is the second part of the subject, "_" if the request contained none.
std::optional<std::int64_t> siteOf(std::string_view subject) {
  const std::size_t dot = subject.find('.');
  if (dot == std::string_view::npos) return std::nullopt;
  const std::string_view part = subject.substr(dot + 1, subject.find('.', dot + 1) - dot - 1);
  std::int64_t site = 0;
  const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), site);
  if (error != std::errc() || end != part.data() + part.size()) return std::nullopt;
  return site;
}

std::string onOneLine(std::string_view json) {
  std::string line(json);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return line;
}

}  // namespace

EventLine eventLineOf(const StreamMessage& message) {
  const EventMetadata metadata = EventMetadata::read("", message.body);
  JsonOut out;
  out.beginObject().member("sequence", message.sequence);
  out.member("stored_at", utcTime(message.storedAtMs)).member("site", siteOf(message.subject));
  out.member("event_id", metadata.eventID).member("event_name", metadata.name);
  std::string text = out.text();
  if (message.diagnostics) {
    const bool isJson = JsonTree::read(*message.diagnostics).problem() == JsonTree::Problem::None;
    text += R"(,"diagnostics":)" + (isJson ? onOneLine(*message.diagnostics) : "null");
  }
  if (metadata.problem) {
    text += R"(,"event":null,"body_base64":")" + toBase64(message.body) + '"';
  } else {
    text += R"(,"event":)" + onOneLine(message.body);
  }
  return {metadata.eventID.value_or(""), text + "}\n"};
}

}  // namespace jx
