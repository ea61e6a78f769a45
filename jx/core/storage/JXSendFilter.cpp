// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXSendFilter.h"

#include <algorithm>
#include <utility>

#include "jx/core/storage/JXCrc32c.h"

namespace jx {
namespace {

bool isWhiteSpace(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }

}  // namespace

JXSendFilter::JXSendFilter(bool isStopped, std::vector<Rule> rules, std::vector<JXStopMark> marks,
                           bool sendsUnknown, bool marksAreComplete)
    : isStopped_(isStopped),
      sendsUnknown_(sendsUnknown),
      marksAreComplete_(marksAreComplete),
      rules_(std::move(rules)),
      marks_(std::move(marks)) {}

bool JXSendFilter::allows(const JXOutboxEntry& entry) const {
  if (entry.origin.policy == JXSendPolicy::AlwaysEnabled) return true;
  if (isStopped_) return false;
  if (!entry.awaitsDecision) return true;
  if (isMarked(entry)) return false;
  const auto rule = std::find_if(rules_.begin(), rules_.end(), [&entry](const Rule& each) {
    return each.source == entry.source;
  });
  if (rule != rules_.end()) {
    return rule->earlier == Earlier::All ||
           (rule->earlier == Earlier::WaitingOnly && entry.hasWaitingMarker);
  }
  if (!marksAreComplete_) return false;
  if (sendsUnknown_) return true;
  // No ServerSide of this process decides for the request: it is handled as its own would at its
  // start. Before this process has any ServerSide, nothing is known yet.
  if (rules_.empty()) return false;
  return entry.origin.policy == JXSendPolicy::Enabled || entry.hasWaitingMarker;
}

bool JXSendFilter::isMarked(const JXOutboxEntry& entry) const {
  return std::any_of(marks_.begin(), marks_.end(), [&entry](const JXStopMark& mark) {
    return mark.source == entry.source && entry.origin.stops < mark.stops;
  });
}

std::uint32_t JXSendFilter::sourceOf(std::string_view url) {
  const std::size_t query = url.find('?');
  if (query != std::string_view::npos) url.remove_prefix(query + 1);
  return crc32c(0, url.data(), url.size());
}

bool JXSendFilter::hasWaitingMarker(std::string_view body) {
  for (const std::string_view part : {"}", "\"waiting_for_consent\"", ":", "\"user\""}) {
    while (!body.empty() && isWhiteSpace(body.back()))
      body.remove_suffix(1);
    if (body.size() < part.size() || body.substr(body.size() - part.size()) != part) return false;
    body.remove_suffix(part.size());
  }
  return true;
}

}  // namespace jx
