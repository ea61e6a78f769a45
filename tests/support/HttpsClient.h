// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <curl/curl.h>

#include <string>
#include <vector>

namespace jx {

/// An HTTP client that keeps its connection from one request to the next. Used by one thread.
class HttpsClient {
 public:
  struct Response {
    CURLcode error = CURLE_OK;  ///< why there is no answer
    long status = 0;
    std::string headers;
    std::string body;
    long newConnections = 0;  ///< how many this request had to make
  };

  /// Servers are trusted when `caFile` vouches for them.
  explicit HttpsClient(std::string caFile = {});
  ~HttpsClient();
  HttpsClient(const HttpsClient&) = delete;
  HttpsClient& operator=(const HttpsClient&) = delete;

  Response get(const std::string& url, const std::vector<std::string>& headers = {});
  Response post(const std::string& url, const std::string& body,
                const std::vector<std::string>& headers = {});
  Response request(const std::string& method, const std::string& url, const std::string& body,
                   const std::vector<std::string>& headers = {});
  /// Resolves a host name to 127.0.0.1 on this port.
  void pointAtLoopback(const std::string& host, int port);

 private:
  std::string caFile_;
  CURL* handle_;
  curl_slist* resolved_ = nullptr;
};

}  // namespace jx
