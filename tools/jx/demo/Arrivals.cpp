// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/Arrivals.h"

#include <httplib.h>

#include <algorithm>
#include <charconv>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "tools/jx/Printable.h"

namespace jx {
namespace {

using Kind = JXJsonValue::Kind;

std::int64_t integerOf(const JXJsonValue& value) {
  const JXString digits = value.numberString();
  const std::string_view text = digits.view();
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string shown(const JXJsonValue& value) {
  if (value.kind() == Kind::Number) return value.numberString().toStdString();
  JXJsonObject wrapped;
  wrapped.set("v", value);
  const std::string text = JXJsonWriter::write(wrapped, JXJsonStyle::Compact).text;
  constexpr std::size_t kBefore = 5;  // {"v":
  return text.substr(kBefore, text.size() - kBefore - 1);
}

// The page name first, although it is last in the body; keys common to all events are omitted.
std::string detailsOf(const JXJsonObject& body, const std::vector<std::string>& commonKeys) {
  std::string details;
  const auto add = [&details](std::string_view key, const JXJsonValue& value) {
    if (!details.empty()) details += ' ';
    details += key;
    details += '=';
    details += shown(value);
  };
  if (body.contains(JXE_PAGENAME)) add(JXE_PAGENAME, body.get(JXE_PAGENAME));
  for (const JXJsonEntry& entry : body.entries()) {
    const std::string_view key = entry.key.view();
    if (key == JXE_PAGENAME || key == JXE_EVENT || key == JXE_CONTEXT || key == JXE_USER) continue;
    if (std::find(commonKeys.begin(), commonKeys.end(), key) == commonKeys.end())
      add(key, entry.value);
  }
  return asOneLine(details);
}

Arrival arrivalOf(const JXJsonObject& event, const std::vector<std::string>& commonKeys) {
  Arrival arrival;
  const std::string text = event.get("body").string().toStdString();
  const JXJsonObject body = JXJsonReader::read(text).value.object();
  const JXJsonObject context = body.get(JXE_CONTEXT).object();
  const JXJsonObject lifecycle = context.get(JXD_DEVICE).object().get("lifecycle").object();
  arrival.timestampMs = integerOf(event.get("event_timestamp"));
  arrival.name = asOneLine(event.get("name").string().toStdString());
  arrival.eventId = asOneLine(event.get("event_id").string().toStdString());
  arrival.bytes = text.size();
  arrival.repeats = integerOf(event.get("repeats"));
  arrival.opensSession = lifecycle.get(JXL_NEW_SESSION).boolValue();
  arrival.details = detailsOf(body, commonKeys);
  return arrival;
}

}  // namespace

Result<std::vector<Arrival>> readArrivals(std::string_view json,
                                          const std::vector<std::string>& commonKeys) {
  const JXJsonReading reading = JXJsonReader::read(json);
  const JXJsonArray events = reading.value.object().get("events").array();
  if (!events.isPresent()) return Error{"the response of the collector contains no list of events"};
  std::vector<Arrival> arrivals;
  for (const JXJsonValue& event : events.values())
    arrivals.push_back(arrivalOf(event.object(), commonKeys));
  return arrivals;
}

Result<std::vector<Arrival>> fetchArrivals(int webPort,
                                           const std::vector<std::string>& commonKeys) {
  httplib::Client client("127.0.0.1", webPort);
  const httplib::Result response = client.Get("/api/events?after=0&limit=1000");
  if (!response) return Error{"cannot reach the collector: " + to_string(response.error())};
  if (response->status != 200) {
    return Error{"the collector returned HTTP status " + std::to_string(response->status)};
  }
  return readArrivals(response->body, commonKeys);
}

}  // namespace jx
