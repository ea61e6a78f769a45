// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

#include "jx/platform/JXString.h"

namespace jx {

/// Fills `bytes` with random bytes from the kernel. Each thread has a buffer, so most calls need no
/// system call. Thread-safe. A child created by `fork` discards the buffers of its parent, so the
/// two never return the same bytes. A process created by a direct `clone` system call, without the
/// C library, is not detected.
void fillRandom(std::uint8_t* bytes, std::size_t count);

/// Returns 32 random bits.
std::uint32_t drawRandomBits();

/// Returns a random UUID (version 4, variant 1): 36 characters, upper-case hexadecimal, hyphenated.
JXString makeRandomUUID();

/// Formats 16 bytes as a UUID, after setting version and variant.
JXString randomUUIDString(const std::uint8_t (&bytes)[16]);

/// A source of random bytes. Returns true if it filled all of them.
using JXRandomSource = bool (*)(std::uint8_t* bytes, std::size_t count);

/// Fills `bytes` from the first of `sources` that succeeds. If all fail, uses values that are
/// unique to this process and time (clocks, process ID, the random bytes that the kernel passes to
/// a program at its start, a counter): not repeated, but not secret.
void fillFromFirst(const JXRandomSource* sources, std::size_t sourceCount, std::uint8_t* bytes,
                   std::size_t count);

}  // namespace jx
