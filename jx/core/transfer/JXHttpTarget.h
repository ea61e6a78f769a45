// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

struct Curl_URL;  // libcurl's handle of a parsed URL

namespace jx {

/// A parsed URL that may be posted to: https to any host, http only to the device itself
/// ("localhost", 127.0.0.0/8, ::1). What is judged here is what libcurl then connects to.
class JXHttpTarget {
 public:
  JXHttpTarget() = default;
  ~JXHttpTarget();
  JXHttpTarget(const JXHttpTarget&) = delete;
  JXHttpTarget& operator=(const JXHttpTarget&) = delete;

  /// Parses `url`. A blank and bytes beyond ASCII are percent-encoded, since a host's key may hold
  /// them. Returns what forbids posting to it, empty when nothing does. Throws std::bad_alloc.
  std::string set(const std::string& url);
  /// True when the host is the device itself.
  bool isLoopback() const { return isLoopback_; }
  /// The parsed URL, valid until the next `set`.
  Curl_URL* handle() const { return handle_; }

 private:
  std::string validate();
  std::string part(int which) const;

  Curl_URL* handle_ = nullptr;
  std::string text_;
  std::string refusal_;
  bool isLoopback_ = false;
};

}  // namespace jx
