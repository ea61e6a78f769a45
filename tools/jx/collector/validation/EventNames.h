// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

#include "jx/events/JXEventClass.h"

namespace jx {

/// The class that writes events of this name; null when no class does. Thread-safe, as is all here.
const JXEventClass* classWriting(std::string_view eventName);

/// The name that was probably meant: one that a class writes and that differs only by capitals, by
/// how its words are separated, or by one slip of a letter (left out, added, changed, or swapped
/// with its neighbour). Empty when there is none, and for a name that a class writes.
std::string_view nameMeantBy(std::string_view eventName);

/// A number that differs when the classes of events, their names, fields or conditions do: what was
/// judged by other tables has to be judged again.
std::int64_t fingerprintOfTables();

}  // namespace jx
