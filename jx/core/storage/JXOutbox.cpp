// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutbox.h"

#include <cerrno>
#include <mutex>
#include <utility>

#include "jx/core/storage/JXDeadLetters.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutboxQueue.h"
#include "jx/core/storage/JXOutboxSegments.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/core/storage/JXStorageReport.h"

namespace jx {
namespace {

// Each step of the queue's repair writes a few dozen requests.
constexpr int kMaxRepairStepsAtClose = 32;
constexpr std::size_t kDropsPerCall = 32;

// No exception leaves the outbox. Only an allocation failure can throw; the operation then has no
// effect.
template <typename Work>
auto withoutExceptions(Work work) noexcept -> decltype(work()) {
  try {
    return work();
  } catch (...) {
    return decltype(work())();
  }
}

}  // namespace

class JXOutbox::Implementation {
  struct AfterUnlock {
    Implementation& owner;
    std::unique_lock<std::mutex>& lock;
    ~AfterUnlock() {
      const auto messages = owner.report_.takeMessages();
      lock.unlock();
      JXStorageReport::log(messages);
    }
  };

 public:
  /// Runs `work` with the lock held and logs after releasing it, because the log sink may call
  /// back.
  template <typename Work>
  auto locked(Work work) {
    std::unique_lock<std::mutex> lock(mutex_);
    const AfterUnlock logging{*this, lock};
    return work(queue_);
  }

  Implementation(const std::string& folder, const JXOutboxBounds& bounds,
                 std::shared_ptr<const JXClock> clock)
      : report_("outbox " + folder, folderOf(folder)),
        segments_(folder, report_),
        queue_(segments_, report_, bounds, std::move(clock)),
        dead_(folder, bounds.maxDeadLetters) {
    withoutExceptions([&] { locked([](JXOutboxQueue& queue) { queue.adopt(); }); });
  }

  /// Tries to write requests kept in memory, within a few milliseconds.
  ~Implementation() {
    withoutExceptions([&] {
      locked([this](JXOutboxQueue& queue) {
        segments_.detectDeletedSegments();
        for (int step = 0; step < kMaxRepairStepsAtClose && queue.repairSome(); ++step) {
        }
      });
    });
  }

  std::vector<JXOutboxDrop> takeDropped() {
    std::vector<JXOutboxDrop> dropped;
    for (JXOutboxDrops::Drop& drop :
         locked([](JXOutboxQueue& queue) { return queue.drops().take(kDropsPerCall); })) {
      const JXDropReason reason = drop.reason;
      dropped.push_back({reason, bodyOf(std::move(drop))});
    }
    return dropped;
  }

  JXOutboxCounters counters() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return queue_.counters();
  }

  bool needsSync() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return segments_.needsSync() || queue_.needsRepair() || queue_.hasRejected() ||
           dead_.needsSync();
  }

  void purge() {
    locked([](JXOutboxQueue& queue) { queue.clear(); });
    reportError("delete the dead letters", dead_.clear());
    reportError("delete the quarantined files", removeQuarantinedFiles(segments_.folder()));
  }

  void sync() {
    locked([this](JXOutboxQueue& queue) {
      queue.applyPurgeMarks();
      segments_.detectDeletedSegments();
      segments_.retry();
    });
    // Releases the lock between steps, so that a calling thread never waits for the whole repair.
    while (locked([](JXOutboxQueue& queue) { return queue.repairSome(); })) {
    }
    moveRejectedToDeadLetters();
    syncFiles();
  }

  /// Moves rejected requests to the dead letters. Writes the dead letter before the
  /// acknowledgement: after a kill in between, the request is sent again instead of being lost.
  void moveRejectedToDeadLetters() {
    while (const std::optional<JXOutboxQueue::Rejected> rejected =
               locked([](JXOutboxQueue& queue) { return queue.nextRejected(); })) {
      const int error = dead_.append(rejected->request, rejected->status);
      if (dead_.takeDamaged()) {
        locked([this](JXOutboxQueue&) { report_.damaged(dead_.path()); });
      }
      if (error != 0) {
        // With EWOULDBLOCK another process is writing the file; `sync` retries.
        if (error != EWOULDBLOCK) reportError("store a dead letter", error);
        return;
      }
      locked([&](JXOutboxQueue& queue) { queue.acknowledgeRejected(rejected->request.id); });
    }
  }

 private:
  void reportError(const char* action, int error) {
    if (error != 0) locked([&](JXOutboxQueue&) { report_.failed(action, error); });
  }

  // Blocks on disk I/O without the lock.
  void syncFiles() {
    bool folderDirty = false;
    const std::vector<std::shared_ptr<JXOutboxSegment>> dirty = locked([&](JXOutboxQueue&) {
      folderDirty = segments_.consumeFolderDirtyFlag();
      return segments_.takeDirty();
    });
    for (const auto& segment : dirty) {
      const int error = segment->sync();
      if (error == 0) continue;
      locked([&](JXOutboxQueue&) {
        segment->dirty = true;
        report_.failed("sync a segment", error);
      });
    }
    const int folderError = folderDirty ? synchronizeFolder(segments_.folder()) : 0;
    if (folderError != 0) {
      locked([&](JXOutboxQueue&) {
        segments_.setFolderDirty();
        report_.failed("sync the folder", folderError);
      });
    }
    reportError("sync the dead letters", dead_.sync());
  }

  mutable std::mutex mutex_;
  JXStorageReport report_;
  JXOutboxSegments segments_;
  JXOutboxQueue queue_;
  JXDeadLetters dead_;  ///< has its own lock, so that its compaction does not block callers
};

JXOutbox::JXOutbox(const std::string& folder, JXOutboxBounds bounds,
                   std::shared_ptr<const JXClock> clock)
    : implementation_(std::make_unique<Implementation>(folder, bounds, std::move(clock))) {}

JXOutbox::~JXOutbox() = default;

std::optional<std::uint64_t> JXOutbox::add(std::string_view url, std::string_view body) {
  return withoutExceptions([&] {
    return implementation_->locked([&](JXOutboxQueue& queue) { return queue.add(url, body); });
  });
}

std::optional<JXOutboxRequest> JXOutbox::take(const std::vector<std::uint64_t>& except) {
  return withoutExceptions([&] {
    return implementation_->locked([&](JXOutboxQueue& queue) { return queue.take(except); });
  });
}

void JXOutbox::requeue(std::uint64_t id) {
  withoutExceptions(
      [&] { implementation_->locked([&](JXOutboxQueue& queue) { queue.requeue(id); }); });
}

bool JXOutbox::markDelivered(std::uint64_t id) {
  return withoutExceptions([&] {
    return implementation_->locked([&](JXOutboxQueue& queue) { return queue.markDelivered(id); });
  });
}

bool JXOutbox::moveToDeadLetters(std::uint64_t id, int status) {
  return withoutExceptions([&] {
    const bool wasQueued =
        implementation_->locked([&](JXOutboxQueue& queue) { return queue.reject(id, status); });
    if (wasQueued) implementation_->moveRejectedToDeadLetters();
    return wasQueued;
  });
}

void JXOutbox::purge() {
  withoutExceptions([&] { implementation_->purge(); });
}

void JXOutbox::sync() {
  withoutExceptions([&] { implementation_->sync(); });
}

void JXOutbox::rememberDropped() {
  implementation_->locked([](JXOutboxQueue& queue) { queue.drops().startRecording(); });
}

std::vector<JXOutboxDrop> JXOutbox::takeDropped() {
  return withoutExceptions([&] { return implementation_->takeDropped(); });
}

bool JXOutbox::needsSync() const { return implementation_->needsSync(); }

JXOutboxCounters JXOutbox::counters() const { return implementation_->counters(); }

}  // namespace jx
