// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXOutboxBounds.h"
#include "jx/platform/JXClock.h"

namespace jx {

/// A request as it was given to the outbox.
struct JXOutboxRequest {
  std::uint64_t id = 0;  ///< names the request in this process only
  std::int64_t createdMs = 0;
  std::string url;
  std::string body;
};

/// A request that left the queue without an answer.
struct JXOutboxDrop {
  JXDropReason reason = JXDropReason::None;
  std::string body;  ///< empty when it cannot be read any more
};

/// A queue of HTTP requests that survives the end of the process.
///
/// A request is on the disk (in the kernel's hands) when `add` returns, so a killed process loses
/// none; `sync` makes it durable against a power cut. Several processes may open one folder: each
/// writes files of its own, and adopts at its start those whose process has ended. All operations
/// are thread-safe; `add` is meant for the caller's thread and costs one write, the others for the
/// transfer thread. No operation throws; what fails is counted and logged once per cause.
class JXOutbox {
 public:
  /// Opens the queue in `folder`, making the folder (mode 0700) when it is missing, and adopts what
  /// earlier processes left. When the folder cannot be made or read the outbox still works, in
  /// memory, within `maxInMemory`. `clock` is the time of day, for the age of requests.
  JXOutbox(const std::string& folder, JXOutboxBounds bounds, std::shared_ptr<const JXClock> clock);
  ~JXOutbox();
  JXOutbox(const JXOutbox&) = delete;
  JXOutbox& operator=(const JXOutbox&) = delete;

  /// Appends a request, dropping the oldest ones beyond the bounds. While the disk takes none it
  /// stays in memory, where the oldest make room for it. Returns its id; nothing when it is larger
  /// than maxBytes alone (counted in droppedTooLarge), or when the disk took none and maxInMemory
  /// is 0 (droppedNoStorage). Age is judged by the clock as it stands now: a request from before
  /// 2025, when the clock was not set yet, and one from the future have no age.
  std::optional<std::uint64_t> add(std::string_view url, std::string_view body);

  /// The oldest request that is not in flight and not among `except`; it is in flight from now on.
  /// Nothing when there is none. A request whose bytes can no longer be read is counted as a
  /// storage error and skipped. One in flight may be dropped by the bounds; settling it is then
  /// ignored.
  std::optional<JXOutboxRequest> take(const std::vector<std::uint64_t>& except = {});
  /// Gives a request in flight back; it keeps its place in the order.
  void requeue(std::uint64_t id);
  /// The request was delivered: it is removed. False, here and in the next, for an id that is no
  /// longer held: the request was dropped meanwhile.
  bool markDelivered(std::uint64_t id);
  /// The request was refused for good: it moves to the dead letters, at once or, when another
  /// process is writing them or the disk is full, in `sync`.
  bool moveToDeadLetters(std::uint64_t id, int status);
  /// Empties the queue, in flight requests and dead letters included, and deletes what damage had
  /// set aside. What another process holds stays.
  void purge();

  /// Makes durable what was appended since the last call, and does again what the disk refused:
  /// writes what had to stay in memory, deletes files whose requests are all settled, writes what
  /// a removed folder held. Transfer thread: it waits for the disk, and no other thread for it.
  void sync();
  /// True when `sync` has something to do.
  bool needsSync() const;

  /// From now on dropped requests are remembered for `takeDropped`, some thousands at most.
  void rememberDropped();
  /// A few of the requests dropped since, those first that were dropped first; nothing when all
  /// were taken. Reads the disk, and keeps no other thread waiting for that.
  std::vector<JXOutboxDrop> takeDropped();

  JXOutboxCounters counters() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

/// One request as an outbox folder tells it without being opened for sending.
struct JXOutboxListing {
  std::int64_t createdMs = 0;
  std::string url;
  std::string body;
  int status = 0;  ///< of a dead letter: the HTTP status that refused it
};

/// Reads an outbox folder without changing it, while other processes may have it open: the queued
/// requests, oldest first. `error` tells why nothing could be read.
std::vector<JXOutboxListing> listOutbox(const std::string& folder, std::string& error);
/// The same for the dead letters, oldest first.
std::vector<JXOutboxListing> listDeadLetters(const std::string& folder, std::string& error);

/// What `purgeOutbox` did.
struct JXOutboxPurge {
  std::uint64_t removed = 0;      ///< requests that are gone
  std::uint64_t marked = 0;       ///< requests that the process which holds them will forget
  std::uint64_t deadLetters = 0;  ///< that are gone
};
/// Empties an outbox folder, dead letters and what damage had set aside included, while other
/// processes may have it open. What such a process holds is marked: it forgets those requests
/// before it sends anything more, or the next process does that reads them; only a request that is
/// in flight at that moment may still arrive. Requests that are added later are not meant. `error`
/// tells what could not be done; the rest is.
JXOutboxPurge purgeOutbox(const std::string& folder, std::string& error);

}  // namespace jx
