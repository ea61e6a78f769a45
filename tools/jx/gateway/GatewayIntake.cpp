// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayIntake.h"

#include <openssl/sha.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <array>
#include <utility>

#include "tools/jx/collector/EventMetadata.h"
#include "tools/jx/collector/JsonOut.h"
#include "tools/jx/collector/validation/ValidationResult.h"

namespace jx {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMaxEventId = 128;
// The errors become a header, and the broker limits headers.
constexpr std::size_t kMaxDiagnostics = 16;
constexpr std::size_t kMaxDiagnosticText = 160;
// The library waits at least this long, so that a broker that starts again is not flooded.
constexpr const char* kRetryAfter = "5";
constexpr const char* kRetryAfterRate = "10";

// `retryAfter` in seconds; null: the client does not send the event again.
GatewayResponse refused(int status, Refusal refusal, std::string site,
                        const char* retryAfter = nullptr) {
  GatewayResponse response;
  response.status = status;
  response.refusal = refusal;
  response.site = std::move(site);
  if (retryAfter != nullptr) response.headers = {{"Retry-After", retryAfter}};
  return response;
}

Refusal refusalOf(LogResult::Cause cause) {
  switch (cause) {
    case LogResult::Cause::Unavailable:
      return Refusal::BrokerUnavailable;
    case LogResult::Cause::Timeout:
      return Refusal::BrokerTimeout;
    case LogResult::Cause::Full:
      return Refusal::TooManyPending;
    case LogResult::Cause::TooLarge:
      return Refusal::BodyTooLarge;
    case LogResult::Cause::Refused:
      break;
  }
  return Refusal::BrokerRefused;
}

// A header contains ASCII only.
std::string toAscii(const std::string& json) {
  using namespace rapidjson;
  StringBuffer buffer;
  Writer<StringBuffer, UTF8<>, ASCII<>> writer(buffer);
  StringStream stream(json.c_str());
  Reader().Parse(stream, writer);
  return {buffer.GetString(), buffer.GetSize()};
}

std::string diagnosticsOf(const Diagnostics& diagnostics) {
  JsonOut out;
  out.beginArray();
  std::size_t count = 0;
  for (const Diagnostic& diagnostic : diagnostics.kept()) {
    if (diagnostic.level != Diagnostic::Level::Error || ++count > kMaxDiagnostics) continue;
    out.beginObject()
        .member("code", diagnostic.code)
        .member("key", diagnostic.key.substr(0, kMaxDiagnosticText))
        .member("text", diagnostic.text.substr(0, kMaxDiagnosticText))
        .endObject();
  }
  out.endArray();
  return toAscii(out.text());
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The library writes characters of a source key that have a meaning in a URL as %XX.
std::string percentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 &&
                          hexDigit(text[i + 2]) >= 0;
    decoded +=
        isEscape ? static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2])) : text[i];
    if (isEscape) i += 2;
  }
  return decoded;
}

LogEntry entryOf(EventMetadata&& metadata) {
  LogEntry entry;
  if (metadata.site) entry.site = std::to_string(*metadata.site);
  entry.name = std::move(metadata.name).value_or("");
  entry.eventId = comparableId(metadata.eventID.value_or(""));
  entry.session = std::move(metadata.session).value_or("");
  return entry;
}

}  // namespace

std::string comparableId(std::string_view eventId) {
  const auto isPrintable = [](char c) { return c > ' ' && c <= '~'; };
  if (eventId.size() <= kMaxEventId && std::all_of(eventId.begin(), eventId.end(), isPrintable)) {
    return std::string(eventId);
  }
  std::array<unsigned char, SHA256_DIGEST_LENGTH> hash{};
  SHA256(reinterpret_cast<const unsigned char*>(eventId.data()), eventId.size(), hash.data());
  std::string text = "sha256-";
  for (const unsigned char byte : hash) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
  return text;
}

GatewayIntake::GatewayIntake(EventLog& log, IntakeSettings settings, GatewayMetrics& metrics)
    : log_(log),
      settings_(std::move(settings)),
      metrics_(metrics),
      rates_(settings_.ratePerSource) {}

bool GatewayIntake::isAllowed(const EventMetadata& metadata) const {
  if (settings_.allowed.empty()) return true;
  const auto site = settings_.allowed.find(metadata.site.value_or(0));
  return metadata.site && metadata.token && site != settings_.allowed.end() &&
         (site->second.count(*metadata.token) != 0 ||
          site->second.count(percentDecoded(*metadata.token)) != 0);
}

void GatewayIntake::handle(HttpRequest request, Respond respond) {
  if (request.path != "/events") return respond(refused(404, Refusal::NotFound, ""));
  if (request.method != "POST") {
    GatewayResponse response = refused(405, Refusal::WrongMethod, "");
    response.headers = {{"Allow", "POST"}};
    return respond(std::move(response));
  }
  // The source is checked before the body is parsed, because that costs more.
  EventMetadata source = EventMetadata::read(request.query, std::string_view());
  const std::string site = source.site ? std::to_string(*source.site) : "";
  if (!isAllowed(source)) return respond(refused(403, Refusal::UnknownSource, site));
  if (!rates_.take(site, source.token.value_or(""), Clock::now())) {
    return respond(refused(429, Refusal::RateLimited, site, kRetryAfterRate));
  }
  LogEntry entry;
  if (settings_.validates) {
    ValidationResult validation = ValidationResult::of(request.query, request.body);
    entry = entryOf(std::move(validation.metadata));
    entry.isInvalid = !validation.isValid();
    if (entry.isInvalid) entry.diagnostics = diagnosticsOf(validation.diagnostics);
  } else {
    entry = entryOf(EventMetadata::read(request.query, request.body));
  }
  entry.body = std::move(request.body);
  append(entry, std::move(respond));
}

void GatewayIntake::append(const LogEntry& entry, Respond respond) {
  const auto start = Clock::now();
  log_.append(entry, [this, start, isInvalid = entry.isInvalid, site = entry.site,
                      respond = std::move(respond)](const LogResult& result) {
    const bool wasSent = result.isStored || result.cause == LogResult::Cause::Refused ||
                         result.cause == LogResult::Cause::Timeout;
    if (wasSent) metrics_.acknowledgement.add(Clock::now() - start);
    GatewayResponse response = responseTo(result, isInvalid);
    response.site = site;
    response.error = result.error;
    respond(std::move(response));
  });
}

GatewayResponse GatewayIntake::responseTo(const LogResult& result, bool isInvalid) {
  if (!result.isStored) {
    const Refusal refusal = refusalOf(result.cause);
    // The television would send it again for ever.
    if (result.cause == LogResult::Cause::TooLarge) return refused(413, refusal, "");
    return refused(503, refusal, "", kRetryAfter);
  }
  ++metrics_.accepted;
  if (result.isRepeat) ++metrics_.duplicates;
  if (isInvalid) ++metrics_.invalid;
  return {};
}

}  // namespace jx
