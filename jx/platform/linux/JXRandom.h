// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

#include "jx/platform/JXString.h"

namespace jx {

/// Random bytes from the kernel, taken from a store that each thread keeps, so that most calls cost
/// no system call. Safe on any thread. A child made by `fork` throws away what its parent had in
/// store, so the two never give out the same bytes; a process made by a bare `clone` system call,
/// behind the C library's back, is not told apart.
void fillRandom(std::uint8_t* bytes, std::size_t count);

/// 32 random bits.
std::uint32_t drawRandomBits();

/// A random UUID (version 4, variant 1): 36 characters, upper-case hexadecimal, hyphenated.
JXString makeRandomUUID();

/// The UUID text of 16 bytes, in which version and variant are set first.
JXString randomUUIDText(const std::uint8_t (&bytes)[16]);

/// A source of random bytes that may fail; true when it filled all of them.
using JXRandomSource = bool (*)(std::uint8_t* bytes, std::size_t count);

/// Fills from the first of `sources` that succeeds. When none does, from what tells this process
/// and this moment apart from others (clocks, process, the bytes that the kernel gives a program at
/// its start, a counter): never the same twice, but not secret.
void fillFromFirst(const JXRandomSource* sources, std::size_t sourceCount, std::uint8_t* bytes,
                   std::size_t count);

}  // namespace jx
