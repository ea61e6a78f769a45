// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx {

/// A plain TCP connection to 127.0.0.1 for invalid client behaviour. Use it on one thread; waits
/// for at most 30 seconds.
class RawConnection {
 public:
  explicit RawConnection(int port);
  ~RawConnection();
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  bool isOpen() const { return fd_ >= 0; }
  /// Returns false when the other side no longer accepts data.
  bool send(std::string_view bytes);
  /// Reads until `mark` is received or the connection ends.
  std::string readUntil(std::string_view mark);
  /// Reads until the other side closes the connection.
  std::string readToEnd();
  /// Returns whether the last read ended because the other side closed, not because of the timeout.
  bool sawEnd() const { return sawEnd_; }

 private:
  int fd_;
  bool sawEnd_ = false;
};

}  // namespace jx
