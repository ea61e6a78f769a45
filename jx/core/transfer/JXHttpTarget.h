// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

struct Curl_URL;  // libcurl's handle of a parsed URL

namespace jx {

/// A parsed URL that requests may be posted to: https to any host, http only to the device itself
/// ("localhost", 127.0.0.0/8, ::1). libcurl connects to the URL that is validated here.
class JXHttpTarget {
 public:
  JXHttpTarget() = default;
  ~JXHttpTarget();
  JXHttpTarget(const JXHttpTarget&) = delete;
  JXHttpTarget& operator=(const JXHttpTarget&) = delete;

  /// Parses and validates `url`. Percent-encodes the characters that a query value cannot contain,
  /// `#` and blanks included, because a source key may contain them. Returns an error message;
  /// empty when the URL is valid. Throws std::bad_alloc.
  std::string set(const std::string& url);
  /// Returns whether the last `set` changed the URL.
  bool hasChanged() const { return hasChanged_; }
  /// Returns whether the host is the device itself.
  bool isLoopback() const { return isLoopback_; }
  /// Returns the parsed URL, valid until the next `set`.
  Curl_URL* handle() const { return handle_; }

 private:
  std::string validate();
  std::string part(int which) const;

  Curl_URL* handle_ = nullptr;
  std::string url_;
  std::string error_;
  bool isLoopback_ = false;
  bool hasChanged_ = false;
};

}  // namespace jx
