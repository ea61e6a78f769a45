// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXPublicKeyPin.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(PublicKeyPin, AcceptsTheBase64FormOf32Bytes) {
  EXPECT_TRUE(isPublicKeyPin("47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU="));
  EXPECT_TRUE(isPublicKeyPin("AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA="));
}

TEST(PublicKeyPin, RejectsAnyOtherString) {
  for (const char* string : {
           "",
           "=",
           "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU",           // no padding
           "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuF==",          // 31 bytes
           "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFV=",          // extra bits
           "47DEQpj8HBSa-_TImW-5JCeuQeRkm5NMpJWZG3hSuFU=",          // URL-safe alphabet
           "sha256//47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=",  // libcurl's prefix
           "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855",
       }) {
    EXPECT_FALSE(isPublicKeyPin(string)) << string;
  }
}

}  // namespace
}  // namespace jx
