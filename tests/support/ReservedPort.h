// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx::test {

/// Reserves a port of 127.0.0.1 on which no server listens. A server that sets SO_REUSEADDR may
/// listen on it during the lifetime of this object. Throws when no port is available.
class ReservedPort {
 public:
  ReservedPort();
  ~ReservedPort();
  ReservedPort(const ReservedPort&) = delete;
  ReservedPort& operator=(const ReservedPort&) = delete;

  int number() const { return number_; }

 private:
  int socket_;
  int number_ = 0;
};

}  // namespace jx::test
