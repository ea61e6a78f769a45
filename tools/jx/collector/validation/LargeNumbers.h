// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace jx {

/// A JSON document in which each number that may exceed the range of a double is replaced by 0. The
/// parser rejects such numbers even when it only returns their digits, but the library can write
/// them.
struct TextWithoutLargeNumbers {
  std::string text;
  /// One entry per number, in document order: the original digits of a replaced number, empty for
  /// other numbers. Refers to the input.
  std::deque<std::string_view> replaced;

  /// Replaces the large numbers in `text`, which must outlive the result. Does not change digits
  /// that are not a number in the JSON grammar, so that the parser rejects them.
  static TextWithoutLargeNumbers of(std::string_view text);
};

}  // namespace jx
