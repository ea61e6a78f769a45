// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace jx {

/// How text may look where it goes: colours on a terminal only, and never when the environment
/// variable NO_COLOR is set; lines as wide as the terminal.
struct TerminalStyle {
  bool coloured = false;
  std::size_t width = 100;

  /// What suits standard output.
  static TerminalStyle ofStandardOutput();

  std::string bold(std::string_view text) const { return wrapped("1", text); }
  std::string dim(std::string_view text) const { return wrapped("2", text); }
  std::string good(std::string_view text) const { return wrapped("32", text); }
  std::string bad(std::string_view text) const { return wrapped("31", text); }

 private:
  std::string wrapped(std::string_view code, std::string_view text) const;
};

}  // namespace jx
