// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jx {

using HeaderList = std::vector<std::pair<std::string, std::string>>;

/// Serialises headers as a JSON array of {"name": ..., "value": ...}, which preserves duplicates.
/// Bytes that are not UTF-8 become U+FFFD.
std::string headersToJson(const HeaderList& headers);

/// Parses the output of headersToJson(). Skips entries of any other form.
HeaderList headersFromJson(std::string_view json);

}  // namespace jx
