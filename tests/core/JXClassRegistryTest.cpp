// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXClassRegistry.h"

#include <gtest/gtest.h>

#include <string_view>

#include "jx/platform/JXRunTimeClasses.h"

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

TEST(JXClassRegistry, FindsClassesOfTheRunTime) {
  JXClassRegistry& registry = JXClassRegistry::sharedInstance();
  JXRunTimeClasses::setLookup([](const char* name) { return std::string_view(name) == "Module"; });
  EXPECT_TRUE(registry.hasClass("Module"));
  EXPECT_FALSE(registry.hasClass("Other"));
  registry.unregisterClass("Module");
  EXPECT_TRUE(registry.hasClass("Module"));
  JXRunTimeClasses::setLookup(nullptr);
  EXPECT_FALSE(registry.hasClass("Module"));
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
