// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

namespace jx {

/// One file of the inspector web UI, embedded by the build from tools/jx/collector/page.
struct PageFile {
  std::string_view name;  ///< "index.html"
  std::string_view content;
};

/// Returns all files, sorted by name. EmbedPage.cmake generates the source of this function.
const std::vector<PageFile>& pageFiles();

/// Returns the media type for the extension of a file name.
const char* contentTypeOf(std::string_view fileName);

}  // namespace jx
