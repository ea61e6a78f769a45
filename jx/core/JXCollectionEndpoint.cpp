// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCollectionEndpoint.h"

#include <string>
#include <string_view>

#include "jx/core/JXLoopback.h"

namespace jx {
namespace {

constexpr std::string_view kHttps = "https://";
constexpr std::string_view kHttp = "http://";

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string_view hostOf(std::string_view authority) {
  const std::size_t user = authority.rfind('@');
  if (user != std::string_view::npos) authority.remove_prefix(user + 1);
  if (!authority.empty() && authority.front() == '[') {
    return authority.substr(0, authority.find(']') + 1);
  }
  return authority.substr(0, authority.find(':'));
}

// Nothing but a host and what may stand beside it. Everything that URL parsers read in different
// ways is refused, so that what is taken for loopback here is what is connected to later.
bool isAuthority(std::string_view authority) {
  for (const char c : authority) {
    if (static_cast<unsigned char>(c) <= ' ' || c == 0x7F || c == '\\') return false;
  }
  return !hostOf(authority).empty();
}

// The text behind "http://" or "https://", in capitals or not; the whole when neither is there.
struct Stated {
  bool isHttps = false;
  bool isHttp = false;
  std::string_view authority;
  std::string_view behind;  // a path, query or fragment

  explicit Stated(std::string_view text) {
    isHttps = lowerCase(text.substr(0, kHttps.size())) == kHttps;
    isHttp = lowerCase(text.substr(0, kHttp.size())) == kHttp;
    if (isHttps) text.remove_prefix(kHttps.size());
    if (isHttp) text.remove_prefix(kHttp.size());
    authority = text.substr(0, text.find_first_of("/?#"));
    behind = text.substr(authority.size());
  }
  bool namesHost() const {
    // "ftp://host" without its scheme is a host named "ftp" with an empty port.
    const bool isOtherScheme = !isHttp && !isHttps && startsWith(behind, "//");
    return isAuthority(authority) && !isOtherScheme;
  }
  bool hasPath() const { return behind.find_first_not_of('/') != std::string_view::npos; }
};

}  // namespace

bool isLoopbackAuthority(std::string_view authority) {
  if (!isAuthority(authority) || authority.find_first_of("/?#") != std::string_view::npos) {
    return false;
  }
  return isLoopbackHost(hostOf(authority));
}

JXCollectionEndpoint JXCollectionEndpoint::from(const JXString& stated, const JXString& fallback) {
  JXCollectionEndpoint endpoint;
  const Stated parts(stated.view());
  if (!parts.namesHost()) {
    endpoint.url = std::string(kHttps).append(Stated(fallback.view()).authority);
    if (stated.isPresent()) {
      endpoint.remark = "The collection host \"" + stated.toStdString() +
                        "\" names no host; events go to " + endpoint.url.toStdString();
      endpoint.remarkLevel = 3;
    }
    return endpoint;
  }
  const bool staysHttp = parts.isHttp && isLoopbackAuthority(parts.authority);
  endpoint.url = std::string(staysHttp ? kHttp : kHttps).append(parts.authority);
  if (parts.isHttp && !staysHttp) {
    endpoint.remark = "Plain http is refused beyond loopback; events go to " +
                      endpoint.url.toStdString() + " instead";
    endpoint.remarkLevel = 3;
  } else if (parts.hasPath()) {
    endpoint.remark = "Only the host of \"" + stated.toStdString() + "\" counts; events go to " +
                      endpoint.url.toStdString();
    endpoint.remarkLevel = 3;
  } else if (!parts.isHttps && !parts.isHttp) {
    endpoint.remark = "The collection host \"" + stated.toStdString() +
                      "\" names no scheme; events go to " + endpoint.url.toStdString();
    endpoint.remarkLevel = 4;
  }
  return endpoint;
}

}  // namespace jx
