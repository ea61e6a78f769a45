// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

#include "PlaybackTranslator.h"
#include "PlayerChange.h"

// Prints what the player reported beside the events that were made of it, a line each, with the
// seconds since the start. Positions are printed when they mean something only.
class Report {
 public:
  Report();
  void add(const PlayerChange& change, const PlaybackTranslator::Events& events) const;

 private:
  std::chrono::steady_clock::time_point start_;
};
