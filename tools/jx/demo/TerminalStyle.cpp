// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/TerminalStyle.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>

namespace jx {
namespace {

std::string_view environment(const char* name) {
  const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): never set
  return value == nullptr ? std::string_view() : std::string_view(value);
}

}  // namespace

TerminalStyle TerminalStyle::ofStandardOutput() {
  TerminalStyle style;
  if (::isatty(STDOUT_FILENO) != 1) return style;
  style.coloured = environment("NO_COLOR").empty() && environment("TERM") != "dumb";
  winsize size{};
  constexpr unsigned short kNarrow = 60;
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col >= kNarrow) {
    style.width = size.ws_col;
  }
  return style;
}

std::string TerminalStyle::wrapped(std::string_view code, std::string_view text) const {
  if (!coloured) return std::string(text);
  return "\033[" + std::string(code) + "m" + std::string(text) + "\033[0m";
}

}  // namespace jx
