// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/jx/collector/EventStore.h"

namespace jx {

/// The collector's JSON interface: how stored events look to a program. What is not known is null.
/// A body that is not UTF-8 shows with U+FFFD in "body", and whole in "body_base64".
std::string eventToJson(const StoredEvent& event);
/// {"events": [...], "last": N}: `last` is the row number to ask on from, `after` when there are
/// no events.
std::string eventsToJson(const std::vector<StoredEvent>& events, std::int64_t after);
std::string summaryToJson(const EventSummary& summary);
/// {"error": ...}
std::string errorToJson(const std::string& text);

}  // namespace jx
