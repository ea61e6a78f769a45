// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Variables that describe the system and the application.

#include <gtest/gtest.h>

#include <limits>

#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXTextEncoding.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using Family = JXInterfaceAddress::Family;

const LogLine kNoLanguage{5, "Unable to get local language data"};
const LogLine kNoCurrency{5, "Unable to getData currency code "};

class Environment : public ServerSideFixture {
 protected:
  static JXPredefinedVariables& variables() { return JXPredefinedVariables::sharedInstance(); }
  JXString persisted(const std::string& key) { return platform->defaults.objectForKey(key); }
};

struct Tag {
  std::vector<JXString> languages;
  const char* language;
  const char* region;
  bool isLogged;
};

class LanguageTag : public Environment, public ::testing::WithParamInterface<Tag> {};

TEST_P(LanguageTag, IsSplitAtItsHyphens) {
  platform->languages = GetParam().languages;
  start();
  variables();
  EXPECT_EQ(variable("#JX_LANGUAGE#"), JXString(GetParam().language));
  EXPECT_EQ(variable("#JX_REGION#"), JXString(GetParam().region));
  EXPECT_EQ(count(kNoLanguage), GetParam().isLogged ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Each, LanguageTag,
    ::testing::Values(Tag{{"en-GB"}, "en", "GB", false}, Tag{{"fr-CA"}, "fr", "CA", false},
                      Tag{{"zh-Hans-CN"}, "zh", "Hans", false}, Tag{{"en"}, "-", "-", true},
                      Tag{{"fr-CA", "en"}, "fr", "CA", false}, Tag{{"en", "fr-CA"}, "-", "-", true},
                      Tag{{""}, "-", "-", true}, Tag{{}, "-", "-", true},
                      Tag{{JXString()}, "-", "-", true}, Tag{{"en-"}, "en", "", false},
                      Tag{{"-GB"}, "", "GB", false}, Tag{{"en_GB"}, "-", "-", true}));

struct Encoding {
  std::uint32_t number;
  const char* name;
};

class TextEncoding : public Environment, public ::testing::WithParamInterface<Encoding> {};

TEST_P(TextEncoding, HasItsName) {
  EXPECT_EQ(nameOfTextEncoding(GetParam().number), GetParam().name);
  platform->encoding = GetParam().number;
  start();
  EXPECT_EQ(variables().getDefaultEncoding(), JXString(GetParam().name));
  EXPECT_EQ(variable("#JX_CHARSET#"), JXString(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(
    Each, TextEncoding,
    ::testing::Values(Encoding{1, "ASCII"}, Encoding{2, "NEXTSTEP"}, Encoding{3, "EUC-JP"},
                      Encoding{4, "UTF-8"}, Encoding{5, "ISO-8859-1"}, Encoding{6, "SYMBOL"},
                      Encoding{7, "ASCII"}, Encoding{8, "SHIFT-JIS"}, Encoding{9, "ISO-8859-2"},
                      Encoding{10, "UTF-16"}, Encoding{11, "Windows-1251"},
                      Encoding{12, "Windows-1252"}, Encoding{13, "Windows-1253"},
                      Encoding{14, "Windows-1254"}, Encoding{15, "Windows-1250"},
                      Encoding{21, "ISO-2022-JP"}, Encoding{30, "MacRoman"},
                      Encoding{0x8C000100, "UTF-32"}, Encoding{0x90000100, "UTF-16BE"},
                      Encoding{0x94000100, "UTF-16LE"}, Encoding{0x98000100, "UTF-32BE"},
                      Encoding{0x9C000100, "UTF-32LE"}));

TEST(TextEncodingName, IsUtf8ForUnknownNumbers) {
  for (std::uint32_t number = 16; number < 100; ++number) {
    if (number != 21 && number != 30) {
      EXPECT_EQ(nameOfTextEncoding(number), "UTF-8") << number;
    }
  }
  for (const std::uint32_t number : {0u, 0x80000100u, 0x8C000101u, 0xFFFFFFFFu})
    EXPECT_EQ(nameOfTextEncoding(number), "UTF-8") << number;
}

struct Points {
  double width;
  double height;
  const char* widthString;
  const char* heightString;
};

class Screen : public Environment, public ::testing::WithParamInterface<Points> {};

TEST_P(Screen, IsTruncatedTowardZero) {
  platform->screen = {GetParam().width, GetParam().height};
  start();
  variables();
  EXPECT_EQ(variable("#JX_SCREEN_WIDTH#"), JXString(GetParam().widthString));
  EXPECT_EQ(variable("#JX_SCREEN_HEIGHT#"), JXString(GetParam().heightString));
}

INSTANTIATE_TEST_SUITE_P(
    Each, Screen,
    ::testing::Values(Points{1920, 1080, "1920", "1080"}, Points{1920.9, 1079.5, "1920", "1079"},
                      Points{0, 0, "0", "0"}, Points{-0.9, -1.9, "0", "-1"},
                      Points{std::numeric_limits<double>::quiet_NaN(), 1e300, "0", "2147483647"}));

TEST_F(Environment, StoresHyphenAndLogsIfLocaleHasNoCurrency) {
  platform->currency = nullptr;
  platform->symbol = "?";
  start();
  variables();
  EXPECT_EQ(variable("#JX_CURRENCY_CODE#"), JXString("-"));
  EXPECT_EQ(variable("#JX_CURRENCY_SYMBOL#"), JXString("?"));
  EXPECT_EQ(count(kNoCurrency), 1u);
}

TEST_F(Environment, StoresHyphenForEmptyCurrencyAndReturnsItAsRead) {
  platform->currency = "";
  platform->symbol = "";
  start();
  EXPECT_EQ(variables().currencyCode(), JXString(""));
  EXPECT_EQ(variables().currencySymbol(), JXString(""));
  EXPECT_EQ(variable("#JX_CURRENCY_CODE#"), JXString("-"));
  EXPECT_EQ(variable("#JX_CURRENCY_SYMBOL#"), JXString("")) << "stored unchanged";
  EXPECT_EQ(count(kNoCurrency), 2u) << "once at the start, once in currencyCode";
}

TEST_F(Environment, CurrencyQueriesReadStoreAndReturnNewValues) {
  start();
  variables();
  platform->currency = "EUR";
  platform->symbol = "\xE2\x82\xAC";
  EXPECT_EQ(variable("#JX_CURRENCY_CODE#"), JXString("GBP"));
  EXPECT_EQ(variables().currencyCode(), JXString("EUR"));
  EXPECT_EQ(variables().currencySymbol(), JXString("\xE2\x82\xAC"));
  EXPECT_EQ(variable("#JX_CURRENCY_CODE#"), JXString("EUR"));
  EXPECT_EQ(variable("#JX_CURRENCY_SYMBOL#"), JXString("\xE2\x82\xAC"));
}

TEST_F(Environment, LeavesVariablesUnsetIfSystemReturnsNull) {
  platform->bundle = {};
  platform->model = nullptr;
  platform->osName = nullptr;
  platform->osVersion = nullptr;
  platform->machine = nullptr;
  platform->symbol = nullptr;
  start();
  variables();
  for (const char* key :
       {"#JX_APPLICATION_BUILD#", "#JX_DEVICE#", "#JX_SYSNAME#", "#JX_SYSVERSION#", "#JX_MODEL#",
        "#JX_BUNDLE_IDENTIFIER#", "#JX_CURRENCY_SYMBOL#"})
    EXPECT_FALSE(variable(key).isPresent()) << key;
  EXPECT_EQ(variable("#JX_APPLICATION_NAME#"), JXString("(unknown)"));
  EXPECT_EQ(variable("#JX_APPLICATION_VERSION#"), JXString(""));
  EXPECT_EQ(variable("#JX_MANUFACTURER#"), JXString("Apple"));
  EXPECT_EQ(variable("#JX_RUNTIME_NAME#"), JXString("tvos"));
  EXPECT_EQ(variable("#JX_NORVANE_VERSION#"), JXString("5.4.5"));
}

TEST_F(Environment, ReplacesEmptyNameWithUnknownAndKeepsEmptyBuild) {
  platform->bundle.name = "";
  platform->bundle.version = "";
  start();
  variables();
  EXPECT_EQ(variable("#JX_APPLICATION_NAME#"), JXString("(unknown)"));
  EXPECT_EQ(variable("#JX_APPLICATION_BUILD#"), JXString(""));
}

TEST_F(Environment, MarksModifiedDevice) {
  platform->deviceModified = true;
  start();
  variables();
  EXPECT_EQ(variable("#JX_JAILBROKEN#"), JXString("1"));
}

TEST_F(Environment, LeavesApplicationVariablesUnset) {
  start();
  variables();
  for (const char* key :
       {"#JX_SCREEN#", "#JX_LATITUDE#", "#JX_LONGITUDE#", "#JX_BACKGROUND_UX_TIME#",
        "#JX_DELTA_BACKGROUND_UX_TIME#", "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#"})
    EXPECT_FALSE(variable(key).isPresent()) << key;
}

class ApplicationVersion : public Environment {};

TEST_F(ApplicationVersion, WithoutItEveryStartIsTheFirstVisit) {
  for (const JXString& none : {JXString(), JXString("")}) {
    platform->bundle.shortVersion = none;
    platform->defaults.preset("jx_date_first_visit", "1600000000");
    start();
    variables().reinit();
    EXPECT_EQ(variable("#JX_APPLICATION_VERSION#"), JXString(""));
    EXPECT_FALSE(variable("#JX_VERSION_FIRST_VISIT_MS#").isPresent());
    EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("TRUE"));
    EXPECT_FALSE(persisted("#JX_APPLICATION_VERSION#").isPresent());
    EXPECT_FALSE(persisted("#JX_VERSION_FIRST_VISIT_MS#").isPresent());
  }
}

TEST_F(ApplicationVersion, MissingLaterKeepsFirstVisitOfTheLastVersion) {
  platform->defaults.preset("#JX_APPLICATION_VERSION#", "1.0");
  platform->defaults.preset("#JX_VERSION_FIRST_VISIT_MS#", "1600000000000");
  platform->bundle.shortVersion = nullptr;
  start();
  variables();
  EXPECT_EQ(variable("#JX_APPLICATION_VERSION#"), JXString(""));
  EXPECT_EQ(variable("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1600000000000"));
  EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("FALSE"));
}

TEST_F(ApplicationVersion, OfFirstKnownRunIsStoredWithItsTime) {
  start();
  variables();
  EXPECT_EQ(persisted("#JX_APPLICATION_VERSION#"), JXString("1.0"));
  EXPECT_EQ(variable("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1700000000000"));
  EXPECT_FALSE(persisted("#JX_APPLICATION_PREVIOUS_VERSION#").isPresent());
}

TEST_F(ApplicationVersion, UpdateStoresPreviousVersionAndNewFirstVisit) {
  platform->defaults.preset("#JX_APPLICATION_VERSION#", "1.0");
  platform->defaults.preset("#JX_VERSION_FIRST_VISIT_MS#", "1600000000000");
  platform->bundle.shortVersion = "1.1";
  start();
  variables();
  EXPECT_EQ(variable("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1700000000000"));
  EXPECT_EQ(persisted("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1700000000000"));
  EXPECT_EQ(persisted("#JX_APPLICATION_PREVIOUS_VERSION#"), JXString("1.0"));
  EXPECT_EQ(persisted("#JX_APPLICATION_VERSION#"), JXString("1.1"));
  EXPECT_EQ(variable("#JX_APPLICATION_PREVIOUS_VERSION#"), JXString("0"));
  EXPECT_EQ(variable("#JX_APPLICATION_VERSION#"), JXString("1.1"));
}

TEST_F(ApplicationVersion, UnchangedKeepsItsFirstVisit) {
  platform->defaults.preset("#JX_APPLICATION_VERSION#", "1.0");
  platform->defaults.preset("#JX_VERSION_FIRST_VISIT_MS#", "1600000000000");
  start();
  variables();
  EXPECT_EQ(variable("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1600000000000"));
  EXPECT_EQ(persisted("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1600000000000"));
  EXPECT_FALSE(persisted("#JX_APPLICATION_PREVIOUS_VERSION#").isPresent());
}

TEST_F(ApplicationVersion, ReadsPersistedPreviousVersion) {
  platform->defaults.preset("#JX_APPLICATION_PREVIOUS_VERSION#", "0.8");
  start();
  variables().initApplicationVersion("1700000000000");
  EXPECT_EQ(variable("#JX_APPLICATION_PREVIOUS_VERSION#"), JXString("0.8"));
}

TEST_F(ApplicationVersion, EmptyPersistedVersionIsTheFirstKnownRun) {
  platform->defaults.preset("#JX_APPLICATION_VERSION#", "");
  platform->defaults.preset("#JX_VERSION_FIRST_VISIT_MS#", "");
  start();
  variables();
  EXPECT_EQ(variable("#JX_VERSION_FIRST_VISIT_MS#"), JXString("1700000000000"));
  EXPECT_EQ(variable("#JX_IS_FIRST_VISIT#"), JXString("TRUE"));
}

class DeviceAddress : public Environment {
 protected:
  JXString found(const std::vector<JXInterfaceAddress>& addresses) {
    platform->addresses = addresses;
    start();
    return variables().findDeviceIP();
  }
};

TEST_F(DeviceAddress, PrefersWifiToCellular) {
  EXPECT_EQ(found({{"lo0", Family::IPv4, {127, 0, 0, 1}},
                   {"pdp_ip0", Family::IPv4, {10, 1, 2, 3}},
                   {"en0", Family::IPv4, {192, 168, 0, 255}}}),
            JXString("192.168.0.255"));
}

TEST_F(DeviceAddress, UsesCellularWithoutWifi) {
  EXPECT_EQ(found({{"pdp_ip0", Family::IPv4, {10, 1, 2, 3}}, {"en1", Family::IPv4, {1, 1, 1, 1}}}),
            JXString("10.1.2.3"));
}

TEST_F(DeviceAddress, IsEmptyWithNeither) {
  EXPECT_EQ(found({{"eth0", Family::IPv4, {10, 0, 0, 1}}}), JXString(""));
  EXPECT_EQ(found({}), JXString(""));
}

TEST_F(DeviceAddress, UsesLastEntryEvenIfIPv6Zeros) {
  EXPECT_EQ(found({{"en0", Family::IPv4, {192, 168, 0, 2}}, {"en0", Family::IPv6, {0, 0, 0, 0}}}),
            JXString("0.0.0.0"));
  EXPECT_EQ(found({{"en0", Family::IPv6, {0, 0, 0, 0}}, {"en0", Family::IPv4, {192, 168, 0, 2}}}),
            JXString("192.168.0.2"));
}

TEST_F(DeviceAddress, SkipsOtherFamiliesAndNullNames) {
  EXPECT_EQ(found({{"en0", Family::IPv4, {1, 2, 3, 4}},
                   {"en0", Family::Other, {9, 9, 9, 9}},
                   {nullptr, Family::IPv4, {9, 9, 9, 9}}}),
            JXString("1.2.3.4"));
}

}  // namespace
}  // namespace jx::test
