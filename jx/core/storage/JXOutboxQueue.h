// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXOutboxBounds.h"
#include "jx/core/storage/JXOutboxDrops.h"
#include "jx/core/storage/JXOutboxFailures.h"
#include "jx/core/storage/JXOutboxHosts.h"
#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/storage/JXOutboxSegments.h"
#include "jx/core/storage/JXReadAhead.h"
#include "jx/core/storage/JXSendFilter.h"
#include "jx/core/storage/JXStorageReport.h"

namespace jx {

/// Requests that are removed together, at most as many as can be in flight. 0 is not an ID.
struct JXDeliveredRequests {
  std::array<std::uint64_t, 8> ids{};
};

/// Implements the order, limits and counters of an outbox on top of its segments. Not
/// synchronised: the outbox calls it with its lock held. Operations correspond to those of
/// JXOutbox.
class JXOutboxQueue {
 public:
  /// A permanently rejected request, to be moved to the dead letters.
  struct Rejected {
    JXOutboxRequest request;
    int status = 0;
  };

  /// `report` and `segments` must outlive this object.
  JXOutboxQueue(JXOutboxSegments& segments, JXStorageReport& report, const JXOutboxBounds& bounds,
                std::string currentEndpoint);
  ~JXOutboxQueue() { segments_.beforeRemoval = nullptr; }
  JXOutboxQueue(const JXOutboxQueue&) = delete;
  JXOutboxQueue& operator=(const JXOutboxQueue&) = delete;

  // The operations that are not noexcept throw std::bad_alloc; the queue is then consistent.

  /// Adopts the requests of processes that have ended. Call it again if it throws.
  void adopt();
  /// Nothing is written if it throws.
  std::optional<std::uint64_t> add(std::string_view url, std::string_view body,
                                   const JXRequestOrigin& origin, bool awaitsDecision,
                                   JXDeferredChanges* changes);
  /// Counts and records a request that is not added.
  std::nullopt_t rejectRequest(std::string_view body, JXDropReason reason) noexcept;
  std::optional<JXOutboxRequest> take(const JXOutboxPick& pick, const JXSendFilter& filter);
  std::vector<JXOutboxHost> hosts() const { return hosts_.sendable(); }
  std::uint16_t mostStops(std::uint32_t source);
  void requeue(std::uint64_t id);
  bool requeueFailed(std::uint64_t id, const JXRequestFailures& failures);
  JXOutboxFailures& failures() { return failures_; }
  /// Drops the requests that another process marked for purging.
  void applyPurgeMarks();
  /// Drops the requests that exceed the maximum age.
  void dropExpired();
  void markDelivered(JXDeliveredRequests& requests) noexcept;
  void clear() noexcept;

  /// Marks a request as rejected; it is no longer queued. Returns false if the ID is unknown or
  /// already rejected, and when out of memory; the request is then queued again.
  bool reject(std::uint64_t id, int status);
  /// Returns the rejected request that was rejected first, with its content; nullopt if there is
  /// none. Drops rejected requests that cannot be read.
  std::optional<Rejected> nextRejected();
  /// Acknowledges a rejected request that was moved to the dead letters.
  void acknowledgeRejected(std::uint64_t id);
  bool hasRejected() const { return !rejected_.empty(); }

  /// Restores deleted files, and writes some of the requests that are in memory only or in a file
  /// that is mostly obsolete. Returns true when the writes succeeded and more requests remain.
  bool repairSome();
  bool needsRepair() const {
    return segments_.isOpen &&
           (!memory_.empty() || segments_.hasLost() || segments_.toRetire() != nullptr);
  }

  JXOutboxCounters counters() const;
  std::uint64_t nextId() const { return index_.nextId(); }
  JXOutboxDrops& drops() { return drops_; }
  const JXOutboxDrops& drops() const { return drops_; }

 private:
  struct StoredInMemory {
    std::int64_t createdMs;
    std::string url;
    std::string body;
  };

  bool store(std::uint64_t id, std::string_view url, std::string_view body, const JXStoredTime& now,
             const JXRequestOrigin& origin, JXDeferredChanges* changes);
  bool keepInMemory(std::uint64_t id, std::string_view url, std::string_view body,
                    std::int64_t createdMs);
  void applyMarks();
  void updateOldest(std::int64_t bornMs);
  void dropOverLimits(std::int64_t nowMs);
  bool dropOldest(JXDropReason reason);
  void dropExpired(std::int64_t nowMs);
  void drop(JXOutboxEntry& entry, JXDropReason reason) noexcept;
  void count(JXDropReason reason) noexcept;
  void release(JXOutboxEntry& entry) noexcept;
  bool applyMarkOf(const JXOutboxEntry& entry);
  int read(const JXOutboxEntry& entry, JXOutboxRequest& request);
  int readRestored(const JXOutboxEntry& entry, JXOutboxRequest& request);
  void dropUnreadable(JXOutboxEntry& entry, int error);
  bool moveSomeOfObsolete();
  void reserveRejections();
  void writeFailures(const JXOutboxEntry& entry);
  bool writeSomeOfMemory();

  JXOutboxSegments& segments_;
  JXStorageReport& report_;
  const JXOutboxBounds bounds_;
  JXOutboxHosts hosts_;
  JXOutboxIndex index_{hosts_};
  JXOutboxFailures failures_;
  std::map<std::uint64_t, StoredInMemory> memory_;  ///< by ID: requests not yet in a file
  std::vector<std::uint64_t> rejected_;             ///< IDs, in the order of rejection
  std::uint64_t rejectedBytes_ = 0;
  /// Lower bound of the running times at which the requests were added.
  std::int64_t oldestMs_ = std::numeric_limits<std::int64_t>::max();
  JXOutboxCounters counters_;
  JXOutboxDrops drops_;
  JXReadAhead readAhead_;
  JXFolderWatch::Change folderChange_ = JXFolderWatch::Change::New;  ///< before the last take
  /// The segment that was checked last for a purge mark since then.
  const JXOutboxSegment* unmarked_ = nullptr;
};

}  // namespace jx
