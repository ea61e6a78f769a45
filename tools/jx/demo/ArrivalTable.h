// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "tools/jx/demo/Arrivals.h"
#include "tools/jx/demo/TerminalStyle.h"

namespace jx {

/// Formats the arrivals as a table: time of day, name, start of the event ID, size, details, and a
/// line where a session begins. No line is wider than the width of the style.
std::string arrivalTable(const std::vector<Arrival>& arrivals, const TerminalStyle& style);

}  // namespace jx
