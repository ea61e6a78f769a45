// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

namespace jx {

/// One file of the inspector's page, as the build found it in tools/jx/collector/page.
struct PageFile {
  std::string_view name;  ///< "index.html"
  std::string_view content;
};

/// In order of name. Its source is written by the build (EmbedPage.cmake).
const std::vector<PageFile>& pageFiles();

/// By the ending of the name.
const char* contentTypeOf(std::string_view fileName);

}  // namespace jx
