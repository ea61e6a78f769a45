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

// Of the queue's repair; each writes a few dozen requests.
constexpr int kClosingSteps = 32;
constexpr std::size_t kDropsAtOnce = 32;

// No exception leaves the outbox. What may be thrown is a lack of memory, and what was asked for
// was then not done.
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
      const auto lines = owner.report_.takeLines();
      lock.unlock();
      JXStorageReport::log(lines);
    }
  };

 public:
  /// Runs `work` with the lock held, and logs after releasing it: the log's sink may call back.
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

  /// What is in memory only goes to the disk when it takes it, in a few milliseconds at most.
  ~Implementation() {
    withoutExceptions([&] {
      locked([this](JXOutboxQueue& queue) {
        segments_.detectDeletedSegments();
        for (int step = 0; step < kClosingSteps && queue.repairSome(); ++step) {
        }
      });
    });
  }

  std::vector<JXOutboxDrop> takeDropped() {
    std::vector<JXOutboxDrop> dropped;
    for (JXOutboxDrops::Drop& drop :
         locked([](JXOutboxQueue& queue) { return queue.drops().take(kDropsAtOnce); })) {
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
    return segments_.needsSync() || queue_.needsRepair() || queue_.hasRefused() ||
           dead_.needsSync();
  }

  void purge() {
    locked([](JXOutboxQueue& queue) { queue.clear(); });
    reportError("delete the dead letters", dead_.clear());
    reportError("delete what was set aside", removeQuarantinedFiles(segments_.folder()));
  }

  void sync() {
    locked([this](JXOutboxQueue& queue) {
      queue.applyPurgeMarks();
      segments_.detectDeletedSegments();
      segments_.retry();
    });
    // Step by step, so that a caller's thread never waits for the whole.
    while (locked([](JXOutboxQueue& queue) { return queue.repairSome(); })) {
    }
    buryRefused();
    syncFiles();
  }

  /// Moves refused requests to the dead letters. First the letter, then the settling: a kill in
  /// between asks the server again instead of losing the request.
  void buryRefused() {
    while (const std::optional<JXOutboxQueue::Refused> refused =
               locked([](JXOutboxQueue& queue) { return queue.nextRefused(); })) {
      const int error = dead_.append(refused->request, refused->status);
      if (dead_.takeDamaged()) {
        locked([this](JXOutboxQueue&) { report_.damaged(dead_.path()); });
      }
      if (error != 0) {
        // Another process has the file for a moment: `sync` comes back to it.
        if (error != EWOULDBLOCK) reportError("keep a dead letter", error);
        return;
      }
      locked([&](JXOutboxQueue& queue) { queue.settleRefused(refused->request.id); });
    }
  }

 private:
  void reportError(const char* action, int error) {
    if (error != 0) locked([&](JXOutboxQueue&) { report_.failed(action, error); });
  }

  // Waits for the disk without the lock.
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
  JXDeadLetters dead_;  ///< has a lock of its own, so that its rewriting keeps no caller waiting
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
    const bool held =
        implementation_->locked([&](JXOutboxQueue& queue) { return queue.refuse(id, status); });
    if (held) implementation_->buryRefused();
    return held;
  });
}

void JXOutbox::purge() {
  withoutExceptions([&] { implementation_->purge(); });
}

void JXOutbox::sync() {
  withoutExceptions([&] { implementation_->sync(); });
}

void JXOutbox::rememberDropped() {
  implementation_->locked([](JXOutboxQueue& queue) { queue.drops().startRemembering(); });
}

std::vector<JXOutboxDrop> JXOutbox::takeDropped() {
  return withoutExceptions([&] { return implementation_->takeDropped(); });
}

bool JXOutbox::needsSync() const { return implementation_->needsSync(); }

JXOutboxCounters JXOutbox::counters() const { return implementation_->counters(); }

}  // namespace jx
