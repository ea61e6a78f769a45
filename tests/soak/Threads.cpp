// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXApplication.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/facade/ServerSide.h"
#include "jx/platform/JXManualClock.h"
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariables.h"
#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr int kExecuting = 16;
constexpr int kNotifying = 2;
constexpr int kToggling = 2;
constexpr int kChangingData = 2;

/// The identifiers of the events that were posted, in one set for all threads.
class Posted {
 public:
  void add(const JXNotification& notification) {
    const JXString body = notification.userInfo.get(kJXUserInfo_POSTData).string();
    const JXString id = JXJsonReader::read(body.view())
                            .value.object()
                            .get("context")
                            .object()
                            .get("event_id")
                            .string();
    const std::lock_guard<std::mutex> lock(mutex_);
    ids_.insert(id.toStdString());
  }
  std::set<std::string> ids() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return ids_;
  }

 private:
  mutable std::mutex mutex_;
  std::set<std::string> ids_;
};

/// What the server received: valid bodies by their identifier, and the marks of each session.
struct Received {
  std::set<std::string> ids;
  std::map<std::string, int> marksOfSession;
  std::size_t invalid = 0;

  explicit Received(const std::vector<std::string>& bodies) {
    for (const std::string& body : bodies) {
      const JXJsonObject event = JXJsonReader::read(body).value.object();
      const JXJsonObject context = event.get("context").object();
      const JXJsonObject device = context.get("device").object();
      const JXJsonObject lifecycle = device.get("lifecycle").object();
      const JXString id = context.get("event_id").string();
      const JXString session = lifecycle.get("session_id").string();
      const bool isValid = id.isPresent() && session.isPresent() &&
                           event.get("event_name").string() == JXString("tick") &&
                           event.get("user").object().get("anonymous_id").string().isPresent() &&
                           context.get("app").object().get("name").string().isPresent() &&
                           context.get("event_timestamp").kind() == JXJsonValue::Kind::Number;
      if (!isValid) {
        ++invalid;
        continue;
      }
      if (!ids.insert(id.toStdString()).second) continue;  // a repeated delivery
      marksOfSession[session.toStdString()] += lifecycle.get("new_session").boolValue() ? 1 : 0;
    }
  }
};

/// Runs each function again and again on a thread of its own, until it ends.
class Threads {
 public:
  void add(int count, const std::function<void()>& work) {
    for (int i = 0; i < count; ++i) {
      threads_.emplace_back([this, work] {
        while (!isEnding_)
          work();
      });
    }
  }
  void end() {
    isEnding_ = true;
    for (std::thread& thread : threads_)
      thread.join();
    threads_.clear();
  }

 private:
  std::atomic<bool> isEnding_{false};
  std::vector<std::thread> threads_;
};

void readEverything() {
  const JXDevice& device = JXDevice::sharedInstance();
  static_cast<void>(device.sdkID());
  static_cast<void>(device.screenWidth());
  static_cast<void>(JXDevice::sharedInstance().getJsonObject());
  static_cast<void>(JXLifecycle::sharedInstance().lastCall());
  static_cast<void>(JXLifecycle::sharedInstance().getJsonObject());
  static_cast<void>(JXApp::sharedInstance().consentVersion());
  static_cast<void>(JXPredefinedVariables::sharedInstance().lastTime());
  static_cast<void>(JXPredefinedVariables::sharedInstance().numberSession());
  static_cast<void>(JXUser::sharedInstance().getJsonObject());
  static_cast<void>(JXNetworkManager::sharedInstance().counters());
}

}  // namespace

int threads(Arguments& arguments) {
  const std::uint64_t seconds = arguments.number("seconds", 60);
  arguments.expectAllKnown();
  Report report("threads");
  static const test::TemporaryFolder folder;
  test::JXTestServerOptions options;
  options.tls = false;
  test::JXTestServer server(options);
  const auto clock = std::make_shared<JXManualClock>(1'700'000'000'000);
  JXCoreConfiguration configuration;
  configuration.storageFolder = folder.path();
  configuration.collectionHost = "http://127.0.0.1:" + std::to_string(server.port());
  configuration.clock = clock;
  configuration.outboxBounds.maxRequests = 10'000'000;
  configuration.outboxBounds.maxBytes = std::uint64_t{8} * 1024 * 1024 * 1024;
  // The sessions below last years by the clock of this test.
  configuration.outboxBounds.maxAge = std::chrono::hours(24 * 365 * 1000);
  JXCoreConfiguration::set(configuration);
  Posted posted;
  JXNotificationCenter::defaultCenter()->addObserver(
      &posted, kJXNotification_HTTPRequest,
      [&posted](const JXNotification& notification) { posted.add(notification); });
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");

  Threads all;
  all.add(kExecuting, [&] {
    serverSide->execute(JXCustomEvent::initWithName("tick"));
    std::this_thread::sleep_for(std::chrono::milliseconds(5));  // the server keeps each body
  });
  all.add(kNotifying, [&] {
    JXApplication::applicationDidEnterBackground();
    clock->advance(1'800'001);
    JXApplication::applicationWillEnterForeground();
    std::this_thread::yield();
  });
  all.add(kToggling, [&] {
    serverSide->disableServerSide();
    serverSide->enableServerSide();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  });
  all.add(kChangingData, [&] {
    serverSide->addPermanentData_withValue("store", "uk");
    static_cast<void>(serverSide->getPermanentData("store"));
    static_cast<void>(serverSide->removePermanentData("store"));
    JXDevice::sharedInstance().addAdditionalProperty_withStringValue("rack", "7");
    JXUser::sharedInstance().setConsentID("consent");
  });
  all.add(1, readEverything);
  std::this_thread::sleep_for(std::chrono::seconds(seconds));
  all.end();
  serverSide->enableServerSide();
  JXApplication::applicationWillEnterForeground();
  const bool isEmpty = JXNetworkManager::sharedInstance().flush(std::chrono::minutes(10));
  JXNotificationCenter::defaultCenter()->removeObserver(&posted);

  const std::set<std::string> wanted = posted.ids();
  const Received received(server.bodies());
  std::size_t missing = 0;
  for (const std::string& id : wanted)
    missing += received.ids.count(id) == 0 ? 1 : 0;
  std::size_t wrongMarks = 0;
  for (const auto& [session, marks] : received.marksOfSession)
    wrongMarks += marks == 1 ? 0 : 1;
  report.say(std::to_string(wanted.size()) + " events in " +
             std::to_string(received.marksOfSession.size()) + " sessions, " +
             std::to_string(seconds) + " s");
  report.promise(isEmpty, "the queue was empty after the flush");
  report.promise(wanted.size() > 100, "events were executed");
  report.promise(missing == 0, std::to_string(missing) + " events missing");
  report.promise(received.invalid == 0, std::to_string(received.invalid) + " invalid bodies");
  report.promise(wrongMarks == 0,
                 std::to_string(wrongMarks) + " sessions without exactly one new-session mark");
  return report.status();
}

}  // namespace jx::soak
