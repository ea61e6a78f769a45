// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace jx {

/// A request as the client sent it.
struct HttpRequest {
  std::string method;
  std::string path;
  std::string query;  ///< of the request target, without the question mark
  std::string body;
  std::string contentType;
  std::string userAgent;
  std::string requestId;  ///< X-Request-ID, or ""
  bool keepsAlive = true;
};

/// Reads the requests of one connection. Boost.Beast parses them, because it rejects what two
/// servers in a row could read as different requests: contradictory lengths, line feeds without a
/// carriage return, blanks before a colon. This class adds the limits, and rejects a request
/// without a host, and one with a transfer encoding: televisions and proxies send the length of a
/// body.
class HttpReader {
 public:
  /// `maxHead` limits the request line and the headers, `maxBody` the body, in bytes. `maxHead`
  /// must be at most 64,000, because the parser cannot store a longer header.
  HttpReader(std::size_t maxHead, std::size_t maxBody);
  ~HttpReader();
  HttpReader(const HttpReader&) = delete;
  HttpReader& operator=(const HttpReader&) = delete;

  enum class Progress {
    Idle,      ///< no byte of the next request has been read
    Head,      ///< inside the head
    Body,      ///< inside the body
    Complete,  ///< `take` returns the request
    Rejected,  ///< `status` is the response; the connection must be closed after it
  };
  /// Reads more bytes. Bytes behind a complete request are kept for the next one: call this with ""
  /// after `take`.
  Progress read(std::string_view bytes);
  Progress progress() const { return progress_; }
  /// Returns the request and begins with the next one. Requires `Complete`.
  HttpRequest take();
  /// Returns true once if the client waits for "100 Continue" before it sends the body.
  bool takeExpectation();
  /// The status of the rejection: 400, 411, 413, 431 or 505.
  int status() const { return status_; }
  /// X-Request-ID of the request whose head was read last, or "".
  const std::string& requestId() const { return requestId_; }
  /// Bytes of memory for the request that is being read.
  std::size_t heldBytes() const;

 private:
  class Parser;

  Progress parse(std::string_view bytes);
  bool readHead(std::string_view& bytes);
  Progress reject(int status);

  const std::size_t maxHead_;
  const std::size_t maxBody_;
  std::unique_ptr<Parser> parser_;  // null between requests, because most connections are idle
  std::string kept_;                // bytes that are not parsed yet
  Progress progress_ = Progress::Idle;
  std::string requestId_;
  int status_ = 0;
};

}  // namespace jx
