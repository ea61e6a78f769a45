// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXOutboxBounds.h"
#include "jx/core/storage/JXDeadLetters.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXOutboxQueue.h"
#include "jx/core/storage/JXOutboxSegments.h"
#include "jx/core/storage/JXStorageReport.h"
#include "jx/platform/JXClock.h"

namespace jx {

/// A queue of HTTP requests that survives the end of the process.
///
/// A request has been written to a file when `add` returns, so it survives a killed process; `sync`
/// makes it durable across a power loss. Several processes may open one folder: each writes its own
/// files, and on start adopts the files of processes that have ended. All operations are
/// thread-safe. `add` is meant for the calling thread and costs one write; the others are meant for
/// the transfer thread. Only the constructor, `hosts`, `take` and `rememberDropped` throw,
/// std::bad_alloc and without effect; what the others cannot do without memory is done by a later
/// `sync`. Each failure is counted, and logged once per cause.
class JXOutbox {
 public:
  /// Opens the queue in `folder`, creates the folder (mode 0700) if it is missing, and adopts the
  /// requests of processes that have ended. When the folder cannot be created or read, the outbox
  /// works in memory, within `maxInMemory`. `clock` gives the age of requests.
  /// `erasures` reports when the folder is erased; null if it never is. If `mayStore` is false, the
  /// folder is neither read nor written until `beginStoring`. `currentEndpoint`, unless empty,
  /// replaces scheme, host and port of the URL of each request that is taken; the stored URL stays.
  /// If `inner` is not empty, the queue is in this folder of the storage folder `folder`.
  /// `watch` reports whether the files may have been moved; without it, each `add` compares paths.
  JXOutbox(const std::string& folder, const JXOutboxBounds& bounds,
           std::shared_ptr<const JXClock> clock, std::shared_ptr<JXErasures> erasures = nullptr,
           bool mayStore = true, std::string currentEndpoint = {},
           const std::string& inner = std::string(), std::shared_ptr<JXPathWatch> watch = nullptr);
  /// Tries to write requests kept in memory, within a few milliseconds.
  ~JXOutbox();
  JXOutbox(const JXOutbox&) = delete;
  JXOutbox& operator=(const JXOutbox&) = delete;

  /// Appends a request and drops the oldest ones beyond the limits. While writes fail, the request
  /// is kept in memory, evicting the oldest ones there. Returns its ID; nullopt when the request
  /// alone exceeds maxBytes (counted in droppedTooLarge), or when the write fails and maxInMemory
  /// is 0 (droppedNoStorage). Age is running time, not the time of day; see JXRunningTime. A
  /// request that was begun before an erase is not added (purged, nullopt); see JXErasureScope. Nor
  /// is one for which no memory is available (droppedOutOfMemory).
  std::optional<std::uint64_t> add(std::string_view url, std::string_view body) {
    return add(url, body, JXRequestOrigin(), false);
  }
  /// Same, with the origin that is stored with the request. `awaitsDecision` is true when its
  /// ServerSide has not been enabled since it started disabled.
  std::optional<std::uint64_t> add(std::string_view url, std::string_view body,
                                   const JXRequestOrigin& origin, bool awaitsDecision);
  /// Counts and records an event whose request could not be created because memory was exhausted.
  /// `body` is what there is of it.
  void dropOutOfMemory(std::string_view body) noexcept;

  /// Marks the request that `pick` chooses among those that are queued and that `filter` allows as
  /// in flight and returns it; nullopt when there is none. By default, the oldest one without a
  /// server error. A request that was queued with an invalid collection host is not returned. A
  /// request that can no longer be read is counted as a storage error and skipped. The limits do
  /// not drop a request in flight; a purge does, and acknowledging it is then ignored.
  std::optional<JXOutboxRequest> take(const JXOutboxPick& pick = {},
                                      const JXSendFilter& filter = {});
  /// Returns the hosts that requests are queued for, and some that requests were queued for.
  std::vector<JXOutboxHost> hosts() const;
  /// Returns the largest number of stops stored with a queued request of this source.
  std::uint16_t mostStops(std::uint32_t source);
  /// Returns a request in flight to the queue, at its original position, or drops it when it
  /// exceeds the limits. Ignores any other ID.
  void requeue(std::uint64_t id);
  /// Same, after a server error: the request is retried `failures.delay` later. The failures are
  /// stored, and a later process continues with them; the times are set here. Returns false if
  /// memory is exhausted: the request is then queued like one that has not failed.
  bool requeueFailed(std::uint64_t id, const JXRequestFailures& failures);
  /// Returns the time since the first server error of a request; 0 if it is not known.
  std::chrono::milliseconds failedFor(std::uint64_t id);
  /// Returns the time until the next retry of a failed request of this host; nullopt if none waits.
  std::optional<std::chrono::milliseconds> nextRetryIn(std::uint32_t host,
                                                       const JXSendFilter& filter);
  /// Shortens the delays that the server did not request to `longest`, in this process.
  void shortenRetryDelays(std::chrono::milliseconds longest);
  /// Removes a delivered request. Returns false if the ID is no longer queued, because the request
  /// was dropped in the meantime.
  bool markDelivered(std::uint64_t id);
  /// Removes delivered requests. Records them with one write for each file. Sets each ID to 0 that
  /// is no longer queued.
  void markDelivered(JXDeliveredRequests& requests);
  /// Moves a permanently rejected request to the dead letters: immediately, or in `sync` when
  /// another process is writing them or the disk is full. Returns false as markDelivered does.
  bool moveToDeadLetters(std::uint64_t id, int status);
  /// Deletes all requests, including those in flight, the dead letters and the quarantined files.
  /// Requests of other running processes stay.
  void purge();

  /// Opens the folder, adopts the requests of processes that have ended, and writes those in memory
  /// with the next `sync`. Call it once, if the outbox was created with `mayStore` false. Changes
  /// of `defaults` are then stored with the requests that make them (JXDeferredChanges), and those
  /// that a killed process stored last are applied. It may be null, and must outlive this object.
  void beginStoring(JXDefaultsFile* defaults = nullptr);
  /// Drops, as `purge` does, all requests that were added before the last erase. The other
  /// operations do the same first; `add`, `take` and `sync` also notice an erase by another
  /// process.
  void applyErasures();

  /// Makes requests appended since the last call durable and retries failed operations: writes
  /// requests kept in memory, deletes files without unacknowledged requests, and rewrites requests
  /// whose files were deleted. Drops requests that exceed maxAge; the first call also deletes dead
  /// letters and quarantined files that do. Call it on the transfer thread: it blocks on disk I/O
  /// without blocking other threads.
  void sync();
  /// Returns true when `sync` has work to do.
  bool needsSync() const;

  /// Starts recording dropped requests for `takeDropped`, at most a few thousand at a time.
  void rememberDropped();
  /// Removes and returns some of the recorded dropped requests, in the order in which they were
  /// dropped; empty when there are none.
  std::vector<JXOutboxDrop> takeDropped();
  /// Returns whether dropped requests are recorded that `takeDropped` had no memory for.
  bool hasDropped() const;

  JXOutboxCounters counters() const;
  /// Returns the ID that the next request will get.
  std::uint64_t nextId() const;

 private:
  template <typename Work>
  auto locked(Work work);
  template <typename Work>
  auto lockedWithoutExceptions(Work work) noexcept;
  void adopt();
  void checkErasures();
  void dropErased();
  void reportError(const char* action, int error);
  void moveRejectedToDeadLetters();
  void removeExpiredFiles();
  JXStoredTime storedNow();
  void reportDamagedDeadLetters();
  void syncFiles();
  void syncSegment(std::uint64_t number);

  const std::chrono::milliseconds maxAge_;
  mutable std::mutex mutex_;
  JXStorageReport report_;
  JXOutboxSegments segments_;
  JXOutboxQueue queue_;
  const std::shared_ptr<JXErasures> erasures_;
  std::uint64_t seenErasures_ = 0;  ///< the count at which the queued requests were added
  JXDeadLetters dead_;  ///< has its own lock, so that its compaction does not block callers
  bool hasUncheckedFiles_ = false;  ///< of an earlier process, which may have expired
  bool mustAdopt_ = false;          ///< the requests of processes that have ended
};

}  // namespace jx
