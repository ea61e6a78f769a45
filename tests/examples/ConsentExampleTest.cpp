// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/CollectorProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using testing::HasSubstr;

constexpr std::chrono::seconds kPatience{60};

class ConsentExample : public testing::Test {
 protected:
  /// Launches the application with the given input and returns its output.
  std::string launch(const std::string& input) const {
    const ChildProcess::Result result = ChildProcess::runWithInput(
        JX_EXAMPLE_CONSENT, {folder_.path("state"), collector_.address(), collector_.caFile()},
        input, kPatience);
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(result.errors, "");
    return result.output;
  }
  /// Returns the received bodies of this page.
  std::vector<JXJsonObject> arrived(const std::string& page) const {
    std::vector<JXJsonObject> bodies;
    for (std::size_t i = 0; i < collector_.eventCount(); ++i) {
      if (collector_.body(i).get("page_name").string() == JXString(page)) {
        bodies.push_back(collector_.body(i));
      }
    }
    return bodies;
  }
  static JXString consentId(const JXJsonObject& body) {
    return body.get("user").object().get("consent_id").string();
  }

  TemporaryFolder folder_;
  CollectorProgram collector_{JX_PROGRAM, folder_.path()};
};

TEST_F(ConsentExample, SendsEventsAccordingToEachDecision) {
  const std::string output =
      launch("open home\nagree\nopen film\nrefuse\nopen settings\nagree\nopen shop\n");
  EXPECT_THAT(output, HasSubstr("Decision: open\nhome: waiting_for_consent\nfilm: {"));
  EXPECT_THAT(output, HasSubstr("\nsettings: nothing is sent\nshop: {"));

  EXPECT_EQ(collector_.eventCount(), 3u);
  ASSERT_EQ(arrived("home").size(), 1u);
  EXPECT_EQ(arrived("home")[0].get("user").string(), JXString("waiting_for_consent"));
  ASSERT_EQ(arrived("film").size(), 1u);
  ASSERT_EQ(arrived("shop").size(), 1u);
  EXPECT_TRUE(consentId(arrived("film")[0]).testString());
  EXPECT_TRUE(consentId(arrived("shop")[0]).testString());
  EXPECT_NE(consentId(arrived("film")[0]), consentId(arrived("shop")[0]))
      << "new consent gets a new ID";
  const JXJsonObject app = arrived("film")[0].get("context").object().get("app").object();
  EXPECT_EQ(app.get("consent_version").string(), JXString("2.1.0"));
}

TEST_F(ConsentExample, KeepsConsentAtTheNextLaunch) {
  launch("agree\nopen film\n");
  EXPECT_THAT(launch("open shop\n"), HasSubstr("Decision: agreed\nshop: {"));
  ASSERT_EQ(arrived("shop").size(), 1u);
  EXPECT_EQ(consentId(arrived("shop")[0]), consentId(arrived("film")[0]));
}

TEST_F(ConsentExample, KeepsARefusalAtTheNextLaunch) {
  launch("refuse\n");
  EXPECT_THAT(launch("open shop\n"), HasSubstr("Decision: refused\nshop: nothing is sent\n"));
  EXPECT_EQ(collector_.eventCount(), 0u);
}

}  // namespace
}  // namespace jx::test
