// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx::test {

/// A port of 127.0.0.1 at which nobody listens, kept from being given to others. A server that sets
/// SO_REUSEADDR may listen at it while this object lives. Throws when there is none.
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
