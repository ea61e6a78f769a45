// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::catalogue {

/// The page that tells people what every event class writes and what makes it complete, as
/// Markdown. Everything in it is read from the library's own tables and from the comments above the
/// classes in `sourceFolder`.
std::string cataloguePage(const std::string& sourceFolder);

}  // namespace jx::catalogue
