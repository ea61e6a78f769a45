// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

#include "PlaybackTranslator.h"
#include "PlayerChange.h"

// Prints the changes that the player reported and the resulting events, with the seconds since the
// start. Positions, which are reported for each frame, are printed only with an event.
class Report {
 public:
  Report();
  void add(const PlayerChange& change, const PlaybackTranslator::Events& events) const;

 private:
  std::chrono::steady_clock::time_point start_;
};
