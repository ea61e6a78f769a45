// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreConfiguration.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXApplication.h"
#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreInitialisation.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXUser.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/core/JXCoreFixture.h"

namespace jx {
namespace {

class JXCoreConfigurationTest : public test::JXCoreFixture {};

TEST(JXCoreConfigurationDefaults, MatchTheDocumentedValues) {
  const JXCoreConfiguration defaults;
  EXPECT_FALSE(defaults.storageFolder.isPresent());
  EXPECT_FALSE(defaults.collectionHost.isPresent());
  EXPECT_FALSE(defaults.dryRun);
  EXPECT_EQ(defaults.logLevel, 3);
  EXPECT_EQ(defaults.outboxBounds.maxRequests, 10'000U);
  EXPECT_EQ(defaults.outboxBounds.maxBytes, 33'554'432U);
  EXPECT_EQ(defaults.outboxBounds.maxAge, std::chrono::milliseconds(2'592'000'000));
  EXPECT_EQ(defaults.outboxBounds.maxDeadLetters, 1'000U);
  EXPECT_EQ(defaults.outboxBounds.maxInMemory, 1'000U);
  EXPECT_EQ(defaults.retryTimings.initialBackoff, std::chrono::milliseconds(1'000));
  EXPECT_EQ(defaults.retryTimings.maxBackoff, std::chrono::milliseconds(300'000));
  EXPECT_EQ(defaults.retryTimings.maxRetryAfter, std::chrono::milliseconds(86'400'000));
  EXPECT_EQ(defaults.retryTimings.connectTimeout, std::chrono::milliseconds(10'000));
  EXPECT_EQ(defaults.retryTimings.requestTimeout, std::chrono::milliseconds(30'000));
  EXPECT_EQ(defaults.retryTimings.syncDelay, std::chrono::milliseconds(1'000));
  EXPECT_EQ(defaults.retryTimings.userAgentWait, std::chrono::milliseconds(10'000));
}

TEST_F(JXCoreConfigurationTest, CanBeSetAgainUntilTheCoreStarts) {
  EXPECT_FALSE(JXCoreServices::hasStarted());
  clock_ = std::make_shared<JXManualClock>(5);
  configuration_.clock = clock_;
  EXPECT_TRUE(JXCoreConfiguration::set(configuration_));
  EXPECT_EQ(JXCoreConfiguration::current().clock, clock_);
  EXPECT_EQ(JXCoreVariables::sharedInstance().nowMs(), 5);
  EXPECT_TRUE(JXCoreServices::hasStarted());
}

TEST_F(JXCoreConfigurationTest, IgnoresALateSetAndLogsOneMessage) {
  JXCoreInitialisation::init();
  const auto before = logLines().size();
  JXCoreConfiguration late = configuration_;
  late.clock = std::make_shared<JXManualClock>(5);
  late.logSink = nullptr;
  EXPECT_FALSE(JXCoreConfiguration::set(late));
  EXPECT_EQ(JXCoreConfiguration::current().clock, clock_);
  EXPECT_EQ(JXCoreVariables::sharedInstance().nowMs(), 1'700'000'000'123);
  ASSERT_EQ(logLines().size(), before + 1);
  EXPECT_EQ(logLines().back(),
            "3 JXCoreConfiguration::set() called after the SDK started (started by "
            "JXCoreInitialisation::init()); ignored");
}

struct Start {
  const char* operation;
  void (*call)();
  friend void PrintTo(const Start& each, std::ostream* out) { *out << each.operation; }
};

class JXCoreStarts : public test::JXCoreFixture, public testing::WithParamInterface<Start> {};

TEST_P(JXCoreStarts, AreNamedByALateSet) {
  GetParam().call();
  JXCoreInitialisation::init();
  ASSERT_FALSE(JXCoreConfiguration::set(configuration_));
  EXPECT_EQ(logLines().back(),
            std::string("3 JXCoreConfiguration::set() called after the SDK started (started by ") +
                GetParam().operation + "); ignored");
}

// Each of these calls others of the list.
INSTANTIATE_TEST_SUITE_P(
    Operations, JXCoreStarts,
    testing::Values(
        Start{"JXUser::anonymous_id()", [] { JXUser::sharedInstance().anonymous_id(); }},
        Start{"JXUser::setAnonymous_id()", [] { JXUser::sharedInstance().setAnonymous_id("a"); }},
        Start{"JXUser::getJsonObject()", [] { JXUser::sharedInstance().getJsonObject(); }},
        Start{"JXUserDefaults::retrieveInfoFromUserDefaults()",
              [] { JXUserDefaults::retrieveInfoFromUserDefaults("key"); }},
        Start{"JXUserDefaults::saveInfoToUserDefaults_forLabel()",
              [] { JXUserDefaults::saveInfoToUserDefaults_forLabel("value", "key"); }},
        Start{"JXCoreVariables::sharedInstance()", [] { JXCoreVariables::sharedInstance(); }},
        Start{"JXNetwork::sharedInstance()", [] { JXNetwork::sharedInstance(); }}),
    [](const testing::TestParamInfo<Start>& each) { return "Start" + std::to_string(each.index); });

// As a consent module does when it is loaded, before the application configures the library.
TEST_F(JXCoreConfigurationTest, CanBeSetAfterAConsentModuleRestoredItsIdentifier) {
  JXUser::sharedInstance().setConsentID("restored");
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  JXUser::sharedInstance().addAdditionalProperty_withStringValue("group", "b");
  EXPECT_TRUE(JXCoreConfiguration::set(configuration_));
  JXCoreInitialisation::init();
  EXPECT_EQ(JXUser::sharedInstance().consentID(), JXString("restored"));
  EXPECT_TRUE(JXUser::sharedInstance().anonymous_id().testString());
}

TEST_F(JXCoreConfigurationTest, KeepsALogSinkAndLevelThatWereSetBeforeTheStart) {
  std::vector<std::string> messages;
  JXLogger::sharedInstance().setSink(
      [&messages](int, std::string_view message) { messages.emplace_back(message); });
  JXLogger::sharedInstance().setMaxLevel(2);
  JXCoreInitialisation::init();
  JXLogger::sharedInstance().logMessage_withLevel("at level 3", 3);
  JXLogger::sharedInstance().logMessage_withLevel("at level 2", 2);
  JXLogger::sharedInstance().setSink(nullptr);
  EXPECT_EQ(messages, std::vector<std::string>{"at level 2"});
}

TEST_F(JXCoreConfigurationTest, CreatesTheCollectionEndpoint) {
  EXPECT_EQ(JXCoreServices::sharedInstance().collectionEndpoint(), JXString("http://127.0.0.1"));
}

TEST_F(JXCoreConfigurationTest, SecondCoreStartHasNoEffect) {
  EXPECT_NE(JXCoreInitialisation::init(), nullptr);
  const JXString sdkId = JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_SDKID);
  EXPECT_NE(JXCoreInitialisation::init(), nullptr);
  EXPECT_EQ(platform_->observeCount(), 1);
  EXPECT_EQ(JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_SDKID), sdkId);
}

TEST_F(JXCoreConfigurationTest, DryRunDoesNotQueueRequests) {
  JXCoreInitialisation::init();
  JXNetworkManager::sharedInstance().enqueue("http://127.0.0.1/events", "{}");
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.added, 0U);
  EXPECT_TRUE(JXNetworkManager::sharedInstance().flush(std::chrono::milliseconds(0)));
}

class JXCoreStart : public test::JXCoreFixture {
 protected:
  void prepare() override { configuration_.collectionHost = "http://collect.example.com"; }
};

TEST_F(JXCoreStart, LogsAnInvalidCollectionHostOnce) {
  JXCoreInitialisation::init();
  JXCoreInitialisation::init();
  EXPECT_EQ(countLogLines("3 Collection host \"http://collect.example.com\" upgraded to https"), 1);
  EXPECT_EQ(JXCoreServices::sharedInstance().collectionEndpoint(),
            JXString("https://collect.example.com"));
}

class JXInvalidHostStart : public test::JXCoreFixture {
 protected:
  void prepare() override {
    configuration_.dryRun = false;
    configuration_.collectionHost = "two words";
  }
};

TEST_F(JXInvalidHostStart, KeepsEventsQueued) {
  JXCoreInitialisation::init();
  EXPECT_EQ(countLogLines("2 Collection host \"two words\" is invalid; nothing is sent to it"), 1);
  const JXString endpoint = JXCoreServices::sharedInstance().collectionEndpoint();
  JXNetworkManager::sharedInstance().enqueue(endpoint.toStdString() + "/events", "{}");
  EXPECT_FALSE(JXNetworkManager::sharedInstance().flush(std::chrono::milliseconds(100)));
  const JXDeliveryCounters counters = JXNetworkManager::sharedInstance().counters();
  EXPECT_EQ(counters.outbox.queued, 1U);
  EXPECT_EQ(counters.attempts, 0U);
}

class JXPinnedStart : public test::JXCoreFixture {
 protected:
  void prepare() override {
    configuration_.dryRun = false;
    configuration_.pinnedPublicKeys = {"47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=", "a typo"};
  }
};

TEST_F(JXPinnedStart, LogsEachInvalidPin) {
  JXCoreInitialisation::init();
  EXPECT_EQ(countLogLines("3 Pinned key \"a typo\" is not a SHA-256 hash in Base64"), 1);
  EXPECT_EQ(countLogLines("3 Pinned key"), 1);
}

// A log sink belongs to the application, like every callback.
TEST_F(JXPinnedStart, LogSinkMayStartTheLibrary) {
  int started = 0;
  JXLogger::sharedInstance().setSink([&started](int, std::string_view message) {
    if (message.find("a typo") == std::string_view::npos) return;
    EXPECT_NE(JXCoreInitialisation::init(), nullptr);
    ++started;
  });
  JXCoreInitialisation::init();
  JXLogger::sharedInstance().setSink(nullptr);
  EXPECT_EQ(started, 1);
}

class Posted {
 public:
  Posted() {
    JXNotificationCenter::defaultCenter()->addObserver(
        this, nullptr, [this](const JXNotification& n) { names_ += n.name.toStdString() + ";"; });
  }
  ~Posted() { JXNotificationCenter::defaultCenter()->removeObserver(this); }
  Posted(const Posted&) = delete;
  Posted& operator=(const Posted&) = delete;
  const std::string& names() const { return names_; }

 private:
  std::string names_;
};

TEST(JXApplication, PostsApplicationNotificationsOnTheDefaultCenter) {
  const Posted posted;
  JXApplication::applicationDidEnterBackground();
  JXApplication::applicationWillEnterForeground();
  EXPECT_EQ(posted.names(),
            "UIApplicationDidEnterBackgroundNotification;"
            "UIApplicationWillEnterForegroundNotification;");
}

TEST_F(JXCoreConfigurationTest, ObservesThePlatformApplicationFromTheStart) {
  const Posted posted;
  EXPECT_FALSE(platform_->enterBackground());
  JXCoreInitialisation::init();
  EXPECT_TRUE(platform_->enterBackground());
  EXPECT_TRUE(platform_->enterForeground());
  EXPECT_EQ(posted.names(),
            "UIApplicationDidEnterBackgroundNotification;"
            "UIApplicationWillEnterForegroundNotification;");
}

}  // namespace
}  // namespace jx
