// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutboxSegment.h"
#include "jx/core/storage/JXStorageReport.h"

namespace jx {

/// The segments that this process holds in one folder: those it adopted, and the one that it
/// writes. Not synchronised. What fails goes to the report.
class JXOutboxSegments {
 public:
  using Adopted = std::function<void(JXOutboxSegment& segment, const JXStoredRequest& request)>;

  /// `report` must outlive this object.
  JXOutboxSegments(std::string folder, JXStorageReport& report)
      : folder_(std::move(folder)), watch_(folder_), report_(report) {}
  /// Deletes the segment being written when nothing in it is left to deliver.
  ~JXOutboxSegments();
  JXOutboxSegments(const JXOutboxSegments&) = delete;
  JXOutboxSegments& operator=(const JXOutboxSegments&) = delete;

  /// Takes over the segments that no process holds, oldest first, and tells their requests in
  /// order. To be called once, first.
  void adoptAll(const Adopted& adopted);

  /// Writes a request into the current segment, starting a new one when it is full or its file was
  /// deleted. The segment that took it, or null.
  JXOutboxSegment* append(std::string_view url, std::string_view body, std::int64_t createdMs,
                          std::uint32_t& offset);
  /// To be called after requests of the segment were settled: says so in its file, or deletes the
  /// file with its last request. `segment` may be gone afterwards.
  void finish(JXOutboxSegment& segment);
  /// Deletes the current segment too when all in it is settled.
  void finishCurrent();

  /// A segment of which another process wants the requests before `end` forgotten.
  struct Purged {
    std::shared_ptr<JXOutboxSegment> segment;
    std::uint64_t end;
  };
  /// The segments that were marked for purging and were not told before they are finished. Cheap
  /// while nothing in the folder changes.
  std::vector<Purged> markedForPurge();

  /// Does again what the disk refused before.
  void retry();
  /// Finds out which files somebody deleted. True when one of them has unsettled requests.
  bool detectDeletedSegments();
  bool hasLost() const;

  /// The segments written since they were last taken, for syncing without the owner's lock.
  std::vector<std::shared_ptr<JXOutboxSegment>> takeDirty();
  /// True once after a segment was made.
  bool consumeFolderDirtyFlag();
  void setFolderDirty() { folderDirty_ = true; }
  bool needsSync() const;
  const std::string& folder() const { return folder_; }

 private:
  bool startSegment();
  void drop(JXOutboxSegment& segment);
  std::vector<std::uint64_t> numbersInFolder(int& error) const;

  const std::string folder_;
  JXFolderWatch watch_;
  JXStorageReport& report_;
  std::vector<std::shared_ptr<JXOutboxSegment>> segments_;
  JXOutboxSegment* current_ = nullptr;
  std::uint64_t lastNumber_ = 0;
  bool folderDirty_ = false;
};

}  // namespace jx
