// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/HarReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "jx/core/json/JXUtf8.h"
#include "tools/jx/Printable.h"
#include "tools/jx/collector/Base64.h"
#include "tools/jx/collector/ImportLimits.h"
#include "tools/jx/collector/JsonMembers.h"
#include "tools/jx/collector/JsonOut.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

constexpr std::int64_t kUnknown = -1;
constexpr std::int64_t kAccepted = 200;

std::string headerOf(const ReceivedRequest& request, const char* wanted, const char* otherwise) {
  for (const auto& [name, value] : request.headers) {
    if (std::equal(name.begin(), name.end(), wanted,
                   wanted + std::char_traits<char>::length(wanted),
                   [](char a, char b) { return (a | 0x20) == (b | 0x20); })) {
      return value;
    }
  }
  return otherwise;
}

void writeQuery(JsonOut& out, std::string_view query) {
  out.key("queryString").beginArray();
  while (!query.empty()) {
    const std::size_t end = query.find('&');
    const std::string_view pair = query.substr(0, end);
    const std::size_t equals = std::min(pair.find('='), pair.size());
    out.beginObject()
        .member("name", pair.substr(0, equals))
        .member("value", pair.substr(std::min(equals + 1, pair.size())))
        .endObject();
    query = end == std::string_view::npos ? std::string_view() : query.substr(end + 1);
  }
  out.endArray();
}

void writeRequest(JsonOut& out, const ReceivedRequest& request) {
  const std::string url = "https://" + headerOf(request, "host", "localhost") + request.path +
                          (request.query.empty() ? "" : "?" + request.query);
  out.key("request").beginObject();
  out.member("method", request.method).member("url", url).member("httpVersion", "HTTP/1.1");
  out.key("cookies").beginArray().endArray().key("headers").beginArray();
  for (const auto& [name, value] : request.headers)
    out.beginObject().member("name", name).member("value", value).endObject();
  out.endArray();
  writeQuery(out, request.query);
  out.key("postData").beginObject();
  out.member("mimeType", headerOf(request, "content-type", "application/json"));
  out.member("text", request.body);
  if (!isUtf8(request.body)) out.member("_base64", toBase64(request.body));
  out.endObject()
      .member("headersSize", kUnknown)
      .member("bodySize", static_cast<std::int64_t>(request.body.size()))
      .endObject();
}

void writeResponse(JsonOut& out) {
  out.key("response").beginObject();
  out.member("status", kAccepted).member("statusText", "OK").member("httpVersion", "HTTP/1.1");
  out.key("cookies").beginArray().endArray().key("headers").beginArray().endArray();
  out.key("content").beginObject();
  out.member("size", std::int64_t{0}).member("mimeType", "").endObject();
  out.member("redirectURL", "").member("headersSize", kUnknown).member("bodySize", std::int64_t{0});
  out.endObject();
}

// Splits a URL into the path and the query.
void readUrl(std::string_view url, ReceivedRequest& request) {
  const std::size_t scheme = url.find("://");
  if (scheme != std::string_view::npos) url.remove_prefix(scheme + 3);
  const std::size_t path = std::min(url.find_first_of("/?"), url.size());
  url = url.substr(path, url.find('#', path) - path);
  const std::size_t mark = std::min(url.find('?'), url.size());
  request.path = mark == 0 ? "/" : std::string(url.substr(0, mark));
  request.query = std::string(url.substr(std::min(mark + 1, url.size())));
}

void readHeaders(const JsonTree& archive, std::uint32_t entry, ReceivedRequest& request) {
  const std::optional<std::uint32_t> headers = archive.find(entry, "headers");
  if (!headers || archive.node(*headers).kind != Kind::Array) return;
  forEachIn(archive, *headers, [&](std::uint32_t header) {
    const std::optional<std::string> name = stringMember(archive, header, "name");
    if (name)
      request.headers.emplace_back(*name, stringMember(archive, header, "value").value_or(""));
  });
}

}  // namespace

std::string harHead() {
  return "{\"log\":{\"version\":\"1.2\",\"creator\":{\"name\":\"jx "
         "collector\",\"version\":\"" JX_VERSION "\"},\"entries\":[\n";
}

std::string harEntry(const StoredEvent& event) {
  JsonOut out;
  out.beginObject()
      .member("startedDateTime", asIsoTime(event.request.receivedMs))
      .member("time", std::int64_t{0})
      .member("_last_seen_ms", event.lastSeenMs)
      .member("_repeats", event.repeats);
  writeRequest(out, event.request);
  writeResponse(out);
  out.key("cache").beginObject().endObject().key("timings").beginObject();
  out.member("send", std::int64_t{0}).member("wait", std::int64_t{0});
  out.member("receive", std::int64_t{0}).endObject().endObject();
  return out.text();
}

std::optional<std::uint32_t> harEntries(const JsonTree& archive) {
  if (archive.problem() != JsonTree::Problem::None) return std::nullopt;
  const std::optional<std::uint32_t> log = archive.find(0, "log");
  const std::optional<std::uint32_t> entries = log ? archive.find(*log, "entries") : std::nullopt;
  return entries && archive.node(*entries).kind == Kind::Array ? entries : std::nullopt;
}

Result<StoredEvent> eventFromHar(const JsonTree& archive, std::uint32_t entry) {
  const std::optional<std::uint32_t> request = archive.find(entry, "request");
  if (!request || stringMember(archive, *request, "method") != "POST") {
    return Error{"method must be POST"};
  }
  const std::optional<std::uint32_t> data = archive.find(*request, "postData");
  const std::optional<std::string> text =
      data ? stringMember(archive, *data, "text") : std::nullopt;
  if (!text) return Error{"postData.text must be a string"};
  const std::optional<std::int64_t> started =
      msOfIsoTime(stringMember(archive, entry, "startedDateTime").value_or(""));
  if (!started) return Error{"startedDateTime must be an ISO 8601 time with an offset"};
  if (*started < 0 || *started > kMaxTimeMs) {
    return Error{"startedDateTime must be a time between the years 1970 and 9999"};
  }
  StoredEvent event;
  event.request.receivedMs = event.receivedMs = *started;
  const Result<std::int64_t> seen = timeMember(archive, entry, "_last_seen_ms", *started);
  if (!seen) return seen.error();
  event.lastSeenMs = *seen;
  const Result<std::int64_t> repeats = repeatsMember(archive, entry, "_repeats");
  if (!repeats) return repeats.error();
  event.repeats = *repeats;
  event.request.method = "POST";
  readUrl(stringMember(archive, *request, "url").value_or(""), event.request);
  readHeaders(archive, *request, event.request);
  const std::optional<std::string> encoded = stringMember(archive, *data, "_base64");
  const std::optional<std::string> body = encoded ? fromBase64(*encoded) : text;
  if (!body) return Error{"_base64 is not valid Base64"};
  event.request.body = *body;
  return event;
}

std::optional<std::int64_t> msOfIsoTime(std::string_view text) {
  const std::string copy(text);
  std::tm parts{};
  double seconds = 0;
  std::array<char, 8> zone{};
  const int read =
      std::sscanf(copy.c_str(), "%4d-%2d-%2dT%2d:%2d:%lf%7s", &parts.tm_year, &parts.tm_mon,
                  &parts.tm_mday, &parts.tm_hour, &parts.tm_min, &seconds, zone.data());
  if (read != 7 || seconds < 0 || seconds >= 61) return std::nullopt;
  int hours = 0;
  int minutes = 0;
  char sign = '+';
  const bool isUtc = std::string_view(zone.data()) == "Z";
  if (!isUtc && std::sscanf(zone.data(), "%c%2d:%2d", &sign, &hours, &minutes) != 3) {
    return std::nullopt;
  }
  parts.tm_year -= 1900;
  parts.tm_mon -= 1;
  const std::int64_t offset = (sign == '-' ? -60 : 60) * (60 * hours + minutes);
  const auto fraction = static_cast<std::int64_t>(std::llround(seconds * 1000));
  return (static_cast<std::int64_t>(::timegm(&parts)) - offset) * 1000 + fraction;
}

}  // namespace jx
