// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "jx/core/storage/JXOutbox.h"

namespace jx {

/// "12 requests queued, 34567 bytes, ..." in one line, then since when, and which statuses refused
/// the dead letters.
std::string queueStatus(const std::vector<JXOutboxListing>& queued,
                        const std::vector<JXOutboxListing>& dead);

/// A line for each request: when it was made, its size, the event's name and id; with the HTTP
/// status in second place when `withStatus`. What the event does not tell is "-".
std::string queueLines(const std::vector<JXOutboxListing>& requests, bool withStatus);

/// What a purge did, in one line or two.
std::string queuePurged(const JXOutboxPurge& purge);

}  // namespace jx
