// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXLocaleMoney.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace jx {
namespace {

std::optional<JXInstalledLocale> nothingInstalled(const JXString&) { return std::nullopt; }

JXInstalledLocaleLookup installed(const JXString& charset, const JXString& code,
                                  const JXString& symbol) {
  return [=](const JXString&) { return JXInstalledLocale{charset, code, symbol}; };
}

void expectMoney(const JXMoney& money, const JXString& code, const JXString& symbol) {
  EXPECT_EQ(money.code, code);
  EXPECT_EQ(money.symbol, symbol);
}

TEST(LocaleMoney, UsesTheTerritoryIfTheLocaleIsNotInstalled) {
  expectMoney(localeMoney({{"LANG", "fr_CA.UTF-8"}}, nothingInstalled), "CAD", "$");
  expectMoney(localeMoney({{"LANG", "en_GB"}}, nothingInstalled), "GBP", "£");
  expectMoney(localeMoney({{"LANG", "de_DE.UTF-8@euro"}}, nothingInstalled), "EUR", "€");
  expectMoney(localeMoney({{"LANG", "ja_JP.eucJP"}}, nothingInstalled), "JPY", "¥");
  expectMoney(localeMoney({{"LANG", "zh_Hans_CN"}}, nothingInstalled), "CNY", "¥");
}

TEST(LocaleMoney, PrefersLcAllOverLcMonetaryOverLang) {
  JXEnvironment environment{{"LC_ALL", "en_GB"}, {"LC_MONETARY", "de_CH"}, {"LANG", "en_US"}};
  expectMoney(localeMoney(environment, nothingInstalled), "GBP", "£");
  environment["LC_ALL"] = "";
  expectMoney(localeMoney(environment, nothingInstalled), "CHF", "CHF");
  environment.erase("LC_MONETARY");
  expectMoney(localeMoney(environment, nothingInstalled), "USD", "$");
}

TEST(LocaleMoney, IgnoresLcMessages) {
  expectMoney(localeMoney({{"LC_MESSAGES", "fr_FR"}}, nothingInstalled), nullptr, nullptr);
}

TEST(LocaleMoney, ReturnsNothingWithoutATerritory) {
  for (const char* name : {"C", "POSIX", "C.UTF-8", "", "eo", "es_419", "en_AQ", "en_QQ", "!!"}) {
    expectMoney(localeMoney({{"LANG", name}}, nothingInstalled), nullptr, nullptr);
  }
  expectMoney(localeMoney({}, nothingInstalled), nullptr, nullptr);
}

TEST(LocaleMoney, UsesTheInstalledLocale) {
  expectMoney(localeMoney({{"LANG", "de_DE.UTF-8"}}, installed("UTF-8", "DEM", "DM")), "DEM", "DM");
  expectMoney(localeMoney({{"LANG", "eo"}}, installed("UTF-8", "XDR", "¤")), "XDR", "¤");
}

TEST(LocaleMoney, LooksUpTheEffectiveLocaleName) {
  JXString asked;
  localeMoney({{"LC_MONETARY", "fr_CA.UTF-8"}, {"LANG", "en_US"}}, [&asked](const JXString& name) {
    asked = name;
    return std::nullopt;
  });
  EXPECT_EQ(asked, JXString("fr_CA.UTF-8"));
}

TEST(LocaleMoney, ReplacesASymbolInAnotherCharset) {
  expectMoney(localeMoney({{"LANG", "fr_FR@euro"}}, installed("ISO-8859-15", "EUR", "\xA4")), "EUR",
              "€");
  expectMoney(localeMoney({{"LANG", "en_US"}}, installed("ISO-8859-1", "USD", "$")), "USD", "$");
  expectMoney(localeMoney({{"LANG", "fr_FR"}}, installed("ISO-8859-1", "XTS", "\xA4")), "XTS",
              "XTS");
}

TEST(LocaleMoney, UsesTheTerritoryIfTheLocaleHasNoCurrency) {
  expectMoney(localeMoney({{"LANG", "en_GB"}}, installed("UTF-8", nullptr, nullptr)), "GBP", "£");
}

TEST(TerritoryMoney, KnowsRecentlyChangedCurrencies) {
  EXPECT_EQ(territoryMoney("HR").code, JXString("EUR"));
  EXPECT_EQ(territoryMoney("BG").code, JXString("EUR"));
  EXPECT_EQ(territoryMoney("CW").code, JXString("XCG"));
  EXPECT_EQ(territoryMoney("SL").code, JXString("SLE"));
  EXPECT_EQ(territoryMoney("VE").code, JXString("VES"));
  EXPECT_EQ(territoryMoney("ZW").code, JXString("ZWG"));
}

TEST(TerritoryMoney, AcceptsOnlyTwoUpperCaseLetters) {
  for (const char* text : {"", "G", "gb", "GBR", "ZZ", "00", "\xff\xff"}) {
    EXPECT_FALSE(territoryMoney(text).code.isPresent()) << text;
  }
}

TEST(TerritoryMoney, ReturnsCodeAndSymbolForEveryTerritory) {
  const std::string territories =
      "AD AE AF AG AI AL AM AO AR AS AT AU AW AX AZ BA BB BD BE BF BG BH BI BJ BL BM BN BO BQ BR "
      "BS BT BV BW BY BZ CA CC CD CF CG CH CI CK CL CM CN CO CR CU CV CW CX CY CZ DE DJ DK DM DO "
      "DZ EC EE EG EH ER ES ET FI FJ FK FM FO FR GA GB GD GE GF GG GH GI GL GM GN GP GQ GR GS GT "
      "GU GW GY HK HM HN HR HT HU ID IE IL IM IN IO IQ IR IS IT JE JM JO JP KE KG KH KI KM KN KP "
      "KR KW KY KZ LA LB LC LI LK LR LS LT LU LV LY MA MC MD ME MF MG MH MK ML MM MN MO MP MQ MR "
      "MS MT MU MV MW MX MY MZ NA NC NE NF NG NI NL NO NP NR NU NZ OM PA PE PF PG PH PK PL PM PN "
      "PR PS PT PW PY QA RE RO RS RU RW SA SB SC SD SE SG SH SI SJ SK SL SM SN SO SR SS ST SV SX "
      "SY SZ TC TD TF TG TH TJ TK TL TM TN TO TR TT TV TW TZ UA UG UM US UY UZ VA VC VE VG VI VN "
      "VU WF WS YE YT ZA ZM ZW";
  int count = 0;
  for (std::size_t i = 0; i < territories.size(); i += 3, ++count) {
    const std::string territory = territories.substr(i, 2);
    EXPECT_EQ(territoryMoney(territory).code.size(), 3U) << territory;
    EXPECT_TRUE(territoryMoney(territory).symbol.testString()) << territory;
  }
  EXPECT_EQ(count, 248);  // all except Antarctica
}

}  // namespace
}  // namespace jx
