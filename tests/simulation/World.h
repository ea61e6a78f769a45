// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "jx/core/JXOutboxBounds.h"
#include "tests/simulation/Ledger.h"
#include "tests/simulation/Random.h"
#include "tests/simulation/StandardLibrary.h"
#include "tests/simulation/VirtualClock.h"
#include "tests/simulation/VirtualDisk.h"

namespace jx::simulation {

/// How the network and the servers behave at the moment.
struct Network {
  bool isOffline = false;
  bool isHostDead[2] = {false, false};
  bool failsOnEverything = false;
  int retryAfterSeconds = 0;  ///< of failures, 0: none
  int lostResponses = 0;      ///< in percent
  bool isRepaired = false;    ///< nothing is poisonous any more
};

/// Everything that the parts of one life share.
struct World {
  explicit World(std::uint64_t seedOfLife) : seed(seedOfLife), random(seedOfLife) {
    drawFrom(&random);
  }

  /// Notes what the life has shown to be wrong; the first finding counts.
  void violated(const std::string& rule) {
    if (violation.empty()) violation = rule;
    if (isVerbose)
      std::printf("%12lld VIOLATED: %s\n", static_cast<long long>(clock->steadyMs()), rule.c_str());
  }
  template <typename... Parts>
  void say(const char* format, Parts... parts) {
    if (!isVerbose) return;
    std::printf("%12lld ", static_cast<long long>(clock->steadyMs()));
    std::printf(format, parts...);
    std::printf("\n");
  }

  /// Returns the content of the mark of an erase on the disk; empty if there is none.
  std::string eraseMark() {
    std::string mark;
    disk.visitFiles(folder, [&](const std::string& path, const std::string& content) {
      if (path == folder + "/erased") mark = content;
    });
    return mark;
  }

  /// Returns whether an event is so old that the library may have dropped it.
  bool mayExpire(const Event& event) const {
    return clock->steadyMs() - event.executedMs > bounds.maxAge.count();
  }

  const std::uint64_t seed;
  Random random;
  std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
  VirtualDisk disk{random, *clock};
  Ledger ledger;
  Network network;
  JXOutboxBounds bounds;
  std::string folder = "/tv/jx";
  int flushes = 0;
  std::string violation;
  bool eraseIsPending = false;  ///< a process died while it erased
  bool interleaves = false;     ///< other processes run during the calls of a process
  bool isVerbose = false;
};

}  // namespace jx::simulation
