// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutboxIndex.h"

namespace jx {

/// One file of an outbox: requests, and acknowledgements of requests. The process that has it open
/// owns its lock. Not synchronised, except that `sync` may run concurrently with the other
/// operations. Operations that can fail return an errno value, 0 for success.
class JXOutboxSegment : public std::enable_shared_from_this<JXOutboxSegment> {
 public:
  /// Creates and locks the file with this number. Returns null and sets `error` on failure, EEXIST
  /// when another process has used the number.
  static std::shared_ptr<JXOutboxSegment> create(const std::string& folder, std::uint64_t number,
                                                 int& error);
  /// Locks an existing file and returns its unacknowledged requests in order. Returns null without
  /// an error when another process owns the file or has just deleted it.
  static std::shared_ptr<JXOutboxSegment> adopt(const std::string& folder, std::uint64_t number,
                                                JXOutboxHosts& hosts,
                                                std::vector<JXOutboxEntry>& requests,
                                                JXJournal::Recovery& recovery);

  /// Convert between a segment's number and its file name. `numberOf` returns 0 if `name` is not a
  /// segment's name.
  static std::string nameOf(std::uint64_t number);
  static std::uint64_t numberOf(const std::string& name);
  /// Returns the numbers of all segments in the folder in ascending order. `error` receives an
  /// errno value, 0 for success.
  static std::vector<std::uint64_t> numbersIn(const std::string& folder, int& error);

  /// Appends a request; `offset` receives the position of its frame.
  int append(std::string_view url, std::string_view body, std::int64_t createdMs,
             const JXRequestOrigin& origin, std::uint32_t& offset);
  /// Records the failures of a request.
  int writeFailures(std::uint32_t offset, const JXRequestFailures& failures);
  /// Returns the failures of a request that `adopt` found.
  const JXRequestFailures& adoptedFailures(std::uint32_t offset) const;
  /// Reads the payload of a request's frame. Returns EBADMSG when it is damaged.
  int read(std::uint32_t offset, std::uint32_t bytes, std::string& payload) const;
  /// Acknowledges a request; `writeAcknowledgements` writes this to the file.
  void acknowledge(std::uint32_t offset);
  /// Writes all unwritten acknowledgements as one frame.
  int writeAcknowledgements();
  /// Copies the bytes of a damaged request to a quarantine file. `copied` receives false when that
  /// file exists already.
  int quarantineRequest(std::uint32_t offset, std::uint32_t bytes, bool& copied) const;
  int sync() const { return journal_.sync(); }
  /// Deletes the file.
  int remove();

  /// Returns the number of unacknowledged requests.
  std::size_t live() const { return live_; }
  bool hasUnwrittenAcknowledgements() const { return !unwritten_.empty(); }
  /// Returns true when the next frame should go into a new segment.
  bool isFull() const { return journal_.size() >= kMaxSize; }
  bool isLinked() const { return journal_.file().isLinked(); }
  const std::string& path() const { return journal_.path(); }

  bool dirty = false;  ///< written since the last successful sync
  bool lost = false;   ///< the file was deleted; its content exists as long as it is open

 private:
  static constexpr std::uint64_t kMaxSize = 1024 * 1024;

  explicit JXOutboxSegment(JXJournal journal) : journal_(std::move(journal)) {}

  void dropPurged(std::vector<JXOutboxEntry>& requests);

  JXJournal journal_;
  std::size_t live_ = 0;
  std::map<std::uint32_t, JXRequestFailures> failures_;  ///< found by `adopt`, by offset
  std::vector<std::uint32_t> unwritten_;  ///< offsets of acknowledged requests, not in a frame yet
};

/// A request read from an outbox folder that is not opened for sending.
struct JXOutboxListing {
  std::int64_t createdMs = 0;
  std::string url;
  std::string body;
  int status = 0;            ///< of a dead letter: the HTTP status that rejected it
  std::uint64_t offset = 0;  ///< of its frame
};
/// Lists the unacknowledged requests of a segment's file in order, without a lock; another process
/// may be writing it. Omits requests that are marked for purging. `error` receives an errno value,
/// 0 for success.
std::vector<JXOutboxListing> listSegment(const std::string& path, int& error);

/// The suffix of a purge mark's file name. A purge mark is a file next to a segment. The process
/// that owns the segment discards the requests that the segment contained when the mark was
/// written. The mark contains the segment's inode, so that it does not apply to a later segment of
/// the same name.
inline constexpr std::string_view kJXPurgeMarkSuffix = ".purge";
/// Writes a mark for the current content of the segment, replacing an older mark. Returns an errno
/// value, 0 for success; ENOENT if the segment does not exist.
int writePurgeMark(const std::string& segmentPath);
/// Returns the size of the segment's part to discard, in bytes; 0 if there is no valid mark for it.
std::uint64_t readPurgeMark(const std::string& segmentPath);
/// Deletes the mark if it exists.
void removePurgeMark(const std::string& segmentPath);

}  // namespace jx
