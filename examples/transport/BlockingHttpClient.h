// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <string>

/// Result of a POST.
struct HttpResponse {
  int status = 0;           ///< 0 without a response
  std::string retryAfter;   ///< value of the Retry-After header; empty without one
  std::string date;         ///< value of the Date header; empty without one
  std::string error;        ///< error message without a response
  bool invalidUrl = false;  ///< the URL can never be requested
};

/// Represents the HTTP client of an application: sends one POST of a JSON body over plain HTTP and
/// waits for the response, for at most `timeout`. It connects only to this device (localhost,
/// 127.0.0.1), because it has no TLS. Throws std::bad_alloc. Thread-safe.
HttpResponse postJson(const std::string& url, const std::string& body,
                      std::chrono::milliseconds timeout);
