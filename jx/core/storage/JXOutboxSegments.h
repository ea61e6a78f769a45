// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXDeferredChanges.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutboxSegment.h"
#include "jx/core/storage/JXPathWatch.h"
#include "jx/core/storage/JXRunningTime.h"
#include "jx/core/storage/JXStorageReport.h"

namespace jx {

/// The segments that this process owns in one folder: those it adopted, and the one it is writing.
/// Not synchronised. Failures are passed to the report.
class JXOutboxSegments {
 public:
  /// `inner` is the outbox in the storage folder `folder`; if it is empty, `folder` is the outbox.
  /// `maxBytes` is the largest size of all queued requests. `report` and `erasures`, which may be
  /// null, must outlive this object. Without a `watch`, paths are compared for each request.
  JXOutboxSegments(const std::string& folder, std::string inner, std::uint64_t maxBytes,
                   std::shared_ptr<const JXClock> clock, JXStorageReport& report,
                   JXErasures* erasures, std::shared_ptr<JXPathWatch> watch);
  /// Deletes the segment being written if it has no unacknowledged requests.
  ~JXOutboxSegments();
  JXOutboxSegments(const JXOutboxSegments&) = delete;
  JXOutboxSegments& operator=(const JXOutboxSegments&) = delete;

  /// Adopts the segments that no process owns, oldest first, and calls `adopted` for each with its
  /// requests in order; a segment for which it throws is not adopted. Files that no process of the
  /// library can have written, and the oldest ones beyond what is read at a start, are renamed to
  /// quarantine files unread. Throws std::bad_alloc; call it again then.
  void adoptAll(JXOutboxHosts& hosts,
                const std::function<void(const std::vector<JXOutboxEntry>& requests)>& adopted);

  /// Appends a request to the current segment; starts a new one if it is full. If the folder or the
  /// file was deleted, renamed or replaced, moves all segments back first. Returns the segment, or
  /// null on failure. Throws std::bad_alloc before it writes the request. `changes`, which may be
  /// null, are stored with the request, in one write.
  JXOutboxSegment* append(std::string_view url, std::string_view body, const JXStoredTime& time,
                          const JXRequestOrigin& origin, std::uint32_t& offset,
                          JXDeferredChanges* changes = nullptr);
  /// Call this after requests were acknowledged: writes the acknowledgements, or deletes the files
  /// without an unacknowledged request. `retry` repeats what fails.
  void finishModified() noexcept;
  /// Deletes the current segment too if all its requests are acknowledged.
  void finishCurrent() noexcept;
  /// Called before a segment is destroyed; not destroyed if this throws.
  std::function<void(JXOutboxSegment& segment)> beforeRemoval;

  /// A segment whose requests before the offset `end` another process marked for purging.
  struct Purged {
    JXOutboxSegment* segment;
    std::uint64_t end;
  };
  /// Returns the segments with a purge mark.
  std::vector<Purged> markedForPurge();
  /// Returns whether segments may have been marked since the last call.
  JXFolderWatch::Change folderChange() {
    return segments_.empty() ? JXFolderWatch::Change::None : watch_.change();
  }
  /// Makes `folderChange` report a change.
  void recheckPurgeMarks() { watch_.reset(); }

  /// Returns the present time.
  JXStoredTime now() { return time_.now(); }
  /// Stores the running time from time to time, while requests or other files need it.
  void storeTime(bool isNeeded);
  /// Starts another series of running times, after all requests were erased.
  void restartTime() { time_.restart(); }

  /// Retries failed writes of acknowledgements and deletions.
  void retry();
  /// Marks segments as lost that are not at their path.
  void detectLostSegments();
  /// Moves lost segments with unacknowledged requests back to the configured path. Returns whether
  /// none is left.
  bool restoreLost();
  /// Returns the number of unacknowledged requests in lost segments.
  std::size_t lostRequests() const;
  bool hasLost() const { return lostRequests() != 0; }
  /// Returns a segment if the files are much larger than the queue may be, because most of
  /// their requests are acknowledged; its requests should be appended again. Null otherwise.
  JXOutboxSegment* toRetire() const;

  /// Returns the numbers of the segments written since the last call.
  std::vector<std::uint64_t> takeDirty();
  /// Returns the segment with this number, or null.
  JXOutboxSegment* find(std::uint64_t number);
  bool needsSync() const;
  /// Returns the open folder; null if it is not open.
  std::shared_ptr<const JXFolder> openFolder() const { return opened_.folder; }
  const std::string& path() const { return path_; }

  bool isOpen = true;  ///< false: nothing may be written yet
  /// The user defaults of whose changes the segments may contain the only copy; may be null.
  JXDefaultsFile* defaults = nullptr;
  bool folderDirty = false;  ///< a segment was created since the last successful sync of the folder
  bool timeDirty = false;    ///< the running time was written since the last successful sync

 private:
  static constexpr int kCreateAttempts = 8;

  int ensureFolder();
  std::vector<std::uint64_t> numbersToAdopt();
  void renumber(std::vector<std::uint64_t>& numbers);
  void quarantineUnread(std::uint64_t number);
  std::uint64_t nextNumber(const std::vector<std::uint64_t>& numbers);
  bool startSegment();
  int appendToCurrent(std::string_view url, std::string_view body, JXStoredTime time,
                      const JXRequestOrigin& origin, std::uint32_t& offset);
  bool saveChanges();
  void writeTime();
  void writeTimeTo(JXOutboxSegment& segment) noexcept;
  int restore(JXOutboxSegment& segment);
  void restoreReplaced(JXOutboxSegment& segment) noexcept;
  void finish(JXOutboxSegment& segment);
  void drop(JXOutboxSegment& segment);

  const std::string folder_;
  const std::string inner_;
  const std::string path_;
  const std::uint64_t maxBytes_;
  JXRunningTime time_;
  JXFolderWatch watch_;
  JXStorageReport& report_;
  JXErasures* const erasures_;                    ///< notified when a file was created
  const std::shared_ptr<JXPathWatch> pathWatch_;  ///< null: none
  JXSegmentFolder opened_;
  JXOpenSegments open_;
  std::string changes_;  ///< those that are stored with the request being appended
  std::vector<std::unique_ptr<JXOutboxSegment>> segments_;
  JXOutboxSegment* current_ = nullptr;
  std::uint64_t lastNumber_ = 0;
};

}  // namespace jx
