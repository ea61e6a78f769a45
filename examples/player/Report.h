// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

#include "PlaybackTranslator.h"
#include "PlayerChange.h"

// Prints what the player reported beside the events that were made of it, with the seconds since
// the start. A position, one for each picture of the film, is printed if an event came of it.
class Report {
 public:
  Report();
  void add(const PlayerChange& change, const PlaybackTranslator::Events& events) const;

 private:
  std::chrono::steady_clock::time_point start_;
};
