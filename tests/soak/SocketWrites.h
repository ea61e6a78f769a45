// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace jx::soak {

/// Counts what this process writes to the sockets of one server. The program defines `send`,
/// `sendto`, `sendmsg`, `write` and `writev` itself, so that the calls of libcurl and of its TLS
/// library are counted too. Also delays `fsync` and `fdatasync`, like a slow disk. All functions
/// are thread-safe.
namespace socketwrites {

struct Counts {
  std::uint64_t calls = 0;      ///< that wrote at least one byte
  std::uint64_t lateCalls = 0;  ///< of those, the ones that began while writing was forbidden
  std::uint64_t lateBytes = 0;  ///< the bytes that these wrote
  std::uint64_t crossing = 0;   ///< calls in progress when writing was forbidden
  std::uint64_t rejected = 0;   ///< late calls that wrote nothing, for example with EPIPE
};

/// Starts to count the writes to sockets that are connected to this port.
void watchPort(int port);
Counts counts();
/// Returns the counted calls of each function, for a report.
std::string describeCalls();

/// Calls that begin from now on are late.
void forbid();
/// Ends `forbid`.
void allow();

/// Delays each call by up to this time with a probability of 1 in 8, before it writes.
void delaySends(std::chrono::microseconds delay);
/// Delays each `fsync` and `fdatasync`.
void delaySyncs(std::chrono::milliseconds delay);
/// Waits until all calls of `fsync` and `fdatasync` that are in progress have returned.
void waitForSyncsInProgress();
/// Returns the number of calls of `fsync` and `fdatasync`.
std::uint64_t syncs();

}  // namespace socketwrites
}  // namespace jx::soak
