// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutboxSegment.h"
#include "jx/core/storage/JXStorageReport.h"

namespace jx {

/// The segments that this process owns in one folder: those it adopted, and the one it is writing.
/// Not synchronised. Failures are passed to the report.
class JXOutboxSegments {
 public:
  /// `report` and `erasures`, which may be null, must outlive this object.
  JXOutboxSegments(std::string folder, JXStorageReport& report, JXErasures* erasures)
      : folder_(std::move(folder)), watch_(folder_), report_(report), erasures_(erasures) {}
  /// Deletes the segment being written if it has no unacknowledged requests.
  ~JXOutboxSegments();
  JXOutboxSegments(const JXOutboxSegments&) = delete;
  JXOutboxSegments& operator=(const JXOutboxSegments&) = delete;

  /// Adopts the segments that no process owns, oldest first, and calls `adopted` for each of their
  /// requests in order. Call it once, before anything else.
  void adoptAll(JXOutboxHosts& hosts,
                const std::function<void(const JXOutboxEntry& request)>& adopted);

  /// Appends a request to the current segment; starts a new one if it is full or its file was
  /// deleted. Returns the segment, or null on failure.
  JXOutboxSegment* append(std::string_view url, std::string_view body, std::int64_t createdMs,
                          const JXRequestOrigin& origin, std::uint32_t& offset);
  /// Call this after requests of the segment were acknowledged: writes the acknowledgements, or
  /// deletes the file if no unacknowledged request is left. `segment` may be destroyed afterwards.
  void finish(JXOutboxSegment& segment);
  /// Deletes the current segment too if all its requests are acknowledged.
  void finishCurrent();

  /// A segment whose requests before the offset `end` another process marked for purging.
  struct Purged {
    std::shared_ptr<JXOutboxSegment> segment;
    std::uint64_t end;
  };
  /// Returns the segments with a purge mark. Cheap while the folder does not change: segments are
  /// returned only after a change.
  std::vector<Purged> markedForPurge();

  /// Retries failed writes of acknowledgements and deletions.
  void retry();
  /// Marks segments whose files were deleted as lost.
  void detectDeletedSegments();
  /// Returns true when a lost segment has unacknowledged requests.
  bool hasLost() const;

  /// Returns the segments written since the last call, for syncing without the owner's lock.
  std::vector<std::shared_ptr<JXOutboxSegment>> takeDirty();
  bool needsSync() const;
  const std::string& folder() const { return folder_; }

  bool isOpen = true;        ///< false: nothing may be written yet
  bool folderDirty = false;  ///< a segment was created since the last successful sync of the folder

 private:
  bool startSegment();
  void drop(JXOutboxSegment& segment);

  const std::string folder_;
  JXFolderWatch watch_;
  JXStorageReport& report_;
  JXErasures* const erasures_;  ///< notified when a file was created
  std::vector<std::shared_ptr<JXOutboxSegment>> segments_;
  JXOutboxSegment* current_ = nullptr;
  std::uint64_t lastNumber_ = 0;
};

}  // namespace jx
