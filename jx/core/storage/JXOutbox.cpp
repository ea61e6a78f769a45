// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutbox.h"

#include <cerrno>
#include <utility>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

// Each step of the queue's repair writes a few dozen requests.
constexpr int kMaxRepairStepsAtClose = 32;
constexpr std::size_t kDropsPerCall = 32;

std::string pathOf(const std::string& folder, const std::string& inner) {
  return concat({absolutePath(folder), inner.empty() ? "" : "/", inner});
}

// Only an allocation failure can throw; the operation then has no effect, or `sync` completes it.
template <typename Work>
auto withoutExceptions(Work work) noexcept -> decltype(work()) {
  try {
    return work();
  } catch (...) {
    return decltype(work())();
  }
}

}  // namespace

template <typename Work>
auto JXOutbox::locked(Work work) {
  const JXReportingLock lock(mutex_, report_);
  dropErased();
  return work();
}

template <typename Work>
auto JXOutbox::lockedWithoutExceptions(Work work) noexcept {
  return withoutExceptions([&] { return locked(work); });
}

JXOutbox::JXOutbox(const std::string& folder, const JXOutboxBounds& bounds,
                   std::shared_ptr<const JXClock> clock, std::shared_ptr<JXErasures> erasures,
                   bool mayStore, std::string currentEndpoint, const std::string& inner,
                   std::shared_ptr<JXPathWatch> watch)
    : maxAge_(bounds.maxAge),
      report_("outbox " + pathOf(folder, inner), folderOf(pathOf(folder, inner))),
      segments_(folder, inner, bounds.maxBytes, std::move(clock), report_, erasures.get(),
                std::move(watch)),
      queue_(segments_, report_, bounds, std::move(currentEndpoint)),
      erasures_(std::move(erasures)),
      seenErasures_(erasures_ ? erasures_->count() : 0),
      dead_(segments_.path(), bounds.maxDeadLetters, bounds.maxBytes, bounds.maxAge) {
  segments_.isOpen = false;
  if (mayStore) beginStoring();
}

void JXOutbox::beginStoring(JXDefaultsFile* defaults) {
  if (defaults != nullptr) defaults->allowDeferral();
  lockedWithoutExceptions([&] {
    segments_.isOpen = true;
    segments_.defaults = defaults;
    mustAdopt_ = true;
    adopt();
  });
}

// Called with the lock held; repeated by `sync` if it throws.
void JXOutbox::adopt() {
  if (!mustAdopt_) return;
  const std::string& folder = segments_.path();
  hasUncheckedFiles_ = !folder.empty() && (dead_.mayExist() || hasQuarantinedFiles(folder));
  queue_.adopt();
  mustAdopt_ = false;
}

JXOutbox::~JXOutbox() {
  lockedWithoutExceptions([&] {
    checkErasures();
    segments_.detectLostSegments();
    for (int step = 0; step < kMaxRepairStepsAtClose && queue_.repairSome(); ++step) {
    }
    dropErased();
  });
}

std::optional<std::uint64_t> JXOutbox::add(std::string_view url, std::string_view body,
                                           const JXRequestOrigin& origin, bool awaitsDecision) {
  return lockedWithoutExceptions([&]() -> std::optional<std::uint64_t> {
    std::optional<std::uint64_t> id;
    try {
      const std::uint64_t begun = erasures_ ? JXErasureScope::begunAt(*erasures_) : 0;
      dropErased();
      if (begun != seenErasures_) return queue_.rejectRequest(body, JXDropReason::Purged);
      id = queue_.add(url, body, origin, awaitsDecision, JXDeferredChanges::current());
    } catch (...) {
      report_.outOfMemory();
      return queue_.rejectRequest(body, JXDropReason::OutOfMemory);
    }
    dropErased();  // an erase may have missed a segment that was created
    return id;
  });
}

void JXOutbox::dropOutOfMemory(std::string_view body) noexcept {
  lockedWithoutExceptions([&] {
    report_.outOfMemory();
    queue_.rejectRequest(body, JXDropReason::OutOfMemory);
  });
}

std::optional<JXOutboxRequest> JXOutbox::take(const JXOutboxPick& pick,
                                              const JXSendFilter& filter) {
  return locked([&] {
    if (!pick.isFurther) checkErasures();
    return queue_.take(pick, filter);
  });
}

std::uint16_t JXOutbox::mostStops(std::uint32_t source) {
  return lockedWithoutExceptions([&] { return queue_.mostStops(source); });
}

void JXOutbox::requeue(std::uint64_t id) {
  lockedWithoutExceptions([&] { queue_.requeue(id); });
}

bool JXOutbox::requeueFailed(std::uint64_t id, const JXRequestFailures& failures) {
  return lockedWithoutExceptions([&] { return queue_.requeueFailed(id, failures); });
}

milliseconds JXOutbox::failedFor(std::uint64_t id) {
  return lockedWithoutExceptions([&] { return queue_.failures().failedFor(id, segments_.now()); });
}

std::optional<milliseconds> JXOutbox::nextRetryIn(std::uint32_t host, const JXSendFilter& filter) {
  return lockedWithoutExceptions(
      [&] { return queue_.failures().nextRetryIn(host, filter, segments_.now()); });
}

void JXOutbox::shortenRetryDelays(milliseconds longest) {
  lockedWithoutExceptions([&] { queue_.failures().shortenDelays(longest); });
}

std::vector<JXOutboxHost> JXOutbox::hosts() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return queue_.hosts();
}

bool JXOutbox::markDelivered(std::uint64_t id) {
  JXDeliveredRequests request{{id}};
  markDelivered(request);
  return request.ids[0] != 0;
}

void JXOutbox::markDelivered(JXDeliveredRequests& requests) {
  const bool isDone = lockedWithoutExceptions([&] {
    queue_.markDelivered(requests);
    return true;
  });
  if (!isDone) requests = {};
}

bool JXOutbox::moveToDeadLetters(std::uint64_t id, int status) {
  const bool wasQueued = lockedWithoutExceptions([&] { return queue_.reject(id, status); });
  if (wasQueued) withoutExceptions([&] { moveRejectedToDeadLetters(); });
  return wasQueued;
}

void JXOutbox::purge() {
  withoutExceptions([&] {
    locked([&] { queue_.clear(); });
    reportError("delete the dead letters", dead_.clear());
    reportError("delete the quarantined files", removeQuarantinedFiles(segments_.path()));
  });
}

void JXOutbox::applyErasures() {
  withoutExceptions([&] {
    locked([] {});
    // Closes the deleted file.
    reportError("delete the dead letters", dead_.clear());
  });
}

void JXOutbox::checkErasures() {
  if (erasures_) erasures_->check();
  dropErased();
}

// Called with the lock held.
void JXOutbox::dropErased() {
  const std::uint64_t erasures = erasures_ ? erasures_->count() : 0;
  if (erasures == seenErasures_) return;
  seenErasures_ = erasures;
  queue_.clear();
  segments_.restartTime();
}

void JXOutbox::sync() {
  withoutExceptions([&] {
    if (erasures_) erasures_->writeLackingMark();
    const std::uint64_t failures = locked([&] { return report_.failures(); });
    locked([&] {
      checkErasures();
      adopt();
      queue_.applyPurgeMarks();
      queue_.dropExpired();
      segments_.detectLostSegments();
      segments_.retry();
    });
    // Releases the lock between steps, so that a calling thread never waits for the whole repair.
    while (locked([&] {
      const bool hasMore = queue_.repairSome();
      dropErased();  // an erase may have missed a segment that was created
      return hasMore;
    })) {
    }
    moveRejectedToDeadLetters();
    if (locked([&] { return hasUncheckedFiles_; })) removeExpiredFiles();
    locked([&] { segments_.storeTime(dead_.mayExist()); });
    syncFiles();
    locked([&] {
      // A folder that could not be opened is tried again with the next request only.
      const bool isOpen = segments_.openFolder() != nullptr;
      if (report_.failures() == failures && isOpen && !queue_.needsRepair()) report_.recovered();
    });
  });
}

// Writes the dead letter before the acknowledgement: after a kill in between, the request is sent
// again instead of being lost.
void JXOutbox::moveRejectedToDeadLetters() {
  std::uint64_t erasures = 0;
  const auto next = [&] {
    // An erased request must not be written, because this process may be killed before it is
    // deleted again.
    checkErasures();
    erasures = seenErasures_;
    return queue_.nextRejected();
  };
  while (const auto rejected = locked(next)) {
    const bool mayStore = locked([&] { return segments_.isOpen; });
    const JXStoredTime now = storedNow();
    const int error = mayStore ? dead_.append(rejected->request, rejected->status, now) : 0;
    const bool wasErased = locked([&] {
      checkErasures();
      return seenErasures_ != erasures;
    });
    if (wasErased) reportError("delete the dead letters", dead_.clear());
    reportDamagedDeadLetters();
    if (error != 0) {
      // With EWOULDBLOCK another process is writing the file; `sync` retries.
      if (error != EWOULDBLOCK) reportError("store a dead letter", error);
      return;
    }
    locked([&] { queue_.acknowledgeRejected(rejected->request.id); });
  }
}

void JXOutbox::removeExpiredFiles() {
  const JXStoredTime now = storedNow();
  const int error = dead_.removeExpired(now);
  reportDamagedDeadLetters();
  // Another process is writing the file; the next `sync` tries again.
  if (error == EWOULDBLOCK) return;
  reportError("delete expired dead letters", error);
  JXQuarantined expired;
  reportError("delete expired quarantined files",
              removeExpiredQuarantinedFiles(segments_.path(), now.dayMs, maxAge_, expired.deleted));
  locked([&] {
    report_.quarantined(segments_.path(), expired);
    hasUncheckedFiles_ = false;
  });
}

// Returns the present time, which is stored first: the dead letters refer to it.
JXStoredTime JXOutbox::storedNow() {
  return locked([&] {
    segments_.storeTime(true);
    return segments_.now();
  });
}

void JXOutbox::reportDamagedDeadLetters() {
  const JXQuarantined quarantined = dead_.takeQuarantined();
  if (!quarantined.copied && quarantined.deleted == 0) return;
  locked([&] { report_.quarantined(dead_.path(), quarantined); });
}

void JXOutbox::reportError(const char* action, int error) {
  if (error != 0) locked([&] { report_.failed(action, error); });
}

// Blocks on disk I/O without the lock.
void JXOutbox::syncFiles() {
  bool folderDirty = false;
  bool timeDirty = false;
  std::shared_ptr<const JXFolder> folder;
  const std::vector<std::uint64_t> dirty = locked([&] {
    std::vector<std::uint64_t> numbers = segments_.takeDirty();
    folderDirty = std::exchange(segments_.folderDirty, false);
    timeDirty = std::exchange(segments_.timeDirty, false);
    folder = segments_.openFolder();
    return numbers;
  });
  for (const std::uint64_t number : dirty)
    syncSegment(number);
  const int timeError = timeDirty && folder ? JXRunningTime::sync(*folder) : 0;
  if (timeError != 0) locked([&] { segments_.timeDirty = true; });
  reportError("sync the running time", timeError);
  const int folderError = folderDirty && folder ? folder->synchronize() : 0;
  if (folderError != 0) locked([&] { segments_.folderDirty = true; });
  reportError("sync the folder", folderError);
  reportError("sync the dead letters", dead_.sync());
}

void JXOutbox::syncSegment(std::uint64_t number) {
  int error = ENOMEM;
  const JXFile file = lockedWithoutExceptions([&] {
    JXOutboxSegment* const segment = segments_.find(number);
    if (segment == nullptr) error = 0;
    return segment != nullptr ? segment->fileToSync(error) : JXFile();
  });
  if (file.isOpen()) error = file.synchronize();
  // A file that is missing was deleted: the next sync restores it if it is needed.
  if (error == 0 || error == ENOENT) return;
  locked([&] {
    if (JXOutboxSegment* const segment = segments_.find(number)) segment->dirty = true;
  });
  reportError("sync a segment", error);
}

bool JXOutbox::needsSync() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return mustAdopt_ || segments_.needsSync() || queue_.needsRepair() || queue_.hasRejected() ||
         hasUncheckedFiles_ || dead_.needsSync();
}

void JXOutbox::rememberDropped() {
  locked([&] { queue_.drops().startRecording(); });
}

std::vector<JXOutboxDrop> JXOutbox::takeDropped() {
  return lockedWithoutExceptions([&] { return queue_.drops().take(kDropsPerCall); });
}

bool JXOutbox::hasDropped() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return !queue_.drops().isEmpty();
}

JXOutboxCounters JXOutbox::counters() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return queue_.counters();
}

std::uint64_t JXOutbox::nextId() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return queue_.nextId();
}

}  // namespace jx
