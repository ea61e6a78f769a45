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

/// Where the demonstration sends.
struct DemoTarget {
  std::string address;  ///< "https://127.0.0.1:8443"
  std::string caFile;
  std::filesystem::path stateFolder;
};

/// What was played.
struct DemoPlayed {
  std::vector<std::string> eventIds;       ///< of what went out, in order of execution
  std::vector<std::string> permanentKeys;  ///< that events carried
  std::uint64_t ignored = 0;               ///< executed without consent, and not taken
};

/// Plays the script through the library, at times of day that end about now. Each event is
/// delivered before the next is executed, as far as it may leave, so that they arrive in order.
/// Ends early when `isCancelled`. A line of the script that is none is a failure. Once in a
/// process.
Result<DemoPlayed> playDemo(std::string_view script, const DemoTarget& target,
                            const std::function<bool()>& isCancelled);

}  // namespace jx
