// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <vector>

#include "jx/core/storage/JXOutboxHosts.h"
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
  std::int64_t bornMs = 0;             ///< running time at which it was added
  JXOutboxSegment* segment = nullptr;  ///< null: in memory only
  std::uint32_t offset = 0;            ///< of its frame in the segment
  std::uint32_t bytes = 0;             ///< size of URL and body
  std::uint32_t source = 0;            ///< see JXSendFilter::sourceOf
  JXRequestOrigin origin;
  std::int16_t status = 0;  ///< the HTTP status that rejected it
  State state = State::Queued;
  std::uint8_t host = 0;          ///< its slot in JXOutboxHosts
  bool hasFailed = false;         ///< received a server error; see JXRequestFailures
  bool hasWaitingMarker = false;  ///< was executed while waiting for consent
  /// Left by an earlier process, or by a ServerSide that has not been enabled since it started
  /// disabled.
  bool awaitsDecision = false;
};
static_assert(sizeof(JXOutboxEntry) <= 48, "a TV keeps up to 10,000 of these in memory");

/// Which request an outbox returns to be sent.
struct JXOutboxPick {
  /// All but Retry choose among the requests without a server error. Retry chooses, among those
  /// whose delay is over, the one that has waited longest.
  enum class Order : std::uint8_t { Oldest, Newest, Random, Retry };

  std::uint32_t host = 0;  ///< ID of the host; 0: any host
  Order order = Order::Oldest;
  double draw = 0;  ///< in [0, 1), for Random
  /// Requests with this or a larger ID are not chosen.
  std::uint64_t before = std::numeric_limits<std::uint64_t>::max();
  /// True immediately after another `take`, which has noticed what other processes did.
  bool isFurther = false;
};

/// The requests of an outbox in order, oldest first. Not synchronised. Pointers to entries are
/// valid until the next `push` or `remove`.
class JXOutboxIndex {
 public:
  explicit JXOutboxIndex(JXOutboxHosts& hosts) : hosts_(hosts) {}

  /// Sets which requests are not chosen yet; see JXOutboxPick::before.
  void chooseBefore(std::uint64_t id) { before_ = id; }
  /// Appends a request and assigns its ID. Throws std::bad_alloc without effect.
  JXOutboxEntry& push(JXOutboxEntry entry);
  /// Undoes the last `push`; the next request gets the same ID.
  void popNewest() noexcept;
  /// Returns the request with this ID, or null.
  JXOutboxEntry* find(std::uint64_t id);
  /// Returns the oldest request, or null.
  JXOutboxEntry* oldest();
  /// Returns the queued request without a server error that `pick` chooses among those that
  /// `filter` allows, or null.
  JXOutboxEntry* next(const JXOutboxPick& pick, const JXSendFilter& filter);
  /// Returns whether a request is queued for this host, which may be 0 for any, and allowed.
  bool maySend(const JXOutboxEntry& entry, std::uint32_t host, const JXSendFilter& filter) const;
  /// Changes the state of a request back to Queued.
  void requeue(JXOutboxEntry& entry);
  /// Records that a request received a server error.
  void markFailed(JXOutboxEntry& entry);
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
  JXOutboxEntry* oldestNew(std::uint32_t host, const JXSendFilter& filter);
  JXOutboxEntry* newestNew(std::uint32_t host, const JXSendFilter& filter);
  JXOutboxEntry* randomNew(std::uint32_t host, const JXSendFilter& filter, double draw);

  JXOutboxHosts& hosts_;
  std::deque<JXOutboxEntry> entries_;  ///< by ID; entries that are Gone are erased in batches
  std::uint64_t nextId_ = 1;
  std::uint64_t before_ = std::numeric_limits<std::uint64_t>::max();
  std::size_t count_ = 0;
  std::uint64_t bytes_ = 0;
};

}  // namespace jx
