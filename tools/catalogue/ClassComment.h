// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx::catalogue {

/// The documentation comment of a class.
struct ClassComment {
  std::string header;  ///< path relative to the source folder
  std::string text;    ///< the comment above the class, as one line
};

/// Finds the header `<className>.h` in jx/events and returns the comment above its class. Throws if
/// there is none, so that no class is published without documentation.
ClassComment commentOfClass(const std::string& sourceFolder, std::string_view className);

}  // namespace jx::catalogue
