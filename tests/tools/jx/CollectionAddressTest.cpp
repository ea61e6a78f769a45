// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/CollectionAddress.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(CollectionAddress, AcceptsHttpsForAnyHost) {
  for (const char* address :
       {"https://collect.example.com", "https://collect.example.com/", "https://a-b_c.example:8443",
        "https://192.168.1.20:1", "https://[2001:db8::1]:65535", "https://localhost"}) {
    EXPECT_EQ(collectionAddressError(address), "") << address;
  }
}

TEST(CollectionAddress, AcceptsHttpOnlyForLoopbackHosts) {
  for (const char* address : {"http://127.0.0.1:80", "http://localhost", "http://[::1]:8080/"}) {
    EXPECT_EQ(collectionAddressError(address), "") << address;
  }
  for (const char* address : {"http://collect.example.com", "http://192.168.1.20:8080",
                              "http://127.example.com", "http://[2001:db8::1]"}) {
    EXPECT_EQ(collectionAddressError(address), "http:// is allowed only for loopback hosts")
        << address;
  }
}

TEST(CollectionAddress, RejectsInvalidUrls) {
  for (const char* address :
       {"", "collect.example.com", "ftp://example.com", "HTTPS://example.com", "https:/x", "//x"}) {
    EXPECT_EQ(collectionAddressError(address), "the URL must begin with https:// or http://")
        << address;
  }
  for (const char* address :
       {"https://", "https:///", "https://:8443", "https://a/events", "https://a?x", "https://a b",
        "https://user@host", "https://[::1", "https://[x]", "https://-a", "https://a#b"}) {
    EXPECT_EQ(collectionAddressError(address),
              "the URL must contain a valid host name and nothing after the port")
        << address;
  }
  for (const char* address : {"https://a:", "https://a:0", "https://a:65536", "https://a:8x",
                              "https://a:-1", "https://a:1:2", "https://[::1]:"}) {
    EXPECT_EQ(collectionAddressError(address), "the port must be between 1 and 65535") << address;
  }
}

}  // namespace
}  // namespace jx
