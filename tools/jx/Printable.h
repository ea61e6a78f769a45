// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace jx {

/// Returns the text as one line that is safe to print on a terminal: control characters become
/// spaces, and invalid UTF-8 becomes the replacement character.
std::string asOneLine(std::string_view text);
/// Returns the UTF-8 text truncated to `width` code points; a truncated text ends with an ellipsis.
std::string shortened(std::string_view text, std::size_t width);
/// Returns the text padded with spaces to `width` code points.
std::string padded(std::string_view text, std::size_t width);
/// Returns the text in quotation marks as one line, truncated for use in a message.
std::string quoted(std::string_view text);
/// Returns a time as "2026-01-02T03:04:05.678Z"; the number of milliseconds for a year outside 0
/// to 9999.
std::string asIsoTime(std::int64_t ms);

}  // namespace jx
