// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace jx {

/// A JSON text in which each number that may be beyond a double is replaced by a 0: the parser
/// refuses such a number even when it is asked for its digits only, while the library writes any.
struct TextWithoutLargeNumbers {
  std::string text;
  /// For each number of the text, in order: the digits that stood there when they were replaced,
  /// else nothing.
  std::deque<std::string_view> replaced;

  /// `text` must outlive the result. What is no number by JSON's grammar is left for the parser to
  /// refuse.
  static TextWithoutLargeNumbers of(std::string_view text);
};

}  // namespace jx
