// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxDrops.h"
#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXOutboxSegments.h"
#include "jx/core/storage/JXStorageReport.h"

namespace jx {

/// The order, the bounds and the counters of an outbox, on its segments. Not synchronised: the
/// outbox calls it under its lock. The operations mean what those of JXOutbox mean.
class JXOutboxQueue {
 public:
  /// A request that was refused for good and is to become a dead letter.
  struct Refused {
    JXOutboxRequest request;
    int status = 0;
  };

  /// `report` and `segments` must outlive this object.
  JXOutboxQueue(JXOutboxSegments& segments, JXStorageReport& report, const JXOutboxBounds& bounds,
                std::shared_ptr<const JXClock> clock);

  /// Takes over what the segments of ended processes hold. To be called once, first.
  void adopt();
  std::optional<std::uint64_t> add(std::string_view url, std::string_view body);
  std::optional<JXOutboxRequest> take(const std::vector<std::uint64_t>& except);
  void requeue(std::uint64_t id);
  /// Forgets what another process marked for purging.
  void applyPurgeMarks();
  bool markDelivered(std::uint64_t id);
  void clear();

  /// Marks a request as refused; it is no longer queued. False when it is not held.
  bool refuse(std::uint64_t id, int status);
  /// The oldest refused request, with its bytes.
  std::optional<Refused> nextRefused();
  /// The refused request has become a dead letter.
  void settleRefused(std::uint64_t id);
  bool hasRefused() const { return !refused_.empty(); }

  /// Writes a few requests that are in memory only, or whose file was deleted, to the disk. True
  /// when there are more and the disk took these.
  bool repairSome();
  bool needsRepair() const { return !memory_.empty() || segments_.hasLost(); }

  JXOutboxCounters counters() const;
  JXOutboxDrops& drops() { return drops_; }

 private:
  struct Texts {
    std::string url;
    std::string body;
  };

  std::nullopt_t rejectRequest(std::string_view body, JXDropReason reason);
  bool keepInMemory(std::string_view url, std::string_view body);
  void noteCreated(std::int64_t createdMs);
  void dropBeyondBounds(std::int64_t nowMs);
  void dropExpired(std::int64_t nowMs);
  void drop(JXOutboxEntry& entry, JXDropReason reason);
  void count(JXDropReason reason);
  void release(JXOutboxEntry& entry);
  void finishModifiedSegments();
  int read(const JXOutboxEntry& entry, JXOutboxRequest& request) const;
  void dropUnreadable(JXOutboxEntry& entry, int error);
  bool rewriteLostRequests();
  bool writeSomeOfMemory();

  JXOutboxSegments& segments_;
  JXStorageReport& report_;
  const JXOutboxBounds bounds_;
  const std::shared_ptr<const JXClock> clock_;
  JXOutboxIndex index_;
  std::map<std::uint64_t, Texts> memory_;  ///< by id: requests that are on no disk yet
  std::vector<std::uint64_t> refused_;     ///< ids, oldest first
  std::vector<JXOutboxSegment*> touched_;  ///< had requests settled; their files do not say so yet
  std::uint64_t refusedBytes_ = 0;
  /// No request that can expire is older than this.
  std::int64_t oldestMs_ = std::numeric_limits<std::int64_t>::max();
  JXOutboxCounters counters_;
  JXOutboxDrops drops_;
};

}  // namespace jx
