// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace jx::bench {

/// The `main` of a benchmark: calls `run` with the command-line arguments and returns its status.
/// Prints an exception to standard error and returns 1.
inline int runProgram(const char* name, int argc, char** argv,
                      int (*run)(const std::vector<std::string>& words)) {
  try {
    return run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", name, error.what());
    return 1;
  }
}

}  // namespace jx::bench
