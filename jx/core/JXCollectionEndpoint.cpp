// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCollectionEndpoint.h"

#include <string>
#include <string_view>

namespace jx {
namespace {

constexpr std::string_view kHttps = "https://";
constexpr std::string_view kHttp = "http://";

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::string_view hostOf(std::string_view authority) {
  // What stands behind the authority is no part of it, whatever it looks like.
  authority = authority.substr(0, authority.find_first_of("/?#\\"));
  const std::size_t user = authority.rfind('@');
  if (user != std::string_view::npos) authority.remove_prefix(user + 1);
  if (!authority.empty() && authority.front() == '[') {
    return authority.substr(0, authority.find(']') + 1);
  }
  return authority.substr(0, authority.find(':'));
}

// "127.", then digits and dots that make three more numbers: "127.example.com" is a name.
bool isLoopbackIPv4(std::string_view host) {
  if (!startsWith(host, "127.")) return false;
  int numbers = 1;
  int digits = 0;
  for (const char c : host.substr(4)) {
    if (c >= '0' && c <= '9') {
      if (++digits > 3) return false;
    } else if (c == '.' && digits > 0) {
      ++numbers;
      digits = 0;
    } else {
      return false;
    }
  }
  return numbers == 3 && digits > 0;
}

}  // namespace

bool isLoopbackAuthority(std::string_view authority) {
  const std::string_view host = hostOf(authority);
  return host == "localhost" || host == "[::1]" || isLoopbackIPv4(host);
}

JXCollectionEndpoint JXCollectionEndpoint::from(const JXString& stated, const JXString& fallback) {
  JXCollectionEndpoint endpoint;
  std::string_view rest = stated.view();
  const bool isHttps = startsWith(rest, kHttps);
  const bool isHttp = startsWith(rest, kHttp);
  if (isHttps) rest.remove_prefix(kHttps.size());
  if (isHttp) rest.remove_prefix(kHttp.size());
  while (!rest.empty() && rest.back() == '/')
    rest.remove_suffix(1);

  if (hostOf(rest).empty()) {
    endpoint.url = std::string(kHttps) + fallback.toStdString();
    if (stated.isPresent()) {
      endpoint.remark = "The collection host \"" + stated.toStdString() +
                        "\" names no host; events go to " + endpoint.url.toStdString();
      endpoint.remarkLevel = 3;
    }
    return endpoint;
  }
  if (isHttp && isLoopbackAuthority(rest)) {
    endpoint.url = std::string(kHttp).append(rest);
    return endpoint;
  }
  endpoint.url = std::string(kHttps).append(rest);
  if (isHttp) {
    endpoint.remark = "Plain http is refused beyond loopback; events go to " +
                      endpoint.url.toStdString() + " instead";
    endpoint.remarkLevel = 3;
  } else if (!isHttps) {
    endpoint.remark = "The collection host \"" + stated.toStdString() +
                      "\" names no scheme; events go to " + endpoint.url.toStdString();
    endpoint.remarkLevel = 4;
  }
  return endpoint;
}

}  // namespace jx
