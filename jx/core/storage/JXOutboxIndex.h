// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace jx {

class JXOutboxSegment;

/// Where one request is: all that memory holds of it, unless the disk takes none.
struct JXOutboxEntry {
  enum class State : std::uint8_t {
    Queued,
    InFlight,
    Refused,  ///< for good; it waits for its place among the dead letters
    Gone
  };

  std::uint64_t id = 0;
  std::int64_t createdMs = 0;
  JXOutboxSegment* segment = nullptr;  ///< null: in memory only
  std::uint32_t offset = 0;            ///< of its frame in the segment
  std::uint32_t bytes = 0;             ///< of URL and body
  std::int16_t status = 0;             ///< that refused it
  State state = State::Queued;
};
static_assert(sizeof(JXOutboxEntry) <= 48, "10,000 of these are held in a TV's memory");

/// The requests of an outbox in their order, oldest first. Not synchronised. Pointers to entries
/// are valid until the next `push` or `remove`.
class JXOutboxIndex {
 public:
  /// Appends a request and gives it its id.
  JXOutboxEntry& push(JXOutboxEntry entry);
  /// Null when there is no such request.
  JXOutboxEntry* find(std::uint64_t id);
  /// Null when there is none.
  JXOutboxEntry* oldest();
  /// The oldest that is neither in flight nor refused nor among `except`. Null when there is none.
  JXOutboxEntry* nextQueued(const std::vector<std::uint64_t>& except);
  /// To be called when a request may be taken again.
  void noteQueued(std::uint64_t id);
  void remove(JXOutboxEntry& entry);

  /// Calls `visit` for each request, oldest first, until it returns false.
  template <typename Visit>
  void forEach(Visit visit) {
    for (JXOutboxEntry& entry : entries_) {
      if (entry.state != JXOutboxEntry::State::Gone && !visit(entry)) return;
    }
  }

  /// The id that the next request will have.
  std::uint64_t nextId() const { return nextId_; }
  std::size_t count() const { return count_; }
  std::uint64_t bytes() const { return bytes_; }

 private:
  std::deque<JXOutboxEntry>::iterator from(std::uint64_t id);

  std::deque<JXOutboxEntry> entries_;  ///< by id; those that are gone are dropped now and then
  std::uint64_t nextId_ = 1;
  std::uint64_t takeFrom_ = 1;  ///< none before this id is queued
  std::size_t count_ = 0;
  std::uint64_t bytes_ = 0;
};

}  // namespace jx
