// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutboxRecord.h"

namespace jx {

/// A request as a segment holds it.
struct JXStoredRequest {
  std::uint32_t offset = 0;
  std::uint32_t bytes = 0;
  std::int64_t createdMs = 0;
};

/// One file of an outbox: requests, and the frames that say which of them are settled. The process
/// that has it open holds its lock. Not synchronised, except that `sync` may run beside the others.
/// Failures are errno values, 0 for success.
class JXOutboxSegment : public std::enable_shared_from_this<JXOutboxSegment> {
 public:
  /// Makes the file of this number and locks it. EEXIST when another process has taken the number.
  static std::shared_ptr<JXOutboxSegment> create(const std::string& folder, std::uint64_t number,
                                                 int& error);
  /// Locks an existing file and reads which requests are not settled, in order. Null without an
  /// error when another process holds it or has just deleted it.
  static std::shared_ptr<JXOutboxSegment> adopt(const std::string& folder, std::uint64_t number,
                                                std::vector<JXStoredRequest>& requests,
                                                JXJournal::Recovery& recovery);

  /// The name of a segment's file, and back; 0 for a name that is none.
  static std::string nameOf(std::uint64_t number);
  static std::uint64_t numberOf(const std::string& name);

  int append(std::string_view url, std::string_view body, std::int64_t createdMs,
             std::uint32_t& offset);
  /// Reads the payload of a request's frame. EBADMSG when it is damaged.
  int read(std::uint32_t offset, std::uint32_t bytes, std::string& payload) const;
  /// The request is done with; the file says so after `writeAcknowledgements`.
  void settle(std::uint32_t offset);
  /// Writes what was settled since, as one frame.
  int writeAcknowledgements();
  /// Copies the bytes of a damaged request to a file of their own.
  int setAsideRequest(std::uint32_t offset, std::uint32_t bytes, bool& copied) const;
  int sync() const { return journal_.sync(); }
  /// Deletes the file.
  int remove();

  /// How many requests are not settled.
  std::size_t live() const { return live_; }
  bool hasUnwrittenSettled() const { return !unwritten_.empty(); }
  /// True when another frame should go into a new segment.
  bool isFull() const;
  bool isLinked() const { return journal_.file().isLinked(); }
  const std::string& path() const { return journal_.path(); }

  bool dirty = false;  ///< written since the last sync that succeeded
  bool lost = false;   ///< somebody deleted the file; what it holds lives as long as it is open

 private:
  explicit JXOutboxSegment(JXJournal journal) : journal_(std::move(journal)) {}

  void forgetPurged(std::vector<JXStoredRequest>& requests);

  JXJournal journal_;
  std::size_t live_ = 0;
  std::vector<std::uint32_t> unwritten_;  ///< offsets of settled requests that no frame names yet
};

/// The unsettled requests of a segment's file in order, with their bytes: read without lock while
/// another process may write it. Those that are to be forgotten (see JXPurgeMark) are left out.
struct JXListedRequest {
  std::uint64_t offset = 0;
  std::int64_t createdMs = 0;
  std::string url;
  std::string body;
};
int listSegment(const std::string& path, std::vector<JXListedRequest>& requests);

}  // namespace jx
