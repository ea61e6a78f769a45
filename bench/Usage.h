// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/resource.h>

#include "bench/Ready.h"

namespace jx::bench {

/// Elapsed time, and processor time of all threads of this process, in ms.
struct Usage {
  double wholeMs = 0;
  double processorMs = 0;

  static Usage now() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    const auto ms = [](const timeval& time) {
      return static_cast<double>(time.tv_sec) * 1'000 + static_cast<double>(time.tv_usec) / 1'000;
    };
    return {static_cast<double>(monotonicNs()) / 1'000'000, ms(used.ru_utime) + ms(used.ru_stime)};
  }
  Usage operator-(const Usage& before) const {
    return {wholeMs - before.wholeMs, processorMs - before.processorMs};
  }
};

}  // namespace jx::bench
