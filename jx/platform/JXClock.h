// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/platform/JXApi.h"

namespace jx {

/// Source of the time of day; an application or a test replaces it with
/// `JXCoreConfiguration::clock`. Called on any thread, so implementations must be thread-safe, and
/// while the library holds locks, so they must not call the library. They must not throw. The
/// library shares ownership of the clock until the process ends and never destroys it.
///
/// Timeouts and retry delays do not use it: they use the steady clock of the system, which is not
/// affected by changes of the system time. The age of queued events uses `systemMs`.
class JX_API JXClock {
 public:
  virtual ~JXClock() = default;

  /// Returns milliseconds since the Unix epoch. May jump in either direction between two calls.
  virtual std::int64_t nowMs() const = 0;

  /// Returns milliseconds since the start of the system, or since any other moment that stays the
  /// same until the system is restarted, including the time in which it sleeps. Never decreases
  /// while the system runs. The default is the clock of the system.
  virtual std::int64_t systemMs() const;

  /// Returns a number below 2^24 that changes when the system is restarted; 0 if it is unknown. The
  /// default implementation uses an ID of the system.
  virtual std::uint32_t systemStart() const;
};

/// The time of day of the system.
class JX_API JXSystemClock final : public JXClock {
 public:
  std::int64_t nowMs() const override;
};

}  // namespace jx
