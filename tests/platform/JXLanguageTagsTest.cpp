// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXLanguageTags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace jx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LanguageTag, AppendsTheTerritoryToTheLanguage) {
  EXPECT_EQ(languageTag("fr_CA"), JXString("fr-CA"));
  EXPECT_EQ(languageTag("fr_CA.UTF-8"), JXString("fr-CA"));
  EXPECT_EQ(languageTag("fr_CA.UTF-8@euro"), JXString("fr-CA"));
  EXPECT_EQ(languageTag("en"), JXString("en"));
  EXPECT_EQ(languageTag("ast_ES"), JXString("ast-ES"));
  EXPECT_EQ(languageTag("es_419"), JXString("es-419"));
}

TEST(LanguageTag, NormalisesCase) {
  EXPECT_EQ(languageTag("FR_ca.utf8"), JXString("fr-CA"));
  EXPECT_EQ(languageTag("ZH_HANS_cn"), JXString("zh-Hans-CN"));
}

TEST(LanguageTag, WritesTheScriptBetweenLanguageAndTerritory) {
  EXPECT_EQ(languageTag("zh_Hans_CN"), JXString("zh-Hans-CN"));
  EXPECT_EQ(languageTag("sr_RS@latin"), JXString("sr-Latn-RS"));
  EXPECT_EQ(languageTag("sr_RS.UTF-8@cyrillic"), JXString("sr-Cyrl-RS"));
  EXPECT_EQ(languageTag("ks_IN@devanagari"), JXString("ks-Deva-IN"));
  EXPECT_EQ(languageTag("ca_ES@valencia"), JXString("ca-ES-valencia"));
}

TEST(LanguageTag, KeepsANameInTagForm) {
  EXPECT_EQ(languageTag("fr-CA"), JXString("fr-CA"));
  EXPECT_EQ(languageTag("zh-Hant-TW"), JXString("zh-Hant-TW"));
}

TEST(LanguageTag, ReturnsNullForTheCLocale) {
  for (const char* name : {"", "C", "POSIX", "C.UTF-8", "C.utf8", "POSIX.UTF-8"}) {
    EXPECT_EQ(languageTag(name), JXString()) << name;
  }
}

TEST(LanguageTag, ReturnsNullForMalformedNames) {
  for (const char* name : {"f", "french", "fr_", "fr__CA", "_CA", "12", "fr_C!", "fr CA", "../../x",
                           "fr_CA/..", "fr_CA.\x01", "\xff\xfe", "fr_CA@\n", "fr_123456789"}) {
    EXPECT_EQ(languageTag(name), JXString()) << name;
  }
}

TEST(LanguageTag, ReturnsNullForMoreThan35Characters) {
  EXPECT_EQ(languageTag("fr_CA_abcdefgh_ijklmnop_qrstuvwx_yz"),
            JXString("fr-CA-abcdefgh-ijklmnop-qrstuvwx-yz"));  // 35
  EXPECT_EQ(languageTag("fr_CA_abcdefgh_ijklmnop_qrstuvwx_yza"), JXString());
  EXPECT_EQ(languageTag(std::string(10000, 'a')), JXString());
}

TEST(PreferredLanguages, ReturnsNothingIfNothingIsSet) {
  EXPECT_THAT(preferredLanguageTags({}), IsEmpty());
}

TEST(PreferredLanguages, PrefersLcAllOverLcMessagesOverLang) {
  JXEnvironment environment{
      {"LC_ALL", "fr_CA.UTF-8"}, {"LC_MESSAGES", "de_DE.UTF-8"}, {"LANG", "en_GB.UTF-8"}};
  EXPECT_THAT(preferredLanguageTags(environment), ElementsAre(JXString("fr-CA")));
  environment["LC_ALL"] = "";
  EXPECT_THAT(preferredLanguageTags(environment), ElementsAre(JXString("de-DE")));
  environment.erase("LC_MESSAGES");
  EXPECT_THAT(preferredLanguageTags(environment), ElementsAre(JXString("en-GB")));
}

TEST(PreferredLanguages, ListsLanguageBeforeTheLocale) {
  const JXEnvironment environment{{"LANGUAGE", "nb_NO:nn:da_DK"}, {"LANG", "sv_SE.UTF-8"}};
  EXPECT_THAT(preferredLanguageTags(environment),
              ElementsAre(JXString("nb-NO"), JXString("nn"), JXString("da-DK"), JXString("sv-SE")));
}

TEST(PreferredLanguages, ListsEachLanguageOnce) {
  const JXEnvironment environment{{"LANGUAGE", "fr_CA:fr:fr_CA"}, {"LANG", "fr_CA.UTF-8"}};
  EXPECT_THAT(preferredLanguageTags(environment), ElementsAre(JXString("fr-CA"), JXString("fr")));
}

TEST(PreferredLanguages, IgnoresLanguageInTheCLocale) {
  EXPECT_THAT(preferredLanguageTags({{"LANGUAGE", "fr_CA"}, {"LANG", "C"}}), IsEmpty());
  EXPECT_THAT(preferredLanguageTags({{"LANGUAGE", "fr_CA"}, {"LC_ALL", "POSIX"}}), IsEmpty());
  EXPECT_THAT(preferredLanguageTags({{"LANGUAGE", "fr_CA"}}), IsEmpty());
  EXPECT_THAT(preferredLanguageTags({{"LANGUAGE", "fr_CA"}, {"LANG", "C.UTF-8"}}),
              ElementsAre(JXString("fr-CA")));
}

TEST(PreferredLanguages, SkipsUnusableEntries) {
  const JXEnvironment environment{{"LANGUAGE", "::C:!!:" + std::string(500, 'x') + ":it_IT:"},
                                  {"LANG", "en_US.UTF-8"}};
  EXPECT_THAT(preferredLanguageTags(environment),
              ElementsAre(JXString("it-IT"), JXString("en-US")));
}

TEST(PreferredLanguages, ReturnsAtMostSixteenLanguages) {
  std::string list;
  for (char first = 'a'; first <= 'z'; ++first) {
    for (char second = 'a'; second <= 'z'; ++second) {
      list += {first, second, '_', 'C', 'A', ':', ':', ':', ':', ':', ':', ':', ':', ':', ':', ':'};
    }
  }
  ASSERT_GT(list.size(), 10000U);
  const auto tags = preferredLanguageTags({{"LANGUAGE", list}, {"LANG", "en_US"}});
  ASSERT_EQ(tags.size(), 16U);
  EXPECT_EQ(tags.front(), JXString("aa-CA"));
  EXPECT_EQ(tags.back(), JXString("ap-CA"));
}

}  // namespace
}  // namespace jx
