// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/queue/QueueText.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "tools/jx/Printable.h"
#include "tools/jx/collector/EventFacts.h"

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

}  // namespace

std::string queueStatus(const std::vector<JXOutboxListing>& queued, std::size_t dead) {
  std::size_t bytes = 0;
  for (const JXOutboxListing& request : queued)
    bytes += request.url.size() + request.body.size();
  std::string text = counted(queued.size(), "request") + " queued, " + counted(bytes, "byte") +
                     "; " + counted(dead, "dead letter") + "\n";
  if (queued.empty()) return text;
  const auto [oldest, newest] = std::minmax_element(
      queued.begin(), queued.end(), [](const JXOutboxListing& one, const JXOutboxListing& other) {
        return one.createdMs < other.createdMs;
      });
  return text + "oldest " + asIsoTime(oldest->createdMs) + "\nnewest " +
         asIsoTime(newest->createdMs) + "\n";
}

std::string queuePurged(const JXOutboxPurge& purge) {
  std::string text = counted(purge.removed, "request") + " and " +
                     counted(purge.deadLetters, "dead letter") + " deleted\n";
  if (purge.marked != 0) {
    text += counted(purge.marked, "request") +
            " more: held by a running process, which drops them before it sends anything else\n";
  }
  return text;
}

std::string queueLines(const std::vector<JXOutboxListing>& requests, bool withStatus) {
  std::string text;
  for (const JXOutboxListing& request : requests) {
    const EventFacts facts = EventFacts::read("", request.body);
    text += asIsoTime(request.createdMs);
    if (withStatus) text += "  " + std::to_string(request.status);
    text += "  " + rightAligned(std::to_string(request.body.size()), kSizeWidth) + "  " +
            padded(shown(facts.name), kNameWidth) + "  " + shown(facts.eventID) + "\n";
  }
  return text;
}

}  // namespace jx
