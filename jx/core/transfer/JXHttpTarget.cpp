// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXHttpTarget.h"

#include <curl/curl.h>

#include <new>

#include "jx/core/JXLoopback.h"

namespace jx {

JXHttpTarget::~JXHttpTarget() { curl_url_cleanup(handle_); }

std::string JXHttpTarget::set(const std::string& url) {
  // Nearly every request goes to the same URL.
  if (handle_ != nullptr && url == url_) return error_;
  curl_url_cleanup(handle_);
  handle_ = curl_url();
  if (handle_ == nullptr) throw std::bad_alloc();
  url_ = url;
  error_ = validate();
  return error_;
}

std::string JXHttpTarget::validate() {
  isLoopback_ = false;
  // libcurl would ignore everything after a NUL byte.
  if (url_.find('\0') != std::string::npos) return "URL must not contain a NUL byte";
  const CURLUcode code = curl_url_set(handle_, CURLUPART_URL, url_.c_str(), CURLU_URLENCODE);
  if (code == CURLUE_OUT_OF_MEMORY) throw std::bad_alloc();
  if (code != CURLUE_OK) return std::string("invalid URL: ") + curl_url_strerror(code);
  isLoopback_ = isLoopbackHost(part(CURLUPART_HOST));
  const std::string scheme = part(CURLUPART_SCHEME);
  if (scheme == "https" || (scheme == "http" && isLoopback_)) return {};
  return "URL scheme must be https, not " + scheme;
}

std::string JXHttpTarget::part(int which) const {
  char* part = nullptr;
  curl_url_get(handle_, static_cast<CURLUPart>(which), &part, 0);
  if (part == nullptr) return {};
  std::string copy(part);
  curl_free(part);
  return copy;
}

}  // namespace jx
