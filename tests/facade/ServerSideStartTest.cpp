// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The start of a ServerSide: the parameters of each initialiser, the URL, the initial state.

#include <gmock/gmock.h>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/facade/JXServerSideInitialisation.h"
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXServerSideVersion.h"
#include "tests/support/Launch.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using ::testing::ElementsAre;

class ServerSideStart : public ServerSideFixture {};

// Supports no operation.
class UnsupportedInstance final : public IJXFirebaseInstance {
 public:
  bool respondsToOperation(std::string_view) override { return false; }
  void performOperation(std::string_view, const JXJsonValue&, const JXJsonValue&) override {}
};

class ThrowingInstance final : public IJXFirebaseInstance {
 public:
  bool respondsToOperation(std::string_view) override { return true; }
  void performOperation(std::string_view, const JXJsonValue&, const JXJsonValue&) override {
    throw std::runtime_error("not configured");
  }
};

struct Starter {
  const char* operation;
  void (*call)();
  friend void PrintTo(const Starter& each, std::ostream* out) { *out << each.operation; }
};

class SdkStart : public ServerSideFixture, public ::testing::WithParamInterface<Starter> {};

TEST_P(SdkStart, IsNamedByALateConfiguration) {
  start();
  GetParam().call();
  ASSERT_FALSE(JXCoreConfiguration::set(configuration));
  EXPECT_EQ(lines().back(),
            (LogLine{3, std::string("JXCoreConfiguration::set() called after the SDK started "
                                    "(started by ") +
                            GetParam().operation + "); ignored"}));
}

INSTANTIATE_TEST_SUITE_P(
    Operations, SdkStart,
    ::testing::Values(Starter{"an initialiser of ServerSide",
                              [] { ServerSide::initWithSiteID_andSourceKey(1, "key"); }},
                      Starter{"JXServerSideInitialisation::init()",
                              [] { JXServerSideInitialisation::init(); }},
                      Starter{"JXPredefinedVariables::sharedInstance()",
                              [] { JXPredefinedVariables::sharedInstance(); }},
                      Starter{"JXDevice::sharedInstance()", [] { JXDevice::sharedInstance(); }},
                      Starter{"JXApp::sharedInstance()", [] { JXApp::sharedInstance(); }},
                      Starter{"JXEvent::getJsonObject()",
                              [] { JXCustomEvent::initWithName("quiz")->getJsonObject(); }}),
    [](const ::testing::TestParamInfo<Starter>& each) {
      return "Start" + std::to_string(each.index);
    });

TEST_F(ServerSideStart, LogsVersionSiteAndInitialState) {
  const auto serverSide = make();
  EXPECT_THAT(lines(), ElementsAre(LogLine{4, "Server-Side SDK init with version 5.4.5"},
                                   LogLine{4, "Server-Side SDK init with siteID 1234"},
                                   LogLine{5, "Starting Server-Side SDK"}));
}

TEST_F(ServerSideStart, VersionConstantsMatchTheRelease) {
  EXPECT_EQ(kJXServerSideVersion, "5.4.5");
  EXPECT_EQ(kReleaseDate, "28/04/2025");
  EXPECT_EQ(kReleaseTime, "17:17:38");
}

TEST_F(ServerSideStart, DefaultWithoutConsentModuleStartsEnabled) {
  const auto serverSide = make(0);
  EXPECT_EQ(serverSide->serverSideState(), 1);
  EXPECT_EQ(serverSide->defaultBehaviour(), 0);
  EXPECT_EQ(JXNetworkManager::sharedInstance().managerState(), 0);
}

TEST_F(ServerSideStart, DefaultWithConsentModuleWaitsForConsent) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make(0);
  EXPECT_EQ(serverSide->serverSideState(), 0);
  EXPECT_EQ(JXNetworkManager::sharedInstance().managerState(), 0);
  EXPECT_THAT(lines(), ElementsAre(LogLine{4, "Server-Side SDK init with version 5.4.5"},
                                   LogLine{4, "Server-Side SDK init with siteID 1234"},
                                   LogLine{5, "Starting Server-Side SDK and waiting for consent"}));
}

TEST_F(ServerSideStart, AlwaysEnabledSetsManagerStateOne) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make(1);
  EXPECT_EQ(serverSide->serverSideState(), 1);
  EXPECT_EQ(JXNetworkManager::sharedInstance().managerState(), 1);
  EXPECT_EQ(lines().back(), (LogLine{5, "Starting Server-Side SDK as 'Always Enabled'"}));
  EXPECT_EQ(lines().size(), 3u);
}

TEST_F(ServerSideStart, DisabledByDefaultSetsManagerStateTwo) {
  const auto serverSide = make(2);
  EXPECT_EQ(serverSide->serverSideState(), 2);
  EXPECT_EQ(JXNetworkManager::sharedInstance().managerState(), 2);
  EXPECT_EQ(lines().back(), (LogLine{5, "Starting Server-Side SDK as 'Disabled by default'"}));
  EXPECT_EQ(lines().size(), 3u);
}

TEST_F(ServerSideStart, DisabledByDefaultPausesDelivery) {
  queueForReal();
  const auto serverSide = make(2);
  EXPECT_TRUE(JXNetworkManager::sharedInstance().counters().paused);
}

TEST_F(ServerSideStart, TreatsBehaviourThreeAsDefault) {
  const auto serverSide = make(3);
  EXPECT_EQ(serverSide->serverSideState(), 1);
  EXPECT_EQ(JXNetworkManager::sharedInstance().managerState(), 0);
  EXPECT_EQ(lines().back(), (LogLine{5, "Starting Server-Side SDK"}));
}

TEST_F(ServerSideStart, TreatsBehaviourMinusOneAsDefault) {
  JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = make(-1);
  EXPECT_EQ(serverSide->serverSideState(), 0);
  EXPECT_EQ(JXNetworkManager::sharedInstance().managerState(), 0);
  EXPECT_EQ(lines().back(), (LogLine{5, "Starting Server-Side SDK and waiting for consent"}));
}

TEST_F(ServerSideStart, WritesSiteZeroToUrlWithoutLoggingIt) {
  start();
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(0, "key");
  EXPECT_THAT(lines(), ElementsAre(LogLine{4, "Server-Side SDK init with version 5.4.5"},
                                   LogLine{5, "Starting Server-Side SDK"}));
  EXPECT_EQ(serverSide->url(), JXString("https://collect.example.com/events?jx_s=0&token=key"));
}

TEST_F(ServerSideStart, WritesNegativeSiteToUrlAndLog) {
  start();
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(-2147483647 - 1, "key");
  EXPECT_EQ(count({4, "Server-Side SDK init with siteID -2147483648"}), 1u);
  EXPECT_EQ(serverSide->url(),
            JXString("https://collect.example.com/events?jx_s=-2147483648&token=key"));
}

TEST_F(ServerSideStart, DoesNotEscapeTheSourceKey) {
  start();
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(7, "a b&c=\xC3\xA9/%41");
  EXPECT_EQ(serverSide->url(),
            JXString("https://collect.example.com/events?jx_s=7&token=a b&c=\xC3\xA9/%41"));
}

TEST_F(ServerSideStart, LogsOnceIfSourceKeyIsNull) {
  start();
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(7, nullptr);
  ASSERT_EQ(linesUpTo(3).size(), 1u);
  EXPECT_THAT(linesUpTo(3)[0].message, ::testing::HasSubstr("source key"));
  EXPECT_EQ(serverSide->url(), JXString("https://collect.example.com/events?jx_s=7&token="));
  execute(*serverSide);
}

TEST_F(ServerSideStart, UsesHttpsAndLogsIfHostHasNoScheme) {
  configuration.collectionHost = "collect.example.com:8443";
  const auto serverSide = make();
  EXPECT_EQ(serverSide->url(),
            JXString("https://collect.example.com:8443/events?jx_s=1234&token=key"));
  ASSERT_EQ(lines().size(), 4u);
  EXPECT_THAT(lines()[0].message, ::testing::HasSubstr("collect.example.com:8443"));
}

TEST_F(ServerSideStart, ReplacesHttpWithHttpsAndLogsOutsideLoopback) {
  configuration.collectionHost = "http://collect.example.com";
  const auto serverSide = make();
  EXPECT_EQ(serverSide->url(), JXString("https://collect.example.com/events?jx_s=1234&token=key"));
  ASSERT_EQ(linesUpTo(3).size(), 1u);
  EXPECT_THAT(linesUpTo(3)[0].message, ::testing::HasSubstr("http"));
}

TEST_F(ServerSideStart, RejectsHttpIfOnlyThePathLooksLikeLoopback) {
  configuration.collectionHost = "http://collect.example.com/@localhost";
  const auto serverSide = make();
  EXPECT_EQ(serverSide->url().view().substr(0, 27), "https://collect.example.com");
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ServerSideStart, AcceptsHttpToLoopbackWithoutLogging) {
  configuration.collectionHost = "http://127.0.0.1:8080";
  const auto serverSide = make();
  EXPECT_EQ(serverSide->url(), JXString("http://127.0.0.1:8080/events?jx_s=1234&token=key"));
  EXPECT_EQ(lines().size(), 3u);
}

TEST_F(ServerSideStart, LogsOnceIfCollectionHostIsInvalid) {
  for (const char* host : {"", "https://", "http:///", ":8443"}) {
    // An empty one means the host of the build; an invalid one is not replaced by another.
    EXPECT_EQ(inLaunch([&] {
                configuration.collectionHost = host;
                const auto serverSide = make();
                const bool isHttps = serverSide->url().view().substr(0, 8) == "https://";
                return std::to_string(linesUpTo(3).size()) + (isHttps ? " https" : " other");
              }),
              *host == '\0' ? "0 https" : "1 other")
        << host;
  }
}

TEST_F(ServerSideStart, ShortestInitialiserUsesDefaults) {
  start();
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(9, "k");
  EXPECT_EQ(serverSide->siteID(), 9);
  EXPECT_EQ(serverSide->url(), JXString("https://collect.example.com/events?jx_s=9&token=k"));
  EXPECT_EQ(serverSide->defaultBehaviour(), 0);
  EXPECT_EQ(serverSide->firebaseInstance(), nullptr);
}

TEST_F(ServerSideStart, InitialiserStoresBehaviour) {
  start();
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(9, "k", 2);
  EXPECT_EQ(serverSide->siteID(), 9);
  EXPECT_EQ(serverSide->defaultBehaviour(), 2);
  EXPECT_EQ(serverSide->firebaseInstance(), nullptr);
}

TEST_F(ServerSideStart, InitialiserStoresFirebaseInstance) {
  start();
  const auto instance = std::make_shared<UnsupportedInstance>();
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(9, "k", instance);
  EXPECT_EQ(serverSide->firebaseInstance(), instance);
  EXPECT_EQ(serverSide->defaultBehaviour(), 0);
}

TEST_F(ServerSideStart, InitialiserStoresBehaviourAndFirebaseInstance) {
  start();
  const auto instance = std::make_shared<UnsupportedInstance>();
  const auto serverSide =
      ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(9, "k", 1,
                                                                                      instance);
  EXPECT_EQ(serverSide->firebaseInstance(), instance);
  EXPECT_EQ(serverSide->defaultBehaviour(), 1);
}

TEST_F(ServerSideStart, FullInitialiserPostsOnGivenCentre) {
  start();
  const auto center = std::make_shared<JXNotificationCenter>();
  record(center);
  const auto instance = std::make_shared<UnsupportedInstance>();
  const auto serverSide = ServerSide::
      initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance(
          9, "k", center, 1, instance);
  EXPECT_EQ(serverSide->siteID(), 9);
  EXPECT_EQ(serverSide->defaultBehaviour(), 1);
  EXPECT_EQ(serverSide->firebaseInstance(), instance);
  execute(*serverSide);
  JXNotificationCenter::defaultCenter()->removeObserver(static_cast<ServerSideFixture*>(this));
  execute(*serverSide);
}

TEST_F(ServerSideStart, NullCentreMeansDefaultCentre) {
  start();
  const auto serverSide = ServerSide::
      initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance(
          9, "k", nullptr, 0, nullptr);
  execute(*serverSide);
}

TEST_F(ServerSideStart, CreatesItsOwnedObjects) {
  const auto serverSide = make();
  EXPECT_NE(serverSide->initialisation(), nullptr);
  ASSERT_NE(serverSide->permanentStore(), nullptr);
  EXPECT_EQ(serverSide->permanentStore()->entries().size(), 0u);
  ASSERT_NE(serverSide->senderDelegate(), nullptr);
  EXPECT_EQ(serverSide->senderDelegate()->parent(), serverSide.get());
  EXPECT_NE(serverSide->listenerDelegate(), nullptr);
}

TEST_F(ServerSideStart, LogsOnceAndStartsIfFirebaseInstanceThrows) {
  start();
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(
      9, "k", std::make_shared<ThrowingInstance>());
  ASSERT_EQ(linesUpTo(3).size(), 1u);
  EXPECT_THAT(linesUpTo(3)[0].message, ::testing::HasSubstr("not configured"));
  EXPECT_EQ(serverSide->siteID(), 9);
  serverSide->disableServerSide();
  EXPECT_EQ(serverSide->serverSideState(), 2) << "it still receives notifications";
}

TEST_F(ServerSideStart, SetDeveloperIdCatchesExceptions) {
  const auto serverSide = make();
  serverSide->setFirebaseInstance(std::make_shared<ThrowingInstance>());
  EXPECT_NO_THROW(serverSide->setDeveloperIdForFirebaseInstance());
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ServerSideStart, RejectsConfigurationAfterTheStart) {
  const auto serverSide = make();
  configuration.collectionHost = "https://elsewhere.example.com";
  EXPECT_FALSE(JXCoreConfiguration::set(configuration));
  EXPECT_EQ(make()->url(), serverSide->url());
}

}  // namespace
}  // namespace jx::test
