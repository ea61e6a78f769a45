// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXConsentGate.h"

#include <algorithm>
#include <utility>

namespace jx {
namespace {

JXSendPolicy policyOf(JXStartState state) {
  switch (state) {
    case JXStartState::Enabled:
      return JXSendPolicy::Enabled;
    case JXStartState::AlwaysEnabled:
      return JXSendPolicy::AlwaysEnabled;
    case JXStartState::Disabled:
    case JXStartState::WaitingForConsent:
      break;
  }
  return JXSendPolicy::AsksFirst;
}

JXSendFilter::Earlier earlierOf(JXStartState state) {
  using Earlier = JXSendFilter::Earlier;
  if (state == JXStartState::Disabled) return Earlier::None;
  return state == JXStartState::WaitingForConsent ? Earlier::WaitingOnly : Earlier::All;
}

// The largest number is reserved for a damaged mark.
std::uint16_t next(std::uint16_t stops) {
  return static_cast<std::uint16_t>(std::min<int>(stops + 1, JXStopMarks::kAllStops - 1));
}

}  // namespace

void JXConsentGate::started(const void* serverSide, std::uint32_t source, JXStartState state,
                            std::uint16_t mostStops) {
  const Member member{source, policyOf(state), earlierOf(state)};
  serverSides_[serverSide] = member;
  claim(member, mostStops);
}

void JXConsentGate::moved(const void* serverSide, std::uint32_t source, std::uint16_t mostStops) {
  const auto member = serverSides_.find(serverSide);
  if (member == serverSides_.end() || member->second.source == source) return;
  member->second.source = source;
  claim(member->second, mostStops);
}

void JXConsentGate::claim(const Member& member, std::uint16_t mostStops) {
  Source& source = sources_[member.source];
  // If several ServerSides of one source start differently, the strictest decides.
  source.earlier = std::max(source.earlier, member.earlier);
  source.obeysStops = source.obeysStops || member.policy != JXSendPolicy::AlwaysEnabled;
  source.stops = std::max(source.stops, mostStops);
  const std::uint16_t marked = markedStops(member.source);
  if (marked == JXStopMarks::kAllStops) {
    // Replaced by a readable mark, so that it does not apply to requests of this process.
    source.stops = next(source.stops);
    setMark(member.source, source.stops);
  } else {
    source.stops = std::max(source.stops, marked);
  }
  if (isStopped_ && stopIsRecorded_) recordStop(member.source, source);
}

void JXConsentGate::setAlwaysEnabled(const void* serverSide, bool isAlwaysEnabled) {
  const auto member = serverSides_.find(serverSide);
  if (member == serverSides_.end()) return;
  const bool was = member->second.policy == JXSendPolicy::AlwaysEnabled;
  if (was == isAlwaysEnabled) return;
  member->second.policy = isAlwaysEnabled ? JXSendPolicy::AlwaysEnabled : JXSendPolicy::Enabled;
  if (!isAlwaysEnabled) sources_[member->second.source].obeysStops = true;
}

void JXConsentGate::stop(bool isRecorded) {
  isStopped_ = true;
  stopIsRecorded_ = stopIsRecorded_ || isRecorded;
  if (!isRecorded) {
    hasManagerState_ = true;
    return;
  }
  for (const auto& [source, state] : sources_)
    recordStop(source, state);
}

void JXConsentGate::enable() {
  isStopped_ = false;
  stopIsRecorded_ = false;
  sendsUnknown_ = sendsUnknown_ || hasManagerState_;
  for (auto& [object, member] : serverSides_)
    member.earlier = Earlier::All;
  for (auto& [source, state] : sources_) {
    state.earlier = Earlier::All;
    setMark(source, 0);  // another process may have recorded a stop since the start
  }
}

void JXConsentGate::release() {
  isStopped_ = false;
  stopIsRecorded_ = false;
  sendsUnknown_ = true;
}

JXConsentGate::Origin JXConsentGate::originOf(const void* sender) const {
  Origin origin;
  const auto member = serverSides_.find(sender);
  if (member == serverSides_.end()) return origin;
  origin.stored.policy = member->second.policy;
  origin.stored.stops = sources_.at(member->second.source).stops;
  origin.awaitsDecision = member->second.earlier == Earlier::None;
  return origin;
}

std::shared_ptr<const JXSendFilter> JXConsentGate::filter() const {
  std::vector<JXSendFilter::Rule> rules;
  for (const auto& [source, state] : sources_)
    rules.push_back({source, state.earlier});
  return std::make_shared<const JXSendFilter>(isStopped_, std::move(rules), marks_, sendsUnknown_,
                                              marksAreComplete_);
}

bool JXConsentGate::isPaused() const {
  const auto obeysStops = [](const auto& each) {
    return each.second.policy != JXSendPolicy::AlwaysEnabled;
  };
  const bool anyObeysStops =
      serverSides_.empty() || std::any_of(serverSides_.begin(), serverSides_.end(), obeysStops);
  return (isStopped_ && anyObeysStops) ||
         std::any_of(serverSides_.begin(), serverSides_.end(),
                     [](const auto& each) { return each.second.earlier == Earlier::None; });
}

std::uint16_t JXConsentGate::markedStops(std::uint32_t source) const {
  for (const JXStopMark& mark : marks_) {
    if (mark.source == source) return mark.stops;
  }
  return marksAreComplete_ ? 0 : JXStopMarks::kAllStops;
}

// A source whose ServerSides are all always enabled has no stops. A stop that was recorded in this
// process already is recorded again: its file may have been deleted.
void JXConsentGate::recordStop(std::uint32_t source, const Source& state) {
  if (state.obeysStops) setMark(source, next(state.stops));
}

void JXConsentGate::setMark(std::uint32_t source, std::uint16_t stops) {
  marks_.erase(std::remove_if(marks_.begin(), marks_.end(),
                              [source](const JXStopMark& mark) { return mark.source == source; }),
               marks_.end());
  if (stops != 0) marks_.push_back({source, stops});
  changedMarks_.push_back({source, stops});
}

}  // namespace jx
