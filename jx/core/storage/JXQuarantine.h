// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXFrame.h"

namespace jx {

/// How many set-aside files a folder keeps; the oldest go first. They are there for whoever looks
/// into a fault, and must not fill a small disk.
constexpr std::size_t kJXMaxSetAside = 8;

/// Copies damaged places of `file` into a new file beside `path`, named after it and the first
/// damaged offset. When there is one of that name and `replaces` is false, nothing is copied: the
/// same damage was met before. `copied` tells which. Returns an errno value, 0 for success.
int quarantine(const JXFile& file, const std::string& path, const std::vector<JXDamage>& damages,
               bool replaces, bool& copied);

/// True for the name of a set-aside file.
bool isSetAsideName(const std::string& name);

/// Deletes the set-aside files of a folder. Returns an errno value, 0 for success; a folder that is
/// missing has none.
int removeQuarantinedFiles(const std::string& folder);

}  // namespace jx
