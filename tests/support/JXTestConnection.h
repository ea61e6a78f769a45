// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "tests/support/JXTestAuthority.h"

namespace jx::test {

/// A request that a server has read whole.
struct JXTestRequest {
  std::string method;
  std::string target;                          ///< what follows the method: path and query
  std::map<std::string, std::string> headers;  ///< names in lower case
  std::string body;
  int connection = 0;  ///< number of the connection it came by, from 1
  int status = 0;      ///< what the server was to answer; 0 when it gave no whole head
};

/// One accepted connection, with or without TLS. Belongs to the thread that serves it; the
/// descriptor is the caller's.
class JXTestConnection {
 public:
  JXTestConnection(int descriptor, JXOpenSsl<SSL> tls);

  bool handshake();
  bool write(std::string_view bytes);
  /// Nothing when the client has gone.
  std::optional<JXTestRequest> readRequest();
  /// Returns when the client has gone.
  void waitForEnd();
  /// Waits for `ms`, shorter when the client sends or goes.
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
