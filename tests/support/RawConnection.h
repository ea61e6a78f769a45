// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx {

/// A plain TCP connection to 127.0.0.1, for what a well-behaved client never says. Used by one
/// thread; waits for at most half a minute.
class RawConnection {
 public:
  explicit RawConnection(int port);
  ~RawConnection();
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  bool isOpen() const { return fd_ >= 0; }
  /// False when the other side does not take it any more.
  bool send(std::string_view bytes);
  /// Reads until `mark` has come, or the connection ends.
  std::string readUntil(std::string_view mark);
  /// Reads until the other side closes the connection.
  std::string readToEnd();
  /// True when the last reading ended because the other side closed, not because time was up.
  bool sawEnd() const { return sawEnd_; }

 private:
  int fd_;
  bool sawEnd_ = false;
};

}  // namespace jx
