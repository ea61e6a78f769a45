// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventStream.h"

#include <algorithm>
#include <map>

#include "tools/jx/collector/EventJson.h"
#include "tools/jx/collector/JsonOut.h"

namespace jx {
namespace {

using Kind = EventBroadcaster::Signal::Kind;

constexpr std::int64_t kRowsInPart = 500;

std::string entry(const char* event, const std::string& data) {
  return std::string("event: ") + event + "\ndata: " + data + "\n\n";
}

std::string repeatEntry(std::int64_t id, std::int64_t repeats) {
  return entry(
      "repeat",
      JsonOut().beginObject().member("id", id).member("repeats", repeats).endObject().text());
}

std::string resetEntry(std::int64_t last) {
  return entry("reset", JsonOut().beginObject().member("last", last).endObject().text());
}

}  // namespace

EventStream::EventStream(EventStore& store, const FaultPlan& faults,
                         std::optional<std::int64_t> after, std::chrono::milliseconds heartbeat,
                         std::chrono::milliseconds pause)
    : store_(store),
      subscription_(store.broadcaster()),
      heartbeat_(heartbeat),
      pause_(pause),
      faults_(faults.toJson()) {
  last_ = after.value_or(subscription_.take().last);
}

void EventStream::run(ConnectionStream& connection, const Write& write) {
  // Sent immediately, so that the client knows that it is connected and which fault is armed.
  if (!write(": jx collector\n\n" + entry("faults", faults_))) return;
  for (;;) {
    const std::optional<std::string> part = nextPart();
    if (!part || (!part->empty() && !write(*part))) return;
    if (!hasMore_) {
      const auto pause = part->empty() ? ConnectionStream::WakeReason::Timeout
                                       : connection.waitInterruptibly(-1, pause_);
      if (pause == ConnectionStream::WakeReason::Closed) return;
      const auto woken = connection.waitInterruptibly(subscription_.fd(), heartbeat_);
      if (woken == ConnectionStream::WakeReason::Closed) return;
      if (woken == ConnectionStream::WakeReason::Timeout && !write(":\n\n")) return;
    } else if (connection.waitInterruptibly(-1, std::chrono::milliseconds(0)) ==
               ConnectionStream::WakeReason::Closed) {
      return;
    }
  }
}

std::optional<std::string> EventStream::nextPart() {
  const EventBroadcaster::Updates updates = subscription_.take();
  if (updates.fellBehind) return std::nullopt;
  std::string part;
  std::map<std::int64_t, std::int64_t> repeats;
  for (const EventBroadcaster::Signal& signal : updates.signals) {
    if (signal.kind == Kind::Repeat) repeats[signal.id] = signal.repeats;
    if (signal.kind == Kind::Faults) part += entry("faults", signal.text);
    if (signal.kind != Kind::Reset) continue;
    // Events before the reset are gone and are not sent.
    last_ = std::max(last_, signal.id);
    repeats.clear();
    part += resetEntry(signal.id);
  }
  if (!addArrivals(updates.last, part)) return std::nullopt;
  // After the arrivals, because an event may have arrived and been repeated in the same part.
  // Repeats of an event in a later part are skipped, because its row will include them.
  for (const auto& [id, count] : repeats) {
    if (id <= last_) part += repeatEntry(id, count);
  }
  return part;
}

bool EventStream::addArrivals(std::int64_t newest, std::string& part) {
  hasMore_ = false;
  if (newest <= last_) return true;
  EventQuery query;
  query.after = last_;
  query.before = newest + 1;
  query.limit = kRowsInPart;
  const Result<std::vector<EventRow>> rows = store_.reading().rows(query);
  if (!rows) return false;
  for (const EventRow& row : *rows)
    part += "id: " + std::to_string(row.id) + "\n" + entry("arrival", rowToJson(row));
  // A part also ends early when its rows are large.
  hasMore_ = !rows->empty() && rows->back().id < newest;
  last_ = hasMore_ ? rows->back().id : newest;
  return true;
}

}  // namespace jx
