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
  if (handle_ != nullptr && url == text_) return refusal_;
  curl_url_cleanup(handle_);
  handle_ = curl_url();
  if (handle_ == nullptr) throw std::bad_alloc();
  text_ = url;
  refusal_ = validate();
  return refusal_;
}

std::string JXHttpTarget::validate() {
  isLoopback_ = false;
  // A NUL would hide the end of the URL from libcurl.
  if (text_.find('\0') != std::string::npos) return "the URL holds a NUL";
  const CURLUcode code = curl_url_set(handle_, CURLUPART_URL, text_.c_str(), CURLU_URLENCODE);
  if (code == CURLUE_OUT_OF_MEMORY) throw std::bad_alloc();
  if (code != CURLUE_OK) return std::string("the URL is invalid: ") + curl_url_strerror(code);
  isLoopback_ = isLoopbackHost(part(CURLUPART_HOST));
  const std::string scheme = part(CURLUPART_SCHEME);
  if (scheme == "https" || (scheme == "http" && isLoopback_)) return {};
  return "requests go out by https only, not by " + scheme;
}

std::string JXHttpTarget::part(int which) const {
  char* text = nullptr;
  curl_url_get(handle_, static_cast<CURLUPart>(which), &text, 0);
  if (text == nullptr) return {};
  std::string copy(text);
  curl_free(text);
  return copy;
}

}  // namespace jx
