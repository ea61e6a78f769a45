// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx::catalogue {

/// What the header of a class says about it.
struct ClassComment {
  std::string header;  ///< path from the source folder
  std::string text;    ///< the comment above the class, in one line
};

/// Finds the header `<className>.h` below jx/events and reads the comment above its class. Throws
/// when there is none, so that no page goes out with a hole in it.
ClassComment commentOfClass(const std::string& sourceFolder, std::string_view className);

}  // namespace jx::catalogue
