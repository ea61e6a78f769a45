// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXApp.h"

#include <gtest/gtest.h>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

class AppBlock : public ServerSideFixture {
 protected:
  static std::string json() {
    return JXJsonWriter::write(JXApp::sharedInstance().getJsonObject(), JXJsonStyle::Compact).text;
  }
};

class BaselessApp final : public JXApp {
 protected:
  bool baseInit() override { return false; }
};

TEST_F(AppBlock, WritesKeysInOrder) {
  start();
  JXCoreVariables::sharedInstance().addData_withValue(JX_ConsentVersion, "3");
  EXPECT_EQ(json(),
            R"({"name":"Example TV","version":"1.0","build":"100","namespace":"com.example.tv",)"
            R"("serverside_version":"5.4.5","core_version":"1.0.0","consent_version":"3"})");
}

TEST_F(AppBlock, OmitsConsentVersionWithoutConsent) {
  start();
  EXPECT_EQ(JXApp::sharedInstance().consentVersion(), JXString("")) << "before serialisation";
  EXPECT_EQ(json(),
            R"({"name":"Example TV","version":"1.0","build":"100","namespace":"com.example.tv",)"
            R"("serverside_version":"5.4.5","core_version":"1.0.0"})");
  EXPECT_FALSE(JXApp::sharedInstance().consentVersion().isPresent());
}

TEST_F(AppBlock, ReadsConsentVersionFromCoreAtEachSerialisation) {
  start();
  JXApp& app = JXApp::sharedInstance();
  app.setConsentVersion("forged");
  JXCoreVariables& core = JXCoreVariables::sharedInstance();
  for (const char* version : {"1", "", "2"}) {
    core.addData_withValue(JX_ConsentVersion, version);
    EXPECT_EQ(app.getJsonObject().get("consent_version").string(), JXString(version));
  }
}

TEST_F(AppBlock, FieldsOverrideAdditionalProperties) {
  start();
  JXApp& app = JXApp::sharedInstance();
  app.addAdditionalProperty_withStringValue("name", "forged");
  app.addAdditionalProperty_withStringValue("serverside_version", "9.9.9");
  app.addAdditionalProperty_withStringValue("flavour", "dark");
  const JXJsonObject block = app.getJsonObject();
  EXPECT_EQ(block.get("name").string(), JXString("Example TV"));
  EXPECT_EQ(block.get("serverside_version").string(), JXString("5.4.5"));
  EXPECT_EQ(block.get("flavour").string(), JXString("dark"));
}

TEST_F(AppBlock, WritesVersionsAsStrings) {
  start();
  const JXJsonObject block = JXApp::sharedInstance().getJsonObject();
  EXPECT_EQ(block.get("version").kind(), JXJsonValue::Kind::String);
  EXPECT_EQ(block.get("build").kind(), JXJsonValue::Kind::String);
}

TEST_F(AppBlock, WritesUnknownNameAndEmptyVersionByDefault) {
  platform->bundle = {};
  start();
  EXPECT_EQ(json(), R"x({"name":"(unknown)","version":"","serverside_version":"5.4.5",)x"
                    R"x("core_version":"1.0.0"})x");
}

TEST_F(AppBlock, InitKeepsValuesAndReinitReadsThemAgain) {
  start();
  JXApp& app = JXApp::sharedInstance();
  JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  variables.addData_withValue(kJXPredefinedVariable_ApplicationName, "Other");
  variables.addData_withValue(kJXPredefinedVariable_ApplicationVersion, "2.0");
  variables.addData_withValue(kJXPredefinedVariable_ApplicationBuild, "200");
  variables.addData_withValue(kJXPredefinedVariable_BundleID, "com.example.other");
  app.setServerSideVersion("0");
  app.setCoreVersion("0");
  EXPECT_EQ(app.init(), &app);
  EXPECT_EQ(app.name(), JXString("Example TV"));
  EXPECT_EQ(app.reinit(), &app);
  EXPECT_EQ(json(),
            R"({"name":"Other","version":"2.0","build":"200","namespace":"com.example.other",)"
            R"("serverside_version":"5.4.5","core_version":"1.0.0"})");
}

TEST_F(AppBlock, InitLeavesSecondInstanceUnchanged) {
  start();
  JXApp::sharedInstance();
  JXApp other;
  EXPECT_EQ(other.init(), &other);
  EXPECT_FALSE(other.name().isPresent());
  EXPECT_FALSE(other.serverSideVersion().isPresent());
  EXPECT_FALSE(other.consentVersion().isPresent());
  EXPECT_EQ(other.getJsonObject().size(), 0u);
}

TEST_F(AppBlock, InitReturnsNullAndBlocksLaterCallsIfBaseFails) {
  start();
  BaselessApp app;
  EXPECT_TRUE(neverReturns([&] { ASSERT_EQ(app.init(), nullptr); }, [&] { app.init(); }));
}

TEST_F(AppBlock, GettersReturnWhatSettersStored) {
  start();
  JXApp app;
  app.setName("1");
  app.setVersion("2");
  app.setBuild("3");
  app.setNameSpace("4");
  app.setCoreVersion("5");
  app.setServerSideVersion("6");
  app.setConsentVersion("7");
  EXPECT_EQ(app.name(), JXString("1"));
  EXPECT_EQ(app.version(), JXString("2"));
  EXPECT_EQ(app.build(), JXString("3"));
  EXPECT_EQ(app.nameSpace(), JXString("4"));
  EXPECT_EQ(app.coreVersion(), JXString("5"));
  EXPECT_EQ(app.serverSideVersion(), JXString("6"));
  EXPECT_EQ(app.consentVersion(), JXString("7"));
}

}  // namespace
}  // namespace jx::test
