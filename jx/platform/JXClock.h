// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/platform/JXApi.h"

namespace jx {

/// Where the library reads the time of day. Called on any thread, so an implementation is
/// thread-safe. Waiting and back-off never use it: they follow the system's steady clock, which a
/// clock that is set forward or back does not move.
class JX_API JXClock {
 public:
  virtual ~JXClock() = default;

  /// Milliseconds since the Unix epoch. May jump in either direction between two calls.
  virtual std::int64_t nowMs() const = 0;
};

/// The system's time of day.
class JX_API JXSystemClock final : public JXClock {
 public:
  std::int64_t nowMs() const override;
};

}  // namespace jx
