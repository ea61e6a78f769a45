// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "jx/core/storage/JXOutboxFolder.h"

namespace jx {

/// Returns "12 requests queued, 34567 bytes; 0 dead letters", then the times of the oldest and the
/// newest request, and the number of dead letters per HTTP status. The first number is the number
/// of queued requests.
std::string queueStatus(const std::vector<JXOutboxListing>& queued,
                        const std::vector<JXOutboxListing>& dead);

/// Returns one line per request: creation time, size, event name and event ID; `withStatus` adds
/// the HTTP status as the second column. A value that the event does not contain is "-".
std::string queueLines(const std::vector<JXOutboxListing>& requests, bool withStatus);

/// Returns one line of JSON per request: "created" (UTC), "status" if `withStatus`, "url" and
/// "body", which is a string if the stored bytes are not a JSON object.
std::string queueJsonLines(const std::vector<JXOutboxListing>& requests, bool withStatus);

/// Returns the result of a purge in one or two lines.
std::string queuePurged(const JXOutboxPurge& purge);

}  // namespace jx
