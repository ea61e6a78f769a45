// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// JXCoreConfiguration::storesOnlyWithConsent: nothing touches the disk, and no identifier exists,
// before the viewer consents.

#include <gtest/gtest.h>

#include <filesystem>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXUser.h"
#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/session/JXPersistedKeys.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using Texts = std::vector<std::string>;

constexpr std::int32_t kDisabledByDefault = EJXDefaultBehaviour_DISABLED_BY_DEFAULT;

class StoresOnlyWithConsent : public ServerSideFixture {
 protected:
  StoresOnlyWithConsent() {
    platform->hasUserDefaults = false;
    queueForReal();
    configuration.storageFolder = state;
    configuration.storesOnlyWithConsent = true;
  }

  static void registerConsentModule() {
    JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  }
  bool nothingIsStored() const { return !std::filesystem::exists(state); }
  Texts stored() const {
    std::string error;
    Texts bodies;
    for (const JXOutboxListing& each : listOutbox(state + "/outbox", error))
      bodies.push_back(each.body);
    return bodies;
  }
  JXString storedValue(const char* key) const {
    return JXDefaultsFile(state + "/defaults").objectForKey(key);
  }
  static JXString sdkIdOf(const Request& request) {
    return inside(request.body, {"context", "device"}).get("sdk_id").string();
  }
  static std::uint64_t inMemory() {
    return JXNetworkManager::sharedInstance().counters().outbox.inMemory;
  }
  // The first events of a life that ended before.
  void leaveEarlierLife() const {
    JXDefaultsFile defaults(state + "/defaults");
    defaults.setObject_forKey("earlier-sdk", "#JX_SDK_ID#");
    defaults.setObject_forKey("earlier-user", "#JX_ANONYMOUS_ID#");
    defaults.setObject_forKey("4", "#JX_APPLICATION_STARTS#");
    defaults.maintain();
    JXOutbox(state + "/outbox", JXOutboxBounds(), clock)
        .add("http://127.0.0.1:1/events?jx_s=1234&token=key", "earlier");
  }

  const std::string state = storage().path("state");
};

TEST_F(StoresOnlyWithConsent, KeepsEventsWithoutIdentifiersInMemoryWhileWaiting) {
  registerConsentModule();
  const auto serverSide = make();
  const Request request = execute(*serverSide);
  EXPECT_EQ(request.body.get("user").string(), JXString("waiting_for_consent"));
  EXPECT_FALSE(sdkIdOf(request).isPresent());
  EXPECT_FALSE(lifecycle(request).get("session_id").isPresent());
  EXPECT_FALSE(JXUser::sharedInstance().anonymous_id().isPresent());
  EXPECT_FALSE(variable(kJXPredefinedVariable_UniqueID).isPresent());
  EXPECT_EQ(inMemory(), 1u);
  platform->enterBackground();
  platform->enterForeground();
  EXPECT_TRUE(nothingIsStored());
}

TEST_F(StoresOnlyWithConsent, StoresNothingWhileDisabled) {
  const auto serverSide = make(kDisabledByDefault);
  serverSide->execute(nullptr);
  platform->enterBackground();
  platform->enterForeground();
  JXNetworkManager::sharedInstance().storageChanged();
  EXPECT_TRUE(nothingIsStored());
}

TEST_F(StoresOnlyWithConsent, BeginsWithTheConsent) {
  registerConsentModule();
  const auto serverSide = make();
  const Request waiting = execute(*serverSide, "waiting");
  clock->advance(5'000);
  serverSide->enableServerSide();
  const Request first = execute(*serverSide, "first");
  EXPECT_EQ(sdkIdOf(first), storedValue("#JX_SDK_ID#"));
  EXPECT_TRUE(sdkIdOf(first).testString());
  EXPECT_EQ(first.body.get("user").object().get("anonymous_id").string(),
            storedValue("#JX_ANONYMOUS_ID#"));
  EXPECT_TRUE(lifecycle(first).get("session_id").string().testString());
  EXPECT_EQ(storedValue("#JX_APPLICATION_STARTS#"), JXString("1"));
  EXPECT_EQ(storedValue(std::string(kJXDateFirstVisitFormat).c_str()), JXString("1700000005"))
      << "the first visit begins with the consent";
  EXPECT_EQ(stored().back(), first.text);
}

TEST_F(StoresOnlyWithConsent, WritesWaitingEventsUnchangedAfterTheConsent) {
  registerConsentModule();
  const auto serverSide = make();
  const Request waiting = execute(*serverSide, "waiting");
  serverSide->enableServerSide();
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
  while (inMemory() != 0)
    manager.storageChanged();
  EXPECT_EQ(stored(), Texts{waiting.text});
}

TEST_F(StoresOnlyWithConsent, ContinuesTheEarlierLifeAfterTheConsent) {
  leaveEarlierLife();
  registerConsentModule();
  const auto serverSide = make();
  const Request waiting = execute(*serverSide, "waiting");
  EXPECT_FALSE(sdkIdOf(waiting).isPresent()) << "stored values are not read";
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 1u);
  serverSide->enableServerSide();
  const Request first = execute(*serverSide, "first");
  EXPECT_EQ(sdkIdOf(first), JXString("earlier-sdk"));
  EXPECT_EQ(first.body.get("user").object().get("anonymous_id").string(), JXString("earlier-user"));
  EXPECT_EQ(storedValue("#JX_APPLICATION_STARTS#"), JXString("5"));
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 3u);
}

TEST_F(StoresOnlyWithConsent, BeginsAtTheStartOfAnEnabledServerSide) {
  const auto serverSide = make();
  const Request first = execute(*serverSide);
  EXPECT_EQ(sdkIdOf(first), storedValue("#JX_SDK_ID#"));
  EXPECT_TRUE(sdkIdOf(first).testString());
  EXPECT_EQ(storedValue("#JX_APPLICATION_STARTS#"), JXString("1"));
  EXPECT_EQ(stored(), Texts{first.text});
}

TEST_F(StoresOnlyWithConsent, BeginsOnce) {
  const auto serverSide = make(EJXDefaultBehaviour_ALWAYS_ENABLED);
  const JXString sdkId = sdkIdOf(execute(*serverSide));
  serverSide->enableServerSide();
  serverSide->enableServerSide();
  EXPECT_EQ(sdkIdOf(execute(*serverSide)), sdkId);
  EXPECT_EQ(storedValue("#JX_APPLICATION_STARTS#"), JXString("1"));
}

TEST_F(StoresOnlyWithConsent, RecordsNoStopBeforeTheConsent) {
  registerConsentModule();
  const auto serverSide = make();
  serverSide->disableServerSide();
  EXPECT_TRUE(nothingIsStored());
  serverSide->enableServerSide();
  serverSide->disableServerSide();
  // On a busy machine, the stop returns before its record is written.
  while (JXStopMarks(state + "/outbox").read().empty())
    std::this_thread::yield();
}

TEST_F(StoresOnlyWithConsent, IgnoresAdvertisingIdentifiersBeforeTheConsent) {
  registerConsentModule();
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  EXPECT_EQ(count({3, "addAdvertisingIDs() called before the viewer consented; ignored"}), 1u);
  EXPECT_FALSE(JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_IDFV).isPresent());
  serverSide->enableServerSide();
  serverSide->addAdvertisingIDs();
  EXPECT_TRUE(JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_IDFA).isPresent());
}

TEST_F(StoresOnlyWithConsent, StoresAnIdentifierOfTheApplicationAfterTheConsent) {
  registerConsentModule();
  const auto serverSide = make();
  JXUser::sharedInstance().setAnonymous_id("own");
  EXPECT_TRUE(nothingIsStored());
  serverSide->enableServerSide();
  EXPECT_EQ(execute(*serverSide).body.get("user").object().get("anonymous_id").string(),
            JXString("own"));
  EXPECT_EQ(storedValue("#JX_ANONYMOUS_ID#"), JXString("own"));
}

TEST_F(StoresOnlyWithConsent, DropsTheOldestOfTooManyWaitingEvents) {
  configuration.outboxBounds.maxInMemory = 2;
  registerConsentModule();
  const auto serverSide = make();
  for (const char* name : {"1", "2", "3"})
    execute(*serverSide, name);
  EXPECT_EQ(inMemory(), 2u);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.droppedNoStorage, 1u);
  EXPECT_TRUE(nothingIsStored());
}

TEST_F(StoresOnlyWithConsent, WorksInADryRun) {
  configuration.dryRun = true;
  registerConsentModule();
  const auto serverSide = make();
  EXPECT_FALSE(sdkIdOf(execute(*serverSide)).isPresent());
  EXPECT_TRUE(nothingIsStored());
  serverSide->enableServerSide();
  EXPECT_TRUE(sdkIdOf(execute(*serverSide)).testString());
  EXPECT_TRUE(storedValue("#JX_SDK_ID#").testString());
}

}  // namespace
}  // namespace jx::test
