// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jx {

using HeaderList = std::vector<std::pair<std::string, std::string>>;

/// Headers as a JSON array of {"name": ..., "value": ...}, which keeps those that come twice. Bytes
/// that are not UTF-8 become U+FFFD.
std::string headersToJson(const HeaderList& headers);

/// The other way round; what does not have that shape is left out.
HeaderList headersFromJson(std::string_view json);

}  // namespace jx
