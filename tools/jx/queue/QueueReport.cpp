// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/queue/QueueReport.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>

#include "jx/core/json/JXJsonReader.h"
#include "tools/jx/Printable.h"
#include "tools/jx/collector/EventMetadata.h"
#include "tools/jx/collector/JsonOut.h"

namespace jx {
namespace {

constexpr std::size_t kSizeWidth = 8;
constexpr std::size_t kNameWidth = 24;

std::string counted(std::size_t count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string rightAligned(const std::string& text, std::size_t width) {
  return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string shown(const std::optional<std::string>& text) {
  return text && !text->empty() ? asOneLine(*text) : "-";
}

std::string ages(const std::vector<JXOutboxListing>& queued) {
  if (queued.empty()) return {};
  const auto [oldest, newest] = std::minmax_element(
      queued.begin(), queued.end(), [](const JXOutboxListing& one, const JXOutboxListing& other) {
        return one.createdMs < other.createdMs;
      });
  return "oldest " + asIsoTime(oldest->createdMs) + "\nnewest " + asIsoTime(newest->createdMs) +
         "\n";
}

std::string rejections(const std::vector<JXOutboxListing>& dead) {
  std::map<int, std::size_t> byStatus;
  for (const JXOutboxListing& letter : dead)
    ++byStatus[letter.status];
  std::string text;
  for (const auto& [status, count] : byStatus) {
    // A request that could not be sent has no status.
    text += (status == 0 ? std::string("not sendable")
                         : "rejected with status " + std::to_string(status)) +
            ": " + std::to_string(count) + "\n";
  }
  return text;
}

// Returns a JSON object without the line breaks and the indentation after them, which cannot be
// inside a string; nullopt if the body is not an object. Numbers keep their digits.
std::optional<std::string> asJsonLine(const std::string& body) {
  if (body.empty() || body.front() != '{' || !JXJsonReader::read(body).error.empty()) {
    return std::nullopt;
  }
  std::string line;
  bool isIndentation = false;
  for (const char c : body) {
    isIndentation = c == '\n' || c == '\r' || (isIndentation && (c == ' ' || c == '\t'));
    if (!isIndentation) line += c;
  }
  return line;
}

}  // namespace

std::string queueStatus(const std::vector<JXOutboxListing>& queued,
                        const std::vector<JXOutboxListing>& dead) {
  std::size_t bytes = 0;
  for (const JXOutboxListing& request : queued)
    bytes += request.url.size() + request.body.size();
  std::string text = counted(queued.size(), "request") + " queued, " + counted(bytes, "byte") +
                     "; " + counted(dead.size(), "dead letter") + "\n";
  return text + ages(queued) + rejections(dead);
}

std::string queuePurged(const JXOutboxPurge& purge) {
  std::string text = counted(purge.removed, "request") + " and " +
                     counted(purge.deadLetters, "dead letter") + " deleted\n";
  if (purge.marked != 0) {
    text += counted(purge.marked, "request") +
            " more in use by a running process, which deletes them before it sends anything else\n";
  }
  return text;
}

std::string queueLines(const std::vector<JXOutboxListing>& requests, bool withStatus) {
  std::string text;
  for (const JXOutboxListing& request : requests) {
    const EventMetadata event = EventMetadata::read("", request.body);
    text += asIsoTime(request.createdMs);
    if (withStatus) text += "  " + std::to_string(request.status);
    text += "  " + rightAligned(std::to_string(request.body.size()), kSizeWidth) + "  " +
            padded(shown(event.name), kNameWidth) + "  " + shown(event.eventID) + "\n";
  }
  return text;
}

std::string queueJsonLines(const std::vector<JXOutboxListing>& requests, bool withStatus) {
  std::string text;
  for (const JXOutboxListing& request : requests) {
    JsonOut line;
    line.beginObject().member("created", asIsoTime(request.createdMs));
    if (withStatus) line.member("status", std::int64_t{request.status});
    line.member("url", request.url).key("body");
    if (const std::optional<std::string> body = asJsonLine(request.body)) {
      text += line.text() + *body + "}";
    } else {
      text += line.value(request.body).endObject().text();
    }
    text += '\n';
  }
  return text;
}

}  // namespace jx
