// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/CollectionAddress.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(CollectionAddress, HttpsToAnyHostIsRight) {
  for (const char* address :
       {"https://collect.example.com", "https://collect.example.com/", "https://a-b_c.example:8443",
        "https://192.168.1.20:1", "https://[2001:db8::1]:65535", "https://localhost"}) {
    EXPECT_EQ(faultOfCollectionAddress(address), "") << address;
  }
}

TEST(CollectionAddress, HttpIsForLoopbackOnly) {
  for (const char* address : {"http://127.0.0.1:80", "http://localhost", "http://[::1]:8080/"}) {
    EXPECT_EQ(faultOfCollectionAddress(address), "") << address;
  }
  for (const char* address : {"http://collect.example.com", "http://192.168.1.20:8080",
                              "http://127.example.com", "http://[2001:db8::1]"}) {
    EXPECT_EQ(faultOfCollectionAddress(address), "plain http is for this very machine only")
        << address;
  }
}

TEST(CollectionAddress, AnythingElseIsRefused) {
  for (const char* address :
       {"", "collect.example.com", "ftp://example.com", "HTTPS://example.com", "https:/x", "//x"}) {
    EXPECT_EQ(faultOfCollectionAddress(address), "it begins neither with https:// nor with http://")
        << address;
  }
  for (const char* address :
       {"https://", "https:///", "https://:8443", "https://a/events", "https://a?x", "https://a b",
        "https://user@host", "https://[::1", "https://[x]", "https://-a", "https://a#b"}) {
    EXPECT_EQ(faultOfCollectionAddress(address), "it names no host") << address;
  }
  for (const char* address : {"https://a:", "https://a:0", "https://a:65536", "https://a:8x",
                              "https://a:-1", "https://a:1:2", "https://[::1]:"}) {
    EXPECT_EQ(faultOfCollectionAddress(address), "its port is none from 1 to 65535") << address;
  }
}

}  // namespace
}  // namespace jx
