// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace jx {

/// Parses the header section of an HTTP response line by line and counts the bytes of the body. The
/// body is not kept: only the status, Date and Retry-After are used.
class JXHttpResponseParser {
 public:
  static constexpr std::size_t kMaxBytes = 64 * 1024;

  /// Parses one header line, line end included; interim responses may precede the final one.
  /// Returns false when more than `kMaxBytes` were received in total; stop reading then.
  bool readHeader(std::string_view line);
  /// Counts `bytes` of the body; returns false as `readHeader` does.
  bool readBody(std::size_t bytes);

  /// Returns the status of the final response once its header section is complete; 0 until then.
  int status() const { return status_; }
  /// Returns whether the protocol of the response is HTTP/2 or later.
  bool isMultiplexed() const { return isMultiplexed_; }
  /// Returns the value of the Retry-After header; empty when there is none.
  const std::string& retryAfter() const { return retryAfter_; }
  /// Returns the value of the Date header; empty when there is none.
  const std::string& date() const { return date_; }

 private:
  std::size_t bytes_ = 0;
  int currentStatus_ = 0;  // of the header section that is being read
  int status_ = 0;
  bool isMultiplexed_ = false;
  std::string retryAfter_;
  std::string date_;
};

}  // namespace jx
