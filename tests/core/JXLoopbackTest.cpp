// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXLoopback.h"

#include <gtest/gtest.h>

#include <string>

namespace jx {
namespace {

using namespace std::string_view_literals;

TEST(Loopback, AcceptsEverySpellingOfLoopbackHosts) {
  for (const std::string_view host : {"localhost"sv, "LocalHost"sv, "127.0.0.1"sv,
                                      "127.255.255.254"sv, "[::1]"sv, "[0:0:0:0:0:0:0:1]"sv}) {
    EXPECT_TRUE(isLoopbackHost(host)) << host;
  }
}

TEST(Loopback, RejectsHostsThatOnlyLookLikeLoopback) {
  for (const std::string_view host :
       {""sv, "localhost.example.com"sv, "127.example.com"sv, "127.1"sv, "0177.0.0.1"sv,
        "127.0.0.256"sv, "127.0.0.1.1"sv, "126.0.0.1"sv, "128.0.0.1"sv, "::1"sv, "[::2]"sv,
        "[::1"sv, "[]"sv, "["sv, "localhost\0.example.com"sv, "127.0.0.1\0x"sv}) {
    EXPECT_FALSE(isLoopbackHost(host)) << host;
  }
}

}  // namespace
}  // namespace jx
