// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "tests/support/JXTestAuthority.h"

namespace jx::test {

/// A request that a server has read completely.
struct JXTestRequest {
  std::string method;
  std::string target;                          ///< path and query
  std::map<std::string, std::string> headers;  ///< names in lower case
  std::string body;
  int connection = 0;  ///< index of its connection, from 1
  int status = 0;      ///< status of the response; 0 without a complete header section
};

/// An accepted connection, with or without TLS. Belongs to the thread that serves it; the caller
/// owns the descriptor.
class JXTestConnection {
 public:
  JXTestConnection(int descriptor, JXOpenSsl<SSL> tls);

  bool handshake();
  bool write(std::string_view bytes);
  /// Reads a request; returns nothing when the client has closed the connection.
  std::optional<JXTestRequest> readRequest();
  /// Returns when the client has closed the connection.
  void waitForEnd();
  /// Waits for `ms`, or until the client sends data or closes the connection.
  void pace(int ms) const;
  void resetAtClose() const;

 private:
  bool readMore();
  std::optional<std::string> readLine();

  const int descriptor_;
  const JXOpenSsl<SSL> tls_;
  std::string buffer_;
};

}  // namespace jx::test
