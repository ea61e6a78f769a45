// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCollectionEndpoint.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace jx {
namespace {

JXCollectionEndpoint from(const JXString& stated) {
  return JXCollectionEndpoint::from(stated, "fallback.example");
}

TEST(JXCollectionEndpoint, NothingStatedIsTheFallbackWithoutAWord) {
  EXPECT_EQ(from(nullptr).url, JXString("https://fallback.example"));
  EXPECT_FALSE(from(nullptr).remark.isPresent());
}

TEST(JXCollectionEndpoint, TakesHostsWithTheirPort) {
  const std::pair<const char*, const char*> cases[] = {
      {"https://collect.example.com", "https://collect.example.com"},
      {"https://collect.example.com:8443", "https://collect.example.com:8443"},
      {"https://collect.example.com/", "https://collect.example.com"},
      {"https://collect.example.com///", "https://collect.example.com"},
      {"https://[2001:db8::1]:8443", "https://[2001:db8::1]:8443"},
      {"collect.example.com", "https://collect.example.com"},
      {"collect.example.com:8443", "https://collect.example.com:8443"},
      {"127.0.0.1:8443", "https://127.0.0.1:8443"}};
  for (const auto& [stated, url] : cases)
    EXPECT_EQ(from(stated).url, JXString(url)) << stated;
  EXPECT_FALSE(from("https://collect.example.com:8443").remark.isPresent());
}

TEST(JXCollectionEndpoint, ASchemeMayBeWrittenInCapitals) {
  EXPECT_EQ(from("HTTPS://collect.example.com").url, JXString("https://collect.example.com"));
  EXPECT_EQ(from("Http://collect.example.com").url, JXString("https://collect.example.com"));
  EXPECT_EQ(from("HTTP://127.0.0.1:80").url, JXString("http://127.0.0.1:80"));
}

TEST(JXCollectionEndpoint, PlainHttpIsTakenForLoopbackOnly) {
  for (const char* stated : {"http://127.0.0.1", "http://127.0.0.1:8080", "http://localhost:8080",
                             "http://[::1]:8080", "http://127.1.2.3"}) {
    EXPECT_EQ(from(stated).url, JXString(stated));
    EXPECT_FALSE(from(stated).remark.isPresent()) << stated;
  }
  for (const char* host :
       {"collect.example.com", "collect.example.com:80", "localhost.example.com", "127.example.com",
        "127.0.0.1.example.com", "10.0.0.1", "[2001:db8::1]", "0.0.0.0", "128.0.0.1"}) {
    const JXCollectionEndpoint endpoint = from(std::string("http://") + host);
    EXPECT_EQ(endpoint.url, JXString(std::string("https://") + host));
    EXPECT_TRUE(endpoint.remark.isPresent()) << host;
    EXPECT_EQ(endpoint.remarkLevel, 3) << host;
  }
}

TEST(JXCollectionEndpoint, ALoopbackHostElsewhereInTheUrlDoesNotOpenPlainHttp) {
  for (const char* stated : {"http://evil.example/@127.0.0.1", "http://evil.example#@127.0.0.1",
                             "http://evil.example?@localhost", "http://evil.example\\@127.0.0.1",
                             "http://127.0.0.1@evil.example", "http://127.0.0.1:80@evil.example",
                             "http://localhost:x@evil.example", "http://evil.example/127.0.0.1"}) {
    EXPECT_EQ(from(stated).url.view().substr(0, 8), "https://") << stated;
  }
}

TEST(JXCollectionEndpoint, WhatStandsBehindTheHostIsCutWithARemark) {
  for (const char* stated :
       {"https://collect.example.com/events", "https://collect.example.com?a=b",
        "https://collect.example.com#top", "collect.example.com/a/b/"}) {
    const JXCollectionEndpoint endpoint = from(stated);
    EXPECT_EQ(endpoint.url, JXString("https://collect.example.com")) << stated;
    EXPECT_TRUE(endpoint.remark.isPresent()) << stated;
  }
}

TEST(JXCollectionEndpoint, WhatNamesNoHostGivesTheFallbackAndAWarning) {
  for (const char* stated : {"", "/", "https://", "http://", "https:///", "http:///path", ":8443",
                             "https://:8443", "ftp://collect.example.com", "file:///etc/passwd",
                             "[::1", "two words", "https://line\nbreak", "\\\\server"}) {
    const JXCollectionEndpoint endpoint = from(stated);
    EXPECT_EQ(endpoint.url, JXString("https://fallback.example")) << stated;
    EXPECT_TRUE(endpoint.remark.isPresent()) << stated;
    EXPECT_EQ(endpoint.remarkLevel, 3) << stated;
  }
}

TEST(JXCollectionEndpoint, LoopbackIsLocalhostAndTwoAddressRanges) {
  for (const char* authority : {"localhost", "LOCALHOST", "localhost:1", "127.0.0.1",
                                "127.255.255.254:65535", "[::1]", "[::1]:443"}) {
    EXPECT_TRUE(isLoopbackAuthority(authority)) << authority;
  }
  for (const char* authority :
       {"", "localhost.", "localhost.example", "127", "127.0.0", "127.0.0.1.1", "127.0.0.",
        "127..0.1", "127.0.0.256", "127.0.0.1a", "1127.0.0.1", "::1", "[::2]", "[::1", "example"}) {
    EXPECT_FALSE(isLoopbackAuthority(authority)) << authority;
  }
}

}  // namespace
}  // namespace jx
