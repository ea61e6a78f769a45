// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/jx/collector/EventStore.h"

namespace jx {

/// `text` for use in HTML, inside an element or a quoted attribute. Bytes that are not UTF-8 become
/// U+FFFD.
std::string escapedHtml(std::string_view text);

/// The page for people: the counts and the newest events, newest first, without any script.
std::string collectorPage(const EventSummary& summary, const std::vector<StoredEvent>& events);

}  // namespace jx
