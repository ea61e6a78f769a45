// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXClassRegistry.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(JXClassRegistry, FindsRegisteredNames) {
  JXClassRegistry& registry = JXClassRegistry::sharedInstance();
  EXPECT_FALSE(registry.hasClass("JXMobileConsent"));
  registry.registerClass("JXMobileConsent");
  registry.registerClass("JXMobileConsent");
  EXPECT_TRUE(registry.hasClass("JXMobileConsent"));
  EXPECT_FALSE(registry.hasClass("jxmobileconsent"));
  EXPECT_FALSE(registry.hasClass("JXMobile"));
  registry.unregisterClass("JXMobileConsent");
  EXPECT_FALSE(registry.hasClass("JXMobileConsent"));
  registry.unregisterClass("JXMobileConsent");
}

TEST(JXClassRegistry, IgnoresNullAndEmptyNames) {
  JXClassRegistry& registry = JXClassRegistry::sharedInstance();
  registry.registerClass(nullptr);
  registry.registerClass("");
  EXPECT_FALSE(registry.hasClass(nullptr));
  EXPECT_FALSE(registry.hasClass(""));
  registry.unregisterClass(nullptr);
}

}  // namespace
}  // namespace jx
