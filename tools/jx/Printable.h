// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace jx {

/// The text as one line that a terminal shows and does not obey: control characters become blanks,
/// bytes that are not UTF-8 the replacement character.
std::string asOneLine(std::string_view text);
/// At most `width` characters of the text, the last an ellipsis when some had to go. Counts code
/// points. The text is UTF-8.
std::string shortened(std::string_view text, std::size_t width);
/// Fills up with blanks to `width` code points.
std::string padded(std::string_view text, std::size_t width);
/// One line in quotation marks, shortened to what suits a message.
std::string quoted(std::string_view text);
/// "2026-01-02T03:04:05.678Z"; the number itself for a time beyond the calendar.
std::string asIsoTime(std::int64_t ms);

}  // namespace jx
