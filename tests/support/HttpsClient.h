// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <curl/curl.h>

#include <string>
#include <vector>

namespace jx {

/// An HTTP client that reuses its connection. Use it on one thread.
class HttpsClient {
 public:
  struct Response {
    CURLcode error = CURLE_OK;  ///< reason when there is no response
    long status = 0;
    std::string headers;
    std::string body;
    long newConnections = 0;  ///< connections opened for this request
  };

  /// Trusts servers with a certificate signed by an authority in `caFile`.
  explicit HttpsClient(std::string caFile = {});
  ~HttpsClient();
  HttpsClient(const HttpsClient&) = delete;
  HttpsClient& operator=(const HttpsClient&) = delete;

  Response get(const std::string& url, const std::vector<std::string>& headers = {});
  Response post(const std::string& url, const std::string& body,
                const std::vector<std::string>& headers = {});
  Response request(const std::string& method, const std::string& url, const std::string& body,
                   const std::vector<std::string>& headers = {});
  /// Resolves `host` to 127.0.0.1 for `port`.
  void pointAtLoopback(const std::string& host, int port);

 private:
  std::string caFile_;
  CURL* handle_;
  curl_slist* resolved_ = nullptr;
};

}  // namespace jx
