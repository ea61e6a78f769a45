// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CollectorPage.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>

#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

constexpr std::size_t kShownBodyBytes = std::size_t{16} * 1024;

std::string utcTime(std::int64_t ms) {
  const std::time_t seconds = static_cast<std::time_t>(ms / 1000);
  std::tm parts{};
  ::gmtime_r(&seconds, &parts);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y-%m-%d %H:%M:%S", &parts);
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%s.%03d UTC", date.data(), static_cast<int>(ms % 1000));
  return text.data();
}

std::string eventSection(const StoredEvent& event) {
  const std::string id = std::to_string(event.id);
  std::string html = "<h2>" + id + ": " + escapedHtml(event.facts.name.value_or("(no name)")) +
                     "</h2>\n<p>" + utcTime(event.request.receivedMs);
  if (event.repeats > 0) html += ", repeated " + std::to_string(event.repeats) + " times";
  if (event.facts.problem) html += ", " + escapedHtml(*event.facts.problem);
  html += ", <a href=\"/api/events/" + id + "\">JSON</a></p>\n<pre>" +
          escapedHtml(event.request.path + "?" + event.request.query) + "\n" +
          escapedHtml(std::string_view(event.request.body).substr(0, kShownBodyBytes));
  if (event.request.body.size() > kShownBodyBytes) html += "\n(shortened)";
  return html + "</pre>\n";
}

}  // namespace

std::string escapedHtml(std::string_view text) {
  std::string html;
  for (const char c : withReplacementCharacters(text)) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

std::string collectorPage(const EventSummary& summary, const std::vector<StoredEvent>& events) {
  std::string html =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<title>jx collector</title>\n</head>\n<body>\n<h1>jx collector</h1>\n<p>" +
      std::to_string(summary.events) + " events, " + std::to_string(summary.repeats) +
      " repeats, " + std::to_string(summary.bad) +
      " bad. <a href=\"/api/summary\">Summary</a>, <a href=\"/api/events\">events</a>, "
      "<a href=\"/ca.pem\">CA certificate</a>. Reload the page to see what is new.</p>\n";
  for (auto event = events.rbegin(); event != events.rend(); ++event)
    html += eventSection(*event);
  return html + "</body>\n</html>\n";
}

}  // namespace jx
