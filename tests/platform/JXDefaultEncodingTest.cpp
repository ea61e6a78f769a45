// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXDefaultEncoding.h"

#include <gtest/gtest.h>

#include <string>

namespace jx {
namespace {

std::optional<JXInstalledLocale> nothingInstalled(const JXString&) { return std::nullopt; }

std::uint32_t numberFor(const JXEnvironment& environment) {
  return defaultEncodingNumber(environment, nothingInstalled);
}

TEST(EncodingNumber, ReturnsTheNumberOfEveryListedCharset) {
  EXPECT_EQ(encodingNumber("ASCII"), 1U);
  EXPECT_EQ(encodingNumber("ANSI_X3.4-1968"), 1U);
  EXPECT_EQ(encodingNumber("NEXTSTEP"), 2U);
  EXPECT_EQ(encodingNumber("EUC-JP"), 3U);
  EXPECT_EQ(encodingNumber("UTF-8"), 4U);
  EXPECT_EQ(encodingNumber("ISO-8859-1"), 5U);
  EXPECT_EQ(encodingNumber("SYMBOL"), 6U);
  EXPECT_EQ(encodingNumber("SHIFT-JIS"), 8U);
  EXPECT_EQ(encodingNumber("ISO-8859-2"), 9U);
  EXPECT_EQ(encodingNumber("UTF-16"), 10U);
  EXPECT_EQ(encodingNumber("Windows-1251"), 11U);
  EXPECT_EQ(encodingNumber("CP1252"), 12U);
  EXPECT_EQ(encodingNumber("Windows-1253"), 13U);
  EXPECT_EQ(encodingNumber("Windows-1254"), 14U);
  EXPECT_EQ(encodingNumber("CP1250"), 15U);
  EXPECT_EQ(encodingNumber("ISO-2022-JP"), 21U);
  EXPECT_EQ(encodingNumber("MacRoman"), 30U);
  EXPECT_EQ(encodingNumber("UTF-32"), 0x8C000100U);
  EXPECT_EQ(encodingNumber("UTF-16BE"), 0x90000100U);
  EXPECT_EQ(encodingNumber("UTF-16LE"), 0x94000100U);
  EXPECT_EQ(encodingNumber("UTF-32BE"), 0x98000100U);
  EXPECT_EQ(encodingNumber("UTF-32LE"), 0x9C000100U);
}

TEST(EncodingNumber, IgnoresSpellingVariants) {
  for (const char* name : {"utf8", "UTF-8", "utf-8", "Utf_8"}) {
    EXPECT_EQ(encodingNumber(name), 4U) << name;
  }
  EXPECT_EQ(encodingNumber("iso88591"), 5U);
  EXPECT_EQ(encodingNumber("eucJP"), 3U);
  EXPECT_EQ(encodingNumber("SJIS"), 8U);
}

TEST(EncodingNumber, ReturnsZeroForUnknownCharsets) {
  for (const char* name : {"", "KOI8-R", "ISO-8859-15", "GB18030", "-", "\xff\xfe"}) {
    EXPECT_EQ(encodingNumber(name), 0U) << name;
  }
  EXPECT_EQ(encodingNumber("UTF-8" + std::string(10000, '8')), 0U);
}

TEST(DefaultEncoding, ReadsTheCharsetFromTheLocaleName) {
  EXPECT_EQ(numberFor({{"LANG", "fr_CA.UTF-8"}}), 4U);
  EXPECT_EQ(numberFor({{"LANG", "fr_CA.ISO-8859-1@x"}}), 5U);
  EXPECT_EQ(numberFor({{"LANG", "C.UTF-8"}}), 4U);
  EXPECT_EQ(numberFor({{"LANG", "ru_RU.KOI8-R"}}), 0U);
}

TEST(DefaultEncoding, PrefersLcAllOverLcCtypeOverLang) {
  JXEnvironment environment{
      {"LC_ALL", "ja_JP.eucJP"}, {"LC_CTYPE", "ja_JP.SJIS"}, {"LANG", "ja_JP.UTF-8"}};
  EXPECT_EQ(numberFor(environment), 3U);
  environment["LC_ALL"] = "";
  EXPECT_EQ(numberFor(environment), 8U);
  environment.erase("LC_CTYPE");
  EXPECT_EQ(numberFor(environment), 4U);
}

TEST(DefaultEncoding, ReturnsAsciiForTheCLocaleAndForNoLocale) {
  EXPECT_EQ(numberFor({{"LANG", "C"}}), 1U);
  EXPECT_EQ(numberFor({{"LC_ALL", "POSIX"}}), 1U);
  EXPECT_EQ(numberFor({{"LANG", ""}}), 1U);
  EXPECT_EQ(numberFor({}), 1U);
}

TEST(DefaultEncoding, UsesTheInstalledLocaleForANameWithoutCharset) {
  const auto latin1 = [](const JXString& name) {
    EXPECT_EQ(name, JXString("fr_FR"));
    return JXInstalledLocale{"ISO-8859-1", nullptr, nullptr};
  };
  EXPECT_EQ(defaultEncodingNumber({{"LANG", "fr_FR"}}, latin1), 5U);
  EXPECT_EQ(numberFor({{"LANG", "fr_FR"}}), 0U);
}

TEST(InstalledLocale, FindsTheCLocaleWithoutACurrency) {
  const auto found = findInstalledLocale("C");
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(encodingNumber(found->charset.view()), 1U);
  EXPECT_EQ(found->currencyCode, JXString());
  EXPECT_EQ(found->currencySymbol, JXString());
}

TEST(InstalledLocale, RejectsMalformedNames) {
  for (const char* name :
       {"", "xx_YY.UTF-8", "../../etc/passwd", "/etc", "fr_CA:en", "\xff", "C/.."}) {
    EXPECT_FALSE(findInstalledLocale(name).has_value()) << name;
  }
  EXPECT_FALSE(findInstalledLocale(JXString()).has_value());
  EXPECT_FALSE(findInstalledLocale(JXString(std::string(10000, 'C'))).has_value());
  EXPECT_FALSE(findInstalledLocale(JXString("C." + std::string(10000, 'C'))).has_value());
}

}  // namespace
}  // namespace jx
