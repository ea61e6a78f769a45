// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXHttpTarget.h"

#include <arpa/inet.h>
#include <curl/curl.h>
#include <netinet/in.h>

#include <new>

namespace jx {
namespace {

// `host` as libcurl writes it: lower case where it matters, IPv6 in brackets.
bool isLoopbackHost(const std::string& host) {
  if (host == "localhost") return true;
  in_addr four{};
  if (inet_pton(AF_INET, host.c_str(), &four) == 1) return (ntohl(four.s_addr) >> 24) == 127;
  if (host.size() < 2 || host.front() != '[') return false;
  in6_addr six{};
  const std::string bare = host.substr(1, host.size() - 2);
  return inet_pton(AF_INET6, bare.c_str(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}

}  // namespace

JXHttpTarget::~JXHttpTarget() { curl_url_cleanup(handle_); }

std::string JXHttpTarget::set(const std::string& url) {
  // Nearly every request goes to the same URL.
  if (handle_ != nullptr && url == text_) return refusal_;
  curl_url_cleanup(handle_);
  handle_ = curl_url();
  if (handle_ == nullptr) throw std::bad_alloc();
  text_ = url;
  refusal_ = judge();
  return refusal_;
}

std::string JXHttpTarget::judge() {
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
