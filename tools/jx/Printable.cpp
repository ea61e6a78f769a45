// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/Printable.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

constexpr std::size_t kQuotedWidth = 60;
constexpr std::string_view kEllipsis = "\u2026";

bool startsCodePoint(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

std::size_t widthOf(std::string_view text) {
  std::size_t width = 0;
  for (const char byte : text)
    width += startsCodePoint(byte) ? 1 : 0;
  return width;
}

}  // namespace

std::string asOneLine(std::string_view text) {
  std::string line = withReplacementCharacters(text);
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto byte = static_cast<unsigned char>(line[i]);
    if (byte < 0x20 || byte == 0x7F) line[i] = ' ';
    // Some terminals interpret U+0080 to U+009F as the start of a control sequence.
    if (byte == 0xC2 && i + 1 < line.size() && static_cast<unsigned char>(line[i + 1]) < 0xA0) {
      line.replace(i, 2, " ");
    }
  }
  return line;
}

std::string shortened(std::string_view text, std::size_t width) {
  if (widthOf(text) <= width || width == 0) return std::string(text);
  std::size_t kept = 0;
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (startsCodePoint(text[end]) && ++kept == width) break;
  }
  return std::string(text.substr(0, end)).append(kEllipsis);
}

std::string padded(std::string_view text, std::size_t width) {
  const std::size_t own = widthOf(text);
  return std::string(text) + std::string(own < width ? width - own : 0, ' ');
}

std::string quoted(std::string_view text) {
  std::string quotedText = "\"";
  quotedText += shortened(asOneLine(text), kQuotedWidth);
  return quotedText += '"';
}

std::string asIsoTime(std::int64_t ms) {
  std::int64_t second = ms / 1000;
  std::int64_t milli = ms % 1000;
  if (milli < 0) {
    milli += 1000;
    --second;
  }
  std::tm parts{};
  const std::time_t time = second;
  constexpr int kYearOffset = 1900;
  const bool isInCalendar = ::gmtime_r(&time, &parts) != nullptr;
  const int year = isInCalendar ? parts.tm_year + kYearOffset : -1;
  // The format has four digits for the year.
  if (year < 0 || year > 9999) return std::to_string(ms);
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", year,
                parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                static_cast<int>(milli));
  return text.data();
}

}  // namespace jx
