// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "tools/jx/demo/Arrivals.h"
#include "tools/jx/demo/TerminalStyle.h"

namespace jx {

/// The arrivals as a table for people: time of day, name, beginning of the event id, size, details;
/// a rule where a session begins. No line is wider than the style's width.
std::string arrivalTable(const std::vector<Arrival>& arrivals, const TerminalStyle& style);

}  // namespace jx
