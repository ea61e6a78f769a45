// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXTimeZoneName.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

// A system root with or without a zone database.
class TimeZoneName : public testing::Test {
 protected:
  void installZone(const std::string& name) { root_.write("usr/share/zoneinfo/" + name, "TZif2"); }
  JXString name() const { return localTimeZoneName({}, root_.path()); }
  JXString nameFor(const JXString& tz) const {
    return localTimeZoneName({{"TZ", tz}}, root_.path());
  }

  test::TemporaryFolder root_;
};

TEST_F(TimeZoneName, ReturnsUtcWithoutVariableAndFiles) { EXPECT_EQ(name(), JXString("UTC")); }

TEST_F(TimeZoneName, ReturnsUtcForAMissingRoot) {
  EXPECT_EQ(localTimeZoneName({}, root_.path("missing")), JXString("UTC"));
}

TEST_F(TimeZoneName, ReadsTheVariableWithOrWithoutColon) {
  root_.write("etc/timezone", "Europe/Paris\n");
  EXPECT_EQ(nameFor("Asia/Tokyo"), JXString("Asia/Tokyo"));
  EXPECT_EQ(nameFor(":America/Argentina/Buenos_Aires"), JXString("America/Argentina/Buenos_Aires"));
  EXPECT_EQ(nameFor("right/Asia/Tokyo"), JXString("Asia/Tokyo"));
}

TEST_F(TimeZoneName, ReturnsUtcForAnEmptyVariable) {
  root_.write("etc/timezone", "Europe/Paris\n");
  EXPECT_EQ(nameFor(""), JXString("UTC"));
  EXPECT_EQ(nameFor(":"), JXString("UTC"));
}

TEST_F(TimeZoneName, ReturnsUtcForAZoneMissingFromTheDatabase) {
  installZone("Asia/Tokyo");
  EXPECT_EQ(nameFor("Asia/Tokyo"), JXString("Asia/Tokyo"));
  EXPECT_EQ(nameFor("Nowhere/City"), JXString("UTC"));
  EXPECT_EQ(nameFor("/usr/share/zoneinfo/Nowhere/City"), JXString("UTC"));
}

TEST_F(TimeZoneName, ReadsTheDatabaseFolderFromTheEnvironment) {
  root_.write("opt/zones/Asia/Tokyo", "TZif2");
  const JXEnvironment environment{{"TZDIR", "/opt/zones"}, {"TZ", "Asia/Tokyo"}};
  EXPECT_EQ(localTimeZoneName(environment, root_.path()), JXString("Asia/Tokyo"));
  const JXEnvironment missing{{"TZDIR", "/opt/zones"}, {"TZ", "Asia/Seoul"}};
  EXPECT_EQ(localTimeZoneName(missing, root_.path()), JXString("UTC"));
}

TEST_F(TimeZoneName, ReturnsUtcForAnInvalidVariable) {
  for (const std::string& text :
       {std::string("\xff\xfe\x01"), std::string("../../etc/passwd"), std::string("Asia//Tokyo"),
        std::string("Asia/Tokyo/"), std::string("Asia/To kyo"), std::string(10000, 'A'),
        std::string("A/") + std::string(10000, 'b')}) {
    EXPECT_EQ(nameFor(JXString(text)), JXString("UTC")) << text;
  }
}

TEST_F(TimeZoneName, ConvertsAPathInTheDatabaseToItsName) {
  EXPECT_EQ(nameFor(":/usr/share/zoneinfo/Asia/Tokyo"), JXString("Asia/Tokyo"));
  EXPECT_EQ(nameFor("/usr/share/zoneinfo/posix/Europe/Paris"), JXString("Europe/Paris"));
}

TEST_F(TimeZoneName, FollowsAPathToALink) {
  root_.link("etc/localtime", "/usr/share/zoneinfo/Europe/Rome");
  EXPECT_EQ(nameFor(":/etc/localtime"), JXString("Europe/Rome"));
}

TEST_F(TimeZoneName, IgnoresAPathOutsideTheDatabase) {
  root_.write("etc/timezone", "Europe/Paris\n");
  EXPECT_EQ(nameFor("/opt/missing/zone"), JXString("Europe/Paris"));
}

TEST_F(TimeZoneName, ReturnsARuleThatTheDatabaseContains) {
  installZone("EST5EDT");
  installZone("CET");
  EXPECT_EQ(nameFor("EST5EDT"), JXString("EST5EDT"));
  EXPECT_EQ(nameFor("EST5EDT,M3.2.0,M11.1.0"), JXString("EST5EDT"));
  EXPECT_EQ(nameFor("CET-1CEST"), JXString("CET"));
  EXPECT_EQ(nameFor("CET-1CEST,M3.5.0,M10.5.0/3"), JXString("CET"));
}

TEST_F(TimeZoneName, ConvertsARuleWithoutSummerTimeToItsOffset) {
  EXPECT_EQ(nameFor("JST-9"), JXString("Etc/GMT-9"));
  EXPECT_EQ(nameFor("EST5"), JXString("Etc/GMT+5"));
  EXPECT_EQ(nameFor("<+03>-3"), JXString("Etc/GMT-3"));
  EXPECT_EQ(nameFor("<-03>+3:00"), JXString("Etc/GMT+3"));
  EXPECT_EQ(nameFor("UTC0"), JXString("UTC"));
}

TEST_F(TimeZoneName, ReturnsUtcForARuleWithoutAName) {
  EXPECT_EQ(nameFor("IST-5:30"), JXString("UTC"));
  EXPECT_EQ(nameFor("ABC3DEF"), JXString("UTC"));
  EXPECT_EQ(nameFor("QQQ-15"), JXString("UTC"));
  EXPECT_EQ(nameFor("QQQ13"), JXString("UTC"));
  EXPECT_EQ(nameFor("<+03"), JXString("UTC"));
}

TEST_F(TimeZoneName, PrefersTheFileOverTheLink) {
  root_.write("etc/timezone", "  Europe/Paris \nignored\n");
  root_.link("etc/localtime", "/usr/share/zoneinfo/Europe/Rome");
  EXPECT_EQ(name(), JXString("Europe/Paris"));
}

TEST_F(TimeZoneName, FallsBackToTheLinkForAnInvalidFile) {
  root_.link("etc/localtime", "../usr/share/zoneinfo/Europe/Rome");
  for (const char* content : {"", "\n", "not a zone\n", "/etc/passwd\n", "\xff\xfe\n"}) {
    root_.write("etc/timezone", content);
    EXPECT_EQ(name(), JXString("Europe/Rome")) << content;
  }
}

TEST_F(TimeZoneName, FollowsLinksIntoTheDatabase) {
  root_.link("etc/localtime", "state/zone");
  root_.link("etc/state/zone", "/mnt/flash/localtime");
  root_.link("mnt/flash/localtime", "/usr/share/zoneinfo/Africa/Cairo");
  EXPECT_EQ(name(), JXString("Africa/Cairo"));
}

TEST_F(TimeZoneName, ReturnsUtcForACircleOfLinks) {
  root_.link("etc/localtime", "/etc/other");
  root_.link("etc/other", "/etc/localtime");
  EXPECT_EQ(name(), JXString("UTC"));
}

TEST_F(TimeZoneName, ReturnsUtcForACopiedZoneFile) {
  root_.write("etc/localtime", "TZif2");
  EXPECT_EQ(name(), JXString("UTC"));
}

TEST_F(TimeZoneName, IgnoresAFolderInPlaceOfTheFile) {
  root_.makeFolder("etc/timezone");
  root_.link("etc/localtime", "/usr/share/zoneinfo/Europe/Rome");
  EXPECT_EQ(name(), JXString("Europe/Rome"));
}

}  // namespace
}  // namespace jx
