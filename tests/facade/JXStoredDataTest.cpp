// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXStoredData.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <thread>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStoredKeys.h"
#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/support/JXFailingDisk.h"
#include "tests/support/ServerSideFixture.h"
#include "tests/support/StoredBytes.h"

namespace jx::test {
namespace {

using Lines = std::vector<std::string>;

// The library with its files in `storage()`.
class StoredData : public ServerSideFixture {
 protected:
  StoredData() {
    queueForReal();
    platform->hasUserDefaults = false;
    configuration.onDelivery = [purged = purged_](const JXDelivery& delivery) {
      if (delivery.dropReason == JXDropReason::Purged) ++*purged;
    };
  }

  static std::string string(const JXJsonObject& object, const char* key) {
    return object.get(key).string().toStdString();
  }
  static Lines identifiersOf(const Request& request) {
    const JXJsonObject device = inside(request.body, {"context", "device"});
    return {string(device, "sdk_id"), string(inside(request.body, {"user"}), "anonymous_id"),
            string(lifecycle(request), "session_id"),
            variable(kJXPredefinedVariable_UniqueID).toStdString()};
  }
  // Everything in the files that belongs to the viewer: identifiers, bodies, the source key.
  static Lines secretsOf(const Request& request) {
    Lines secrets = identifiersOf(request);
    secrets.emplace_back("token=key");
    secrets.emplace_back("\"quiz\"");
    secrets.push_back(string(inside(request.body, {"context"}), "event_id"));
    return secrets;
  }
  static Lines found(const Lines& secrets) { return bytesFound(storage().path(), secrets); }
  static Lines files() { return filesBelow(storage().path()); }
  static std::size_t queuedEvents() {
    std::string error;
    return listOutbox(storage().path("outbox"), error).size();
  }

  // Co-owned by the callback, because the transfer thread may call it while a test ends.
  std::shared_ptr<std::atomic<int>> purged_ = std::make_shared<std::atomic<int>>(0);
};

TEST_F(StoredData, IsErasedFromTheFilesAndFromMemory) {
  const auto serverSide = make();
  const Request before = execute(*serverSide);
  const Lines secrets = secretsOf(before);
  EXPECT_EQ(found(secrets), secrets);
  const JXErasure erasure = JXStoredData::eraseAll();
  EXPECT_TRUE(erasure.isComplete);
  EXPECT_EQ(erasure.left, Lines());
  EXPECT_EQ(files(), Lines{"erased"});
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 0u);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.purged, 1u);
}

TEST_F(StoredData, BeginsTheFirstVisitWithNewIdentifiers) {
  const auto serverSide = make();
  const Lines before = identifiersOf(execute(*serverSide));
  clock->advance(5'000);
  execute(*serverSide);
  const JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  JXStoredData::eraseAll();
  const Request next = execute(*serverSide);
  // The platform's UUIDs are numbered: the next after those of two events.
  EXPECT_EQ(
      identifiersOf(next),
      (Lines{"00000000-0000-4000-8000-000000000007", "00000000-0000-4000-8000-00000000000B",
             "00000000-0000-4000-8000-000000000009", "00000000-0000-4000-8000-000000000008"}));
  EXPECT_EQ(JXJsonWriter::write(lifecycle(next), JXJsonStyle::Compact).text,
            R"({"session_id":"00000000-0000-4000-8000-000000000009","new_session":true,)"
            R"("session_duration":0,"current_session":1700000005000,"visit_number":1,)"
            R"("current_visit":1700000005000,"current_version_first_visit":1700000005000,)"
            R"("session_number":1,"first_visit":1700000005000,"last_visit":1700000005000,)"
            R"("last_call":1700000005000,"last_session_start":0,"last_session_last_hit":0,)"
            R"("foreground_transitions":1,"foreground_time":0,"background_time":0,)"
            R"("first_execute":true,"is_first_visit":true})");
  EXPECT_EQ(variables.getData(kJXPredefinedVariable_ColdStarts), "1");
  EXPECT_EQ(found(before), Lines());
  EXPECT_EQ(queuedEvents(), 1u);
  // The event after it is not the first one.
  EXPECT_FALSE(lifecycle(execute(*serverSide)).get("new_session").boolValue());
  EXPECT_EQ(JXUser::sharedInstance().anonymous_id(), "00000000-0000-4000-8000-00000000000B");
}

TEST_F(StoredData, ShowsNewIdentifiersWithoutAnEvent) {
  const auto serverSide = make();
  const Lines before = identifiersOf(execute(*serverSide));
  JXStoredData::eraseAll();
  EXPECT_EQ(variable(kJXPredefinedVariable_SDKID), "00000000-0000-4000-8000-000000000006");
  EXPECT_EQ(JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_SDKID),
            "00000000-0000-4000-8000-000000000006");
  EXPECT_EQ(JXDevice::sharedInstance().sdkID(), "00000000-0000-4000-8000-000000000006");
  EXPECT_EQ(JXPredefinedVariables::sharedInstance().numberSession(), "1");
  EXPECT_EQ(found(before), Lines());
}

TEST_F(StoredData, IsForgottenByReferencesThatTheApplicationHolds) {
  const auto serverSide = make();
  execute(*serverSide);
  const JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  const JXDevice& device = JXDevice::sharedInstance();
  JXStoredData::eraseAll();
  for (const std::string_view name :
       {kJXPredefinedVariable_SDKID, kJXPredefinedVariable_UniqueID,
        kJXPredefinedVariable_SessionID, kJXPredefinedVariable_LastCallMs,
        kJXPredefinedVariable_NumberVisits}) {
    EXPECT_FALSE(variables.getData(name).isPresent()) << name;
  }
  EXPECT_FALSE(device.sdkID().testString());
}

TEST_F(StoredData, LeavesTheValuesOfTheApplication) {
  const auto serverSide = make();
  serverSide->addPermanentData_withValue("store", "uk");
  JXJsonObject properties;
  properties.set("plan", "premium");
  JXUser::sharedInstance().addAdditionalProperty(properties);
  JXUser::sharedInstance().setConsentID("consent-1");
  JXPredefinedVariables::sharedInstance().addData_withValue("mine", "variable");
  JXPredefinedVariables::sharedInstance().addData_withValue(
      kJXPredefinedVariable_ApplicationVersion, "set");
  JXPredefinedVariables::sharedInstance().setVisitDuration(7);
  JXCoreVariables::sharedInstance().addData_withValue(JX_ConsentVersion, "12");
  JXStoredData::eraseAll();
  const Request next = execute(*serverSide);
  EXPECT_EQ(string(next.body, "store"), "uk");
  EXPECT_EQ(string(inside(next.body, {"user"}), "plan"), "premium");
  EXPECT_EQ(string(inside(next.body, {"user"}), "consent_id"), "consent-1");
  EXPECT_EQ(variable("mine"), "variable");
  EXPECT_EQ(variable(kJXPredefinedVariable_ApplicationVersion), "set");
  EXPECT_EQ(JXPredefinedVariables::sharedInstance().visitDuration(), 7u);
  EXPECT_EQ(JXCoreVariables::sharedInstance().getData(JX_ConsentVersion), "12");
  EXPECT_EQ(serverSide->serverSideState(), EJXServerSideState_ENABLED);
}

TEST_F(StoredData, IncludesIdentifiersThatTheApplicationSetFromIt) {
  const auto serverSide = make();
  JXPredefinedVariables::sharedInstance().useLegacyUniqueIDForConsentID();
  JXPredefinedVariables::sharedInstance().useLegacyUniqueIDForAnonymousID();
  const std::string uniqueId = variable(kJXPredefinedVariable_UniqueID).toStdString();
  EXPECT_EQ(string(inside(execute(*serverSide).body, {"user"}), "consent_id"), uniqueId);
  JXStoredData::eraseAll();
  const JXJsonObject user = inside(execute(*serverSide).body, {"user"});
  EXPECT_FALSE(user.get("consent_id").string().isPresent());
  EXPECT_NE(string(user, "anonymous_id"), uniqueId);
  EXPECT_EQ(found({uniqueId}), Lines());
}

TEST_F(StoredData, IncludesTheAdvertisingIdentifiersInMemory) {
  platform->trackingAllowed = true;
  const auto serverSide = make();
  serverSide->addAdvertisingIDs();
  const Lines ids{platform->advertisingId.toStdString(), platform->vendorId.toStdString()};
  execute(*serverSide);
  EXPECT_EQ(found(ids), ids);
  JXStoredData::eraseAll();
  const JXJsonObject device = inside(execute(*serverSide).body, {"context", "device"});
  EXPECT_EQ(found(ids), Lines());
  EXPECT_FALSE(device.get("ad_tracking").isPresent());
  serverSide->addAdvertisingIDs();
  EXPECT_EQ(string(inside(execute(*serverSide).body, {"context", "device"}), "idfa"), ids[0]);
}

TEST_F(StoredData, IsErasedBeforeTheCoreStarts) {
  storage().write("defaults", "old identifiers");
  storage().write("outbox/segment-0000000000000001", "old event");
  start();
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_FALSE(JXCoreServices::hasStarted());
  EXPECT_EQ(files(), Lines{"erased"});
  // It is not erased again by the start.
  const auto serverSide = make();
  execute(*serverSide);
  EXPECT_EQ(queuedEvents(), 1u);
}

TEST_F(StoredData, IsErasedFromTheDefaultFolderOfThePlatform) {
  configuration.storageFolder = nullptr;
  platform->storageFolder = storage().path("default");
  storage().write("default/outbox/dead", "old event");
  start();
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(filesBelow(storage().path("default")), Lines{"erased"});
}

TEST_F(StoredData, IsErasedWithoutAnyFolder) {
  configuration.storageFolder = nullptr;
  const auto serverSide = make();
  const std::string before = identifiersOf(execute(*serverSide))[1];
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 0u);
  EXPECT_NE(identifiersOf(execute(*serverSide))[1], before);
}

TEST_F(StoredData, IsErasedAfterTheLastServerSideEnded) {
  auto serverSide = make();
  const Lines secrets = secretsOf(execute(*serverSide));
  serverSide.reset();
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(found(secrets), Lines());
}

TEST_F(StoredData, StaysErasedWhileDisabled) {
  const auto serverSide = make();
  const Lines secrets = secretsOf(execute(*serverSide));
  serverSide->disableServerSide();
  // Another thread records the stop in a file.
  while (files().size() < 3)
    std::this_thread::yield();
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  // No identifier is created before it is needed.
  EXPECT_EQ(files(), Lines{"erased"});
  EXPECT_EQ(serverSide->serverSideState(), EJXServerSideState_DISABLED);
  serverSide->enableServerSide();
  EXPECT_TRUE(lifecycle(execute(*serverSide)).get("is_first_visit").boolValue());
  EXPECT_EQ(found(secrets), (Lines{"token=key", "\"quiz\""}));  // of the new event
}

TEST_F(StoredData, IsErasedInTheBackground) {
  const auto serverSide = make();
  const Lines before = identifiersOf(execute(*serverSide));
  clock->advance(10'000);
  platform->enterBackground();
  JXStoredData::eraseAll();
  EXPECT_EQ(files(), Lines{"erased"});
  clock->advance(1'000);
  platform->enterForeground();
  const JXJsonObject next = lifecycle(execute(*serverSide));
  EXPECT_EQ(next.get("session_number").numberString(), "1");
  EXPECT_EQ(next.get("foreground_time").numberString(), "0");
  EXPECT_EQ(found(before), Lines());
}

TEST_F(StoredData, DropsAnEventThatIsBeingExecuted) {
  const auto center = JXNotificationCenter::defaultCenter();
  bool hasErased = false;
  // Added first, so called after the event was serialised and before it is queued.
  const int observer = 0;
  center->addObserver(&observer, kJXNotification_HTTPRequest, [&](const JXNotification&) {
    if (!std::exchange(hasErased, true)) JXStoredData::eraseAll();
  });
  const auto serverSide = make();
  const Request dropped = execute(*serverSide);
  const Lines secrets{string(inside(dropped.body, {"context"}), "event_id"),
                      string(inside(dropped.body, {"user"}), "anonymous_id"), "token=key",
                      "\"quiz\""};
  center->removeObserver(&observer);
  EXPECT_TRUE(hasErased);
  EXPECT_EQ(found(secrets), Lines());
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.purged, 1u);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 0u);
}

TEST_F(StoredData, IsErasedByEightThreadsAtOnce) {
  const auto serverSide = make();
  const Lines before = identifiersOf(execute(*serverSide));
  // The records of the fixture belong to one thread.
  JXNotificationCenter::defaultCenter()->removeObserver(this);
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 5; ++round) {
        serverSide->execute(JXCustomEvent::initWithName("parallel"));
        EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(found(before), Lines());
  EXPECT_EQ(found({"parallel"}), Lines());
  const JXDeliveryCounters counters = JXNetworkManager::sharedInstance().counters();
  EXPECT_EQ(counters.outbox.queued, 0u);
  EXPECT_EQ(counters.outbox.purged, 41u);
  record(JXNotificationCenter::defaultCenter());
  const Request last = execute(*serverSide);
  EXPECT_EQ(lifecycle(last).get("visit_number").numberString(), "1");
  EXPECT_EQ(queuedEvents(), 1u);
}

TEST_F(StoredData, ReportsWhatIsLeftOnAReadOnlyDisk) {
  // Outlives the threads of the library.
  static auto* const disk = new FailingDisk(0, 0, FailingDisk::Write::Nothing, EROFS);
  disk->includeDeletions();
  const auto serverSide = make();
  const Lines before = identifiersOf(execute(*serverSide));
  disk->fail();
  const JXErasure erasure = JXStoredData::eraseAll();
  EXPECT_NE(identifiersOf(execute(*serverSide)), before);
  disk->heal();
  EXPECT_FALSE(erasure.isComplete);
  ASSERT_EQ(erasure.left.size(), 4u);
  EXPECT_EQ(erasure.left[0], storage().path("outbox/clock") + ": Read-only file system");
  EXPECT_EQ(erasure.left[1],
            storage().path("outbox/segment-0000000000000001") + ": Read-only file system");
  EXPECT_EQ(erasure.left[2], storage().path("defaults") + ": Read-only file system");
  EXPECT_EQ(
      erasure.left[3],
      storage().path("erased") +
          ": Read-only file system; another process that uses the folder may write its values "
          "again");
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(found(before), Lines());
}

// Serialised through a tree, because the class of the application overrides getJsonObject.
class OwnEvent final : public JXEvent {
 public:
  JXJsonObject getJsonObject() const override { return JXEvent::getJsonObject(); }
};

TEST_F(StoredData, IsNotInAnEventOfAnApplicationClassAfterAnotherProcessErasedIt) {
  const auto serverSide = make();
  const Lines before = identifiersOf(execute(*serverSide));
  JXErasures(storage().path()).erase();
  serverSide->execute(std::make_shared<OwnEvent>());
  const Request next = requests().back();
  ASSERT_EQ(requests().size(), 2u);
  for (const std::string& identifier : before)
    EXPECT_EQ(next.text.find(identifier), std::string::npos) << identifier;
  EXPECT_EQ(found(before), Lines());
  EXPECT_EQ(queuedEvents(), 1u);
}

TEST_F(StoredData, IsForgottenWhenAnotherProcessErasesIt) {
  const auto serverSide = make();
  const Lines before = identifiersOf(execute(*serverSide));
  JXErasures(storage().path()).erase();
  const Request next = execute(*serverSide);
  const Lines after = identifiersOf(next);
  for (std::size_t i = 0; i < before.size(); ++i)
    EXPECT_NE(after[i], before[i]);
  EXPECT_TRUE(lifecycle(next).get("is_first_visit").boolValue());
  EXPECT_EQ(found(before), Lines());
  EXPECT_EQ(found(after), after);
  EXPECT_EQ(queuedEvents(), 1u);
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.purged, 1u);
}

TEST_F(StoredData, IsNotRestoredFromMemoryAfterAnotherProcessErasedIt) {
  const auto serverSide = make();
  const std::string before = JXUser::sharedInstance().anonymous_id().toStdString();
  JXErasures(storage().path()).erase();
  JXPredefinedVariables::sharedInstance().useLegacyUniqueIDForAnonymousID();
  EXPECT_NE(JXUser::sharedInstance().anonymous_id(), before);
  JXErasures(storage().path()).erase();
  JXUser::sharedInstance().setAnonymous_id("set-later");
  execute(*serverSide);
  EXPECT_EQ(JXUser::sharedInstance().anonymous_id(), "set-later");
  EXPECT_EQ(found({before}), Lines());
  EXPECT_EQ(found({"set-later"}), Lines{"set-later"});
}

TEST_F(StoredData, ReportsTheEventsAsPurged) {
  const auto serverSide = make();
  execute(*serverSide);
  execute(*serverSide);
  JXStoredData::eraseAll();
  while (*purged_ < 2)
    std::this_thread::yield();
  EXPECT_EQ(*purged_, 2);
}

// The library with the settings store of the system.
class StoredSettings : public ServerSideFixture {};

TEST_F(StoredSettings, AreErasedExceptForTheKeysOfTheApplication) {
  platform->defaults.preset("theirs", "kept");
  const auto serverSide = make();
  execute(*serverSide);
  platform->enterBackground();
  EXPECT_GE(platform->defaults.entries().size(), 18u);
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(platform->defaults.entries(), (std::map<std::string, JXString>{{"theirs", "kept"}}));
  EXPECT_TRUE(lifecycle(execute(*serverSide)).get("is_first_visit").boolValue());
}

TEST_F(StoredSettings, AreErasedBeforeTheCoreStarts) {
  platform->defaults.preset("#JX_SDK_ID#", "old");
  platform->defaults.preset("theirs", "kept");
  start();
  EXPECT_TRUE(JXStoredData::eraseAll().isComplete);
  EXPECT_EQ(platform->defaults.entries(), (std::map<std::string, JXString>{{"theirs", "kept"}}));
  EXPECT_FALSE(JXCoreServices::hasStarted());
}

// A life in which every value is stored: an update of the application, a later visit, a background
// time, a new session, events.
TEST_F(StoredSettings, AreAllInTheListOfKeys) {
  for (const auto& [key, value] :
       std::map<std::string, std::string>{{"#JX_APPLICATION_VERSION#", "0.9"},
                                          {"jx_date_first_visit", "1600000000"},
                                          {"SessionStartTimestamp", "1600000000000"}}) {
    platform->defaults.preset(key, value);
  }
  const auto serverSide = make();
  execute(*serverSide);
  platform->enterBackground();
  clock->advance(2'000'000);
  platform->enterForeground();
  execute(*serverSide);
  // A visit that continues in the same process.
  JXPredefinedVariables::sharedInstance().reinit();
  JXPredefinedVariables::sharedInstance().reinit();
  const std::map<std::string, JXString> stored = platform->defaults.entries();
  for (const std::string_view key : kJXStoredKeys)
    EXPECT_EQ(stored.count(std::string(key)), 1u) << key;
  EXPECT_EQ(stored.size(), std::size(kJXStoredKeys));
}

}  // namespace
}  // namespace jx::test
