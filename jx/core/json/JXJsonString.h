// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string_view>

#include "jx/platform/JXStringBuilder.h"

namespace jx {

// A text as a JSON string: between quotes, with a backslash before what may not stand there as it
// is, and with the replacement character for each part that is not UTF-8.

/// How long the string is.
std::size_t lengthOfJsonString(std::string_view text);
/// The same, no less than that, and without looking at the text: no byte becomes more than six.
constexpr std::size_t longestJsonString(std::string_view text) { return 2 + 6 * text.size(); }
void appendJsonString(std::string_view text, JXStringBuilder& out);

}  // namespace jx
