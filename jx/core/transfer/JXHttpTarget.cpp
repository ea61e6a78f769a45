// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXHttpTarget.h"

#include <curl/curl.h>

#include <new>
#include <string_view>

#include "jx/core/JXLoopback.h"

namespace jx {
namespace {

bool isHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// Returns whether the character can stand in a query value. '+' cannot, because servers read it as
// a blank. Control characters stay, so that libcurl rejects the URL.
bool isAllowedInQuery(unsigned char c) {
  return c < 0x20 || c == 0x7f ||
         (c < 0x7f && std::string_view(" \"#+<>[\\]^`{|}").find(static_cast<char>(c)) ==
                          std::string_view::npos);
}

// Percent-encodes the query, so that the server reads the source key that was configured. An escape
// that the application wrote itself ("%26") is kept.
std::string encodedQuery(const std::string& url) {
  constexpr char kDigits[] = "0123456789abcdef";
  const std::size_t begin = url.find('?');
  if (begin == std::string::npos) return url;
  std::string encoded = url.substr(0, begin + 1);
  for (std::size_t i = begin + 1; i < url.size(); ++i) {
    const auto c = static_cast<unsigned char>(url[i]);
    const bool isEscape =
        c == '%' && i + 2 < url.size() && isHexDigit(url[i + 1]) && isHexDigit(url[i + 2]);
    if (isEscape || (c != '%' && isAllowedInQuery(c))) {
      encoded += url[i];
    } else {
      encoded.append({'%', kDigits[c >> 4], kDigits[c & 15]});
    }
  }
  return encoded;
}

}  // namespace

JXHttpTarget::~JXHttpTarget() { curl_url_cleanup(handle_); }

std::string JXHttpTarget::set(const std::string& url) {
  // Nearly every request goes to the same URL.
  hasChanged_ = handle_ == nullptr || url != url_;
  if (!hasChanged_) return error_;
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
  const CURLUcode code =
      curl_url_set(handle_, CURLUPART_URL, encodedQuery(url_).c_str(), CURLU_URLENCODE);
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
