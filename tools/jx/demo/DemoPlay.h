// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/jx/Result.h"

namespace jx {

/// The collector that receives the demo events.
struct DemoTarget {
  std::string address;  ///< "https://127.0.0.1:8443"
  std::string caFile;
  std::filesystem::path stateFolder;
};

/// The result of the demo.
struct DemoPlayed {
  std::vector<std::string> eventIds;       ///< IDs of the events sent, in order of execution
  std::vector<std::string> permanentKeys;  ///< keys of the permanent parameters
  std::uint64_t ignored = 0;               ///< events executed without consent, which were ignored
};

/// Runs the script through the library, with a clock that ends at about the current time. Each
/// event is delivered before the next one is executed (unless delivery is blocked), so that events
/// arrive in order. Returns early when `isCancelled` returns true. Returns an error for an invalid
/// line. Call it once per process.
Result<DemoPlayed> playDemo(std::string_view script, const DemoTarget& target,
                            const std::function<bool()>& isCancelled);

}  // namespace jx
