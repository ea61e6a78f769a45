// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreVariables.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreInitialisation.h"
#include "jx/core/JXUser.h"
#include "jx/core/JXUserDefaults.h"
#include "tests/core/JXCoreFixture.h"

namespace jx {
namespace {

// Returns the result of `work` in a child process, which starts its own core; empty on failure.
template <typename Work>
std::string inAnotherProcess(Work work) {
  int ends[2];
  if (pipe(ends) != 0) return {};
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    const std::string result = work();
    const bool isWritten =
        write(ends[1], result.data(), result.size()) == static_cast<ssize_t>(result.size());
    _exit(isWritten ? 0 : 1);
  }
  close(ends[1]);
  std::string result;
  char part[256];
  for (ssize_t length = 0; (length = read(ends[0], part, sizeof part)) > 0;)
    result.append(part, static_cast<std::size_t>(length));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? result : std::string();
}

class JXCoreVariablesTest : public test::JXCoreFixture {
 protected:
  static JXCoreVariables& variables() { return JXCoreVariables::sharedInstance(); }
};

TEST_F(JXCoreVariablesTest, ReturnTheTimeOfTheConfiguredClock) {
  EXPECT_EQ(variables().nowMs(), 1'700'000'000'123);
  EXPECT_EQ(variables().nowMsString(), JXString("1700000000123"));
  EXPECT_EQ(variables().nowString(), JXString("1700000000"));
  EXPECT_EQ(variables().now().time_since_epoch(), std::chrono::milliseconds(1'700'000'000'123));
  clock_->advance(877);
  EXPECT_EQ(variables().nowMsString(), JXString("1700000001000"));
  EXPECT_EQ(variables().nowString(), JXString("1700000001"));
}

TEST_F(JXCoreVariablesTest, ReturnTimesBefore1970AndInTheFarFuture) {
  clock_->set(0);
  EXPECT_EQ(variables().nowMsString(), JXString("0"));
  EXPECT_EQ(variables().nowString(), JXString("0"));
  clock_->set(-86'400'000);
  EXPECT_EQ(variables().nowMsString(), JXString("-86400000"));
  EXPECT_EQ(variables().nowString(), JXString("-86400"));
  // Seconds are rounded down, also for negative times.
  clock_->set(-1'500);
  EXPECT_EQ(variables().nowMsString(), JXString("-1500"));
  EXPECT_EQ(variables().nowString(), JXString("-2"));
  clock_->set(253'402'300'799'999);
  EXPECT_EQ(variables().nowMsString(), JXString("253402300799999"));
  EXPECT_EQ(variables().nowString(), JXString("253402300799"));
}

TEST_F(JXCoreVariablesTest, StoreStrings) {
  variables().addData_withValue("a", "1");
  EXPECT_EQ(variables().getData("a"), JXString("1"));
  EXPECT_EQ(variables().dynamicStore()->getData("a").string(), JXString("1"));
  variables().addData_withValue("a", "");
  EXPECT_EQ(variables().getData("a"), JXString(""));
  variables().addData_withValue("a", nullptr);
  EXPECT_FALSE(variables().getData("a").isPresent());
  variables().addData_withValue(nullptr, "1");
  EXPECT_FALSE(variables().getData(nullptr).isPresent());
  variables().dynamicStore()->addData_withValue("number", 1);
  EXPECT_FALSE(variables().getData("number").isPresent());
}

TEST_F(JXCoreVariablesTest, ReadTheVendorIdentifierOnSetIDFV) {
  EXPECT_FALSE(variables().getData("#JX_IDFV#").isPresent());
  variables().setIDFV();
  EXPECT_EQ(variables().getData("#JX_IDFV#"), JXString("66666666-7777-4888-8999-AAAAAAAAAAAA"));
  platform_->vendorId = nullptr;
  variables().setIDFV();
  EXPECT_FALSE(variables().getData("#JX_IDFV#").isPresent());
}

TEST_F(JXCoreVariablesTest, StoreWhetherToRunInTheBackground) {
  EXPECT_FALSE(variables().enableSDKInBG());
  variables().setEnableSDKInBG(true);
  EXPECT_TRUE(variables().enableSDKInBG());
  variables().setEnableSDKInBG(false);
  EXPECT_FALSE(variables().enableSDKInBG());
}

TEST_F(JXCoreVariablesTest, CreateAndPersistTheSdkIdOnce) {
  const JXString id = variables().getData("#JX_SDK_ID#");
  EXPECT_EQ(id, JXString("00000000-0000-4000-8000-000000000001"));
  EXPECT_EQ(platform_->defaults.entries().at("#JX_SDK_ID#"), id);
  EXPECT_EQ(platform_->defaults.setCount("#JX_SDK_ID#"), 1);
}

TEST_F(JXCoreVariablesTest, KeepAPersistedSdkId) {
  platform_->defaults.preset("#JX_SDK_ID#", "earlier");
  EXPECT_EQ(variables().getData("#JX_SDK_ID#"), JXString("earlier"));
  EXPECT_EQ(platform_->defaults.setCount(), 0);
}

// The platform has no store here, so the core persists values in its own file.
class JXPersistedIdentifiers : public JXCoreVariablesTest {
 protected:
  void prepare() override { platform_->hasUserDefaults = false; }
};

TEST_F(JXPersistedIdentifiers, KeepTheSdkIdAcrossProcesses) {
  const auto sdkId = [] { return variables().getData("#JX_SDK_ID#").toStdString(); };
  const std::string first = inAnotherProcess(sdkId);
  // Another process would create a different identifier if it found none.
  platform_->newUUID();
  EXPECT_EQ(first, "00000000-0000-4000-8000-000000000001");
  EXPECT_EQ(inAnotherProcess(sdkId), first);
  EXPECT_EQ(sdkId(), first);
}

TEST_F(JXPersistedIdentifiers, KeepTheAnonymousIdAcrossProcesses) {
  const std::string first = inAnotherProcess([] {
    JXUser::sharedInstance().setAnonymous_id("chosen");
    JXUser::sharedInstance().setConsentID("consent");
    return std::string("done");
  });
  ASSERT_EQ(first, "done");
  EXPECT_EQ(JXUser::sharedInstance().anonymous_id(), JXString("chosen"));
  EXPECT_FALSE(JXUser::sharedInstance().consentID().isPresent());
}

TEST_F(JXPersistedIdentifiers, KeepASavedValueAfterAKill) {
  const pid_t child = fork();
  if (child == 0) {
    JXUserDefaults::saveInfoToUserDefaults_forLabel("value", "label");
    kill(getpid(), SIGKILL);
    _exit(1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(JXUserDefaults::retrieveInfoFromUserDefaults("label"), JXString("value"));
}

}  // namespace
}  // namespace jx
