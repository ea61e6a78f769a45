// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace jx {

/// Reads the head of an HTTP answer line by line, and counts what follows. The content itself is
/// not kept: nothing but the status and Retry-After matters.
class JXHttpResponseParser {
 public:
  static constexpr std::size_t kMostBytes = 64 * 1024;

  /// Takes one line of the head, its line end included; heads of interim answers may come before.
  /// False when more than `kMostBytes` have come altogether, and no more is to be read.
  bool readHeader(std::string_view line);
  /// Takes so many bytes of the content; false as above.
  bool readBody(std::size_t bytes);

  /// Status of the final answer once its head is complete; 0 until then.
  int status() const { return status_; }
  /// Value of its Retry-After, empty when there is none.
  const std::string& retryAfter() const { return retryAfter_; }

 private:
  std::size_t bytes_ = 0;
  int statusOfThisHead_ = 0;
  int status_ = 0;
  std::string retryAfter_;
};

}  // namespace jx
