// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::catalogue {

/// Generates the event reference as Markdown: the fields and required fields of every event class.
/// The contents are read from the field tables of the library and from the comments above the
/// classes in `sourceFolder`.
std::string cataloguePage(const std::string& sourceFolder);

}  // namespace jx::catalogue
