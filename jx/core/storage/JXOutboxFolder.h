// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jx/core/storage/JXOutboxSegment.h"

namespace jx {

/// Returns the queued requests of a folder, oldest first, without changing it; other processes may
/// have it open. `error` receives the first read error, empty on success.
std::vector<JXOutboxListing> listOutbox(const std::string& folder, std::string& error);
/// Returns the dead letters of a folder, oldest first, in the same way. Includes those that are too
/// old but not deleted yet: their maximum age is configured in the application.
std::vector<JXOutboxListing> listDeadLetters(const std::string& folder, std::string& error);

/// The result of `purgeOutbox`.
struct JXOutboxPurge {
  std::uint64_t removed = 0;      ///< requests deleted
  std::uint64_t marked = 0;       ///< requests that the process owning them will discard
  std::uint64_t deadLetters = 0;  ///< dead letters deleted
};
/// Deletes the requests, dead letters and quarantined files of a folder; other processes may have
/// it open. Requests of a running process are marked: that process, or the next one that reads
/// them, discards them before it sends another request. Only a request in flight at that moment may
/// still arrive. Requests added later are not affected. `error` receives the first failure, empty
/// on success; a failure does not stop the rest of the purge.
JXOutboxPurge purgeOutbox(const std::string& folder, std::string& error);

}  // namespace jx
