// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXPublicKeyPin.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(PublicKeyPin, IsTheBase64TextOf32Bytes) {
  EXPECT_TRUE(isPublicKeyPin("47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU="));
  EXPECT_TRUE(isPublicKeyPin("AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA="));
}

TEST(PublicKeyPin, IsNoOtherText) {
  for (const char* text : {
           "",
           "=",
           "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU",           // no end
           "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuF==",          // 31 bytes
           "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFV=",          // 32 bytes and a bit
           "47DEQpj8HBSa-_TImW-5JCeuQeRkm5NMpJWZG3hSuFU=",          // the alphabet of URLs
           "sha256//47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=",  // another's form
           "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855",
       }) {
    EXPECT_FALSE(isPublicKeyPin(text)) << text;
  }
}

}  // namespace
}  // namespace jx
