// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace jx {

/// Formatting of terminal output. Colours are used only on a terminal and only if the environment
/// variable NO_COLOR is not set; lines are as wide as the terminal.
struct TerminalStyle {
  bool coloured = false;
  std::size_t width = 100;

  /// Returns the style for standard output.
  static TerminalStyle ofStandardOutput();

  std::string bold(std::string_view text) const { return wrapped("1", text); }
  std::string dim(std::string_view text) const { return wrapped("2", text); }
  std::string success(std::string_view text) const { return wrapped("32", text); }
  std::string failure(std::string_view text) const { return wrapped("31", text); }

 private:
  std::string wrapped(std::string_view code, std::string_view text) const;
};

}  // namespace jx
