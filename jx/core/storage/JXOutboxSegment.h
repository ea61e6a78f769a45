// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXPathWatch.h"
#include "jx/core/storage/JXSegmentFolder.h"

namespace jx {

class JXDefaultsFile;

/// One file of an outbox: requests, and acknowledgements of requests. The process that uses it owns
/// its lock. The file is opened when it is needed. Not synchronised. Operations that can fail
/// return an errno value, 0 for success.
class JXOutboxSegment {
 public:
  /// The largest number of a segment: the offset of its lock is signed.
  static constexpr std::uint64_t kMaxNumber = std::uint64_t{1} << (8 * sizeof(off_t) - 2);
  /// No segment is larger: it is full at 1 MiB, and may then contain one more request, and the
  /// acknowledgements of all.
  static constexpr std::uint64_t kMaxFileSize =
      std::uint64_t{kJXMaxPayload} + kJXFrameHeaderSize + 4 * 1024 * 1024;

  /// Creates and locks the file with this number. Returns null and sets `error` on failure, EEXIST
  /// when another process has used the number.
  static std::unique_ptr<JXOutboxSegment> create(const JXSegmentFolder& folder,
                                                 std::uint64_t number, JXOpenSegments& open,
                                                 int& error);
  /// Locks an existing file and returns its unacknowledged requests in order. Returns null without
  /// an error when another process owns the file or has just deleted it.
  /// `now` gives the series of the running times; a request without one counts as added now.
  /// `defaults`, which may be null, receives the changes that are stored with requests.
  static std::unique_ptr<JXOutboxSegment> adopt(const JXSegmentFolder& folder, std::uint64_t number,
                                                JXOpenSegments& open, JXOutboxHosts& hosts,
                                                const JXStoredTime& now,
                                                std::vector<JXOutboxEntry>& requests,
                                                JXJournal::Recovery& recovery,
                                                JXDefaultsFile* defaults = nullptr);
  ~JXOutboxSegment();
  JXOutboxSegment(const JXOutboxSegment&) = delete;
  JXOutboxSegment& operator=(const JXOutboxSegment&) = delete;

  /// Convert between a segment's number and its file name. `numberOf` returns 0 if `name` is not a
  /// segment's name.
  static std::string nameOf(std::uint64_t number);
  static std::uint64_t numberOf(const std::string& name);
  /// Returns the numbers of all segments in the folder in ascending order. `error` receives an
  /// errno value, 0 for success.
  static std::vector<std::uint64_t> numbersIn(const JXFolder& folder, int& error);

  /// Appends a request that was added at `time`; `offset` receives the position of its frame.
  /// `changes`, unless empty, are written in front of it, with the same write. Throws
  /// std::bad_alloc before it writes the request.
  int append(std::string_view url, std::string_view body, const JXStoredTime& time,
             const JXRequestOrigin& origin, std::uint32_t& offset, std::string_view changes);
  /// Appends a time that the next frames need, unless it follows from the latest one in the file.
  int writeTime(const JXStoredTime& time);
  /// Returns true if `adopt` found requests whose running time is not known: until a time is
  /// written, they count as added at each start.
  bool needsTime() const { return needsTime_; }
  /// Records the failures of a request; `now` is the present time.
  int writeFailures(std::uint32_t offset, const JXRequestFailures& failures,
                    const JXStoredTime& now);
  /// Returns the failures of a request that `adopt` found.
  const JXRequestFailures& adoptedFailures(std::uint32_t offset) const;
  /// Reads the payload of a request's frame. Returns EBADMSG when it is damaged.
  int read(std::uint32_t offset, std::uint32_t bytes, std::string& payload);
  /// Reads up to `size` bytes of frames at `offset`. Returns the number of bytes that were read.
  std::size_t readRun(std::uint32_t offset, char* into, std::size_t size);
  /// Acknowledges a request; `writeAcknowledgements` writes this to the file. Needs no memory.
  void acknowledge(std::uint32_t offset) noexcept;
  /// Writes all unwritten acknowledgements as one frame.
  int writeAcknowledgements();
  /// Copies the bytes of a damaged request to a quarantine file, unless that file exists already.
  int quarantineRequest(std::uint32_t offset, std::uint32_t bytes, JXQuarantined& quarantined);
  /// Returns the open file for a sync without the owner's lock; closed if it cannot be opened.
  JXFile fileToSync(int& error) const {
    return JXFile::open(*folder_.folder, nameOf(number_), JXFile::Access::Read, error);
  }
  /// Deletes the file.
  int remove();
  /// Closes the file. Its content stays available to `moveTo`.
  void close();

  /// Returns true when the path of the file still refers to it: neither the file nor a folder above
  /// it was deleted, renamed or replaced.
  bool isAtPath() const { return JXFile::identityAt(path()) == identity_; }
  /// Same, but looks at the path only if a file may have been moved since the last call.
  bool isStillAtPath(JXPathWatch* watch) {
    return seenAtPath_.confirm(watch, [this] { return isAtPath(); });
  }
  /// Moves the file, or copies its content if it was deleted, to `folder`, under `number`. Returns
  /// EEXIST if the folder contains a file of this number, or another process owns it. On failure,
  /// nothing changes.
  int moveTo(const JXSegmentFolder& folder, std::uint64_t number);

  std::uint64_t number() const { return number_; }
  const JXFileIdentity& identity() const { return identity_; }
  /// Returns the number of unacknowledged requests.
  std::size_t live() const { return live_; }
  bool hasUnwrittenAcknowledgements() const { return !unwritten_.empty(); }
  /// Returns true when the next frame should go into a new segment.
  bool isFull() const { return mayBeMarked_ || journal_.size() >= kMaxSize; }
  std::uint64_t size() const { return journal_.size(); }
  /// Returns true if most requests that were ever in the file are acknowledged.
  bool isMostlyObsolete() const { return !isUnreadable && live_ < requests_ / 2; }
  const std::string& path() const { return journal_.path(); }

  bool dirty = false;         ///< written since the last successful sync
  bool lost = false;          ///< not at its path; its content must be moved there
  bool isUnreadable = false;  ///< some of its requests cannot be read by this process
  bool modified = false;      ///< has acknowledgements that the owner did not finish yet

 private:
  static constexpr std::uint64_t kMaxSize = 1024 * 1024;

  JXOutboxSegment(const JXSegmentFolder& folder, std::uint64_t number, JXOpenSegments& open);
  void setFile(JXFile file) noexcept;

  JXJournal::Recovery recover(JXOutboxHosts& hosts, const JXStoredTime& now,
                              std::vector<JXOutboxEntry>& requests, JXDefaultsFile* defaults);
  int ensureOpen();
  int moveFile(const JXFolder& folder, const std::string& oldName, const std::string& name,
               std::string path);
  int copyTo(JXFile& file);
  void map();
  void unmap();
  void dropPurged(std::vector<JXOutboxEntry>& requests);

  JXSegmentFolder folder_;
  std::uint64_t number_;
  bool ownsLock_ = false;  ///< of `number_`
  JXOpenSegments& open_;
  JXFileIdentity identity_;
  JXJournal journal_;
  void* mapped_ = nullptr;  ///< keeps the content of a closed file that may be deleted
  std::size_t mappedSize_ = 0;
  std::size_t live_ = 0;
  std::size_t requests_ = 0;                             ///< acknowledged ones too
  std::map<std::uint32_t, JXRequestFailures> failures_;  ///< found by `adopt`, by offset
  /// Offsets of acknowledged requests, not in a frame yet. Has capacity for those of all requests.
  std::vector<std::uint32_t> unwritten_;
  std::optional<std::int64_t> timeOffset_;  ///< of the latest time in the file
  bool needsTime_ = false;
  /// A purge mark stays that `adopt` could not read or remove. A power loss may have shortened the
  /// file, so that the mark would apply to new requests.
  bool mayBeMarked_ = false;
  JXSeenAtPath seenAtPath_;
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

}  // namespace jx
