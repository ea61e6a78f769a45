// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// The operations of JXOutboxQueue that read requests.
#include <cerrno>

#include "jx/core/storage/JXOutboxQueue.h"

namespace jx {

int JXOutboxQueue::read(const JXOutboxEntry& entry, JXOutboxRequest& request) {
  request.id = entry.id;
  request.bornMs = entry.bornMs;
  if (entry.segment == nullptr) {
    const StoredInMemory& stored = memory_.at(entry.id);
    request.createdMs = stored.createdMs;
    request.url = stored.url;
    request.body = stored.body;
    return 0;
  }
  std::string alone;
  std::string_view payload = readAhead_.payload(*entry.segment, entry.offset, entry.bytes);
  if (payload.empty()) {
    const int error = entry.segment->read(entry.offset, entry.bytes, alone);
    if (error != 0) return error;
    payload = alone;
  }
  const JXOutboxRecord record = decodeRecord(payload);
  if (record.kind != JXRecordKind::Request) return EBADMSG;
  request.createdMs = record.createdMs;
  request.url = std::string(record.url);
  request.body = std::string(record.body);
  return 0;
}

// Restores the file first if it was deleted or moved.
int JXOutboxQueue::readRestored(const JXOutboxEntry& entry, JXOutboxRequest& request) {
  const int error = read(entry, request);
  if (error != ENOENT && error != ESTALE) return error;
  segments_.detectLostSegments();
  return segments_.restoreLost() ? read(entry, request) : error;
}

// Quarantines and drops a damaged request. After a read error the request stays in its file for
// the next start, when it may be readable again.
void JXOutboxQueue::dropUnreadable(JXOutboxEntry& entry, int error) {
  report_.failed("read a request", error);
  if (error != EBADMSG) {
    failures_.remove(entry.id);
    index_.remove(entry);
    return;
  }
  JXQuarantined quarantined;
  const int copyError = entry.segment->quarantineRequest(entry.offset, entry.bytes, quarantined);
  if (copyError != 0) report_.failed("quarantine a damaged request", copyError);
  report_.quarantined(entry.segment->path(), quarantined);
  drop(entry, JXDropReason::Unreadable);
  segments_.finishModified();
}

}  // namespace jx
