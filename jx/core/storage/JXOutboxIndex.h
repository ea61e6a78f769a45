// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "jx/core/storage/JXOutboxRecord.h"

namespace jx {

class JXOutboxSegment;
class JXSendFilter;

/// The location and state of one request; its content is in a file, or in memory while writes
/// fail.
struct JXOutboxEntry {
  enum class State : std::uint8_t {
    Queued,
    InFlight,
    Rejected,  ///< permanently; to be moved to the dead letters
    Gone
  };

  std::uint64_t id = 0;
  std::int64_t createdMs = 0;
  JXOutboxSegment* segment = nullptr;  ///< null: in memory only
  std::uint32_t offset = 0;            ///< of its frame in the segment
  std::uint32_t bytes = 0;             ///< size of URL and body
  std::uint32_t source = 0;            ///< see JXSendFilter::sourceOf
  JXRequestOrigin origin;
  std::int16_t status = 0;  ///< the HTTP status that rejected it
  State state = State::Queued;
  bool hasWaitingMarker = false;  ///< was executed while waiting for consent
  /// Left by an earlier process, or by a ServerSide that has not been enabled since it started
  /// disabled.
  bool awaitsDecision = false;
};
static_assert(sizeof(JXOutboxEntry) <= 48, "a TV keeps up to 10,000 of these in memory");

/// The requests of an outbox in order, oldest first. Not synchronised. Pointers to entries are
/// valid until the next `push` or `remove`.
class JXOutboxIndex {
 public:
  /// Appends a request and assigns its ID.
  JXOutboxEntry& push(JXOutboxEntry entry);
  /// Returns the request with this ID, or null.
  JXOutboxEntry* find(std::uint64_t id);
  /// Returns the oldest request, or null.
  JXOutboxEntry* oldest();
  /// Returns the oldest request that is neither in flight nor rejected nor in `except` and that
  /// `filter` allows, or null.
  JXOutboxEntry* nextQueued(const std::vector<std::uint64_t>& except, const JXSendFilter& filter);
  /// Call this when the state of a request changes back to Queued.
  void markQueued(std::uint64_t id);
  void remove(JXOutboxEntry& entry);

  /// Calls `visit` for each request, oldest first, until it returns false.
  template <typename Visit>
  void forEach(Visit visit) {
    for (JXOutboxEntry& entry : entries_) {
      if (entry.state != JXOutboxEntry::State::Gone && !visit(entry)) return;
    }
  }

  /// Returns the ID that the next request will get.
  std::uint64_t nextId() const { return nextId_; }
  std::size_t count() const { return count_; }
  std::uint64_t bytes() const { return bytes_; }

 private:
  std::deque<JXOutboxEntry>::iterator from(std::uint64_t id);

  std::deque<JXOutboxEntry> entries_;  ///< by ID; entries that are Gone are erased in batches
  std::uint64_t nextId_ = 1;
  std::uint64_t firstQueued_ = 1;  ///< no request with a lower ID is queued
  std::size_t count_ = 0;
  std::uint64_t bytes_ = 0;
};

}  // namespace jx
