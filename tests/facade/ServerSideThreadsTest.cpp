// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "jx/core/JXApplication.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXUser.h"
#include "jx/core/JXUtils.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/facade/ServerSide.h"
#include "jx/platform/JXManualClock.h"
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXSession.h"
#include "tests/support/JXFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;

/// The library with a fake platform and a manual clock; every posted body is kept. Unlike the
/// fixture of the other facade tests, all of it may be used by several threads.
class ServerSideThreads : public ::testing::Test {
 protected:
  ServerSideThreads() {
    configuration.platform = platform;
    configuration.clock = clock;
    configuration.dryRun = true;
    configuration.logLevel = 3;
    configuration.logSink = [log = log_](int, std::string_view message) {
      const std::lock_guard<std::mutex> lock(log->mutex);
      log->messages.emplace_back(message);
    };
  }

  ~ServerSideThreads() override { JXNotificationCenter::defaultCenter()->removeObserver(this); }

  std::shared_ptr<ServerSide> make() {
    EXPECT_TRUE(JXCoreConfiguration::set(configuration));
    JXNotificationCenter::defaultCenter()->addObserver(
        this, kJXNotification_HTTPRequest, [this](const JXNotification& notification) {
          const JXString body = notification.userInfo.get(kJXUserInfo_POSTData).string();
          const std::lock_guard<std::mutex> lock(mutex_);
          bodies_.push_back(body.toStdString());
        });
    return ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(
        1, "key", EJXDefaultBehaviour_ALWAYS_ENABLED);
  }

  std::size_t posted() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return bodies_.size();
  }

  std::vector<std::string> bodies() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return bodies_;
  }

  /// The characters of a body between `begin` and the next quote or comma: parsing thousands of
  /// bodies takes long under the thread sanitizer.
  static std::string after(const std::string& body, const std::string& begin) {
    const std::size_t at = body.find(begin) + begin.size();
    return body.substr(at, body.find_first_of("\",", at) - at);
  }

  /// The bodies as JSON; each must be a whole event.
  std::vector<JXJsonObject> events() const {
    std::vector<JXJsonObject> read;
    for (const std::string& body : bodies()) {
      const JXJsonObject object = JXJsonReader::read(body).value.object();
      EXPECT_TRUE(object.isPresent()) << body;
      read.push_back(object);
    }
    return read;
  }

  static JXJsonObject lifecycle(const JXJsonObject& event) {
    return event.get("context").object().get("device").object().get("lifecycle").object();
  }

  std::vector<std::string> messages() const {
    const std::lock_guard<std::mutex> lock(log_->mutex);
    return log_->messages;
  }

  std::shared_ptr<JXFakePlatform> platform = std::make_shared<JXFakePlatform>();
  std::shared_ptr<JXManualClock> clock = std::make_shared<JXManualClock>(1'700'000'000'000);
  JXCoreConfiguration configuration;

 private:
  struct Log {
    std::mutex mutex;
    std::vector<std::string> messages;
  };

  std::shared_ptr<Log> log_ = std::make_shared<Log>();
  mutable std::mutex mutex_;
  std::vector<std::string> bodies_;
};

TEST_F(ServerSideThreads, WritesWholeBodiesFromTwoThreads) {
  constexpr int kEvents = 1000;
  const auto serverSide = make();
  const auto work = [&](const char* name) {
    for (int i = 0; i < kEvents; ++i) {
      const auto event = JXCustomEvent::initWithName(name);
      event->addAdditionalParameter_withValue("index", std::to_string(i));
      serverSide->execute(event);
    }
  };
  std::thread first(work, "first");
  std::thread second(work, "second");
  first.join();
  second.join();

  std::map<std::string, int> byName;
  std::set<std::string> ids;
  int newSessions = 0;
  int firstExecutes = 0;
  for (const JXJsonObject& event : events()) {
    ++byName[event.get("event_name").string().toStdString()];
    ids.insert(event.get("context").object().get("event_id").string().toStdString());
    newSessions += lifecycle(event).get("new_session").boolValue() ? 1 : 0;
    firstExecutes += lifecycle(event).get("first_execute").boolValue() ? 1 : 0;
  }
  EXPECT_EQ(byName, (std::map<std::string, int>{{"first", kEvents}, {"second", kEvents}}));
  EXPECT_EQ(ids.size(), 2u * kEvents);
  EXPECT_EQ(newSessions, 1);
  EXPECT_EQ(firstExecutes, 1);
}

TEST_F(ServerSideThreads, MarksEachSessionOnceDuringNotifications) {
  constexpr int kSessions = 3000;
  const auto serverSide = make();
  std::atomic<bool> isDone{false};
  std::thread executing([&] {
    while (!isDone)
      serverSide->execute(JXCustomEvent::initWithName("tick"));
  });
  // The session that the process began with has an event, and each later one gets one too.
  while (posted() == 0)
    std::this_thread::yield();
  // An event between the two lines in the middle restarts the 30 minutes: then no session begins.
  while (JXUtils::numberFromNSString(JXPredefinedVariables::sharedInstance().numberSession()) <
         kSessions) {
    JXApplication::applicationDidEnterBackground();
    clock->advance(1'800'001);
    JXApplication::applicationWillEnterForeground();
    // Two more, because the first may have been on its way before.
    const std::size_t before = posted();
    while (posted() < before + 2)
      std::this_thread::yield();
  }
  isDone = true;
  executing.join();

  std::map<std::string, int> marks;
  for (const std::string& body : bodies())
    marks[after(body, "\"session_id\": \"")] += after(body, "\"new_session\": ")[0] == 't' ? 1 : 0;
  EXPECT_EQ(marks.size(), static_cast<std::size_t>(kSessions));
  for (const auto& [session, count] : marks)
    EXPECT_EQ(count, 1) << session;
}

/// Calls a function with each notification.
class Listening final : public IJXEventListenerDelegate {
 public:
  explicit Listening(std::function<void()> reaction) : reaction_(std::move(reaction)) {
    listener_->setParent(this);
  }
  ~Listening() override { listener_->setParent(nullptr); }
  void onNotificationReceived(const JXNotification&) override { reaction_(); }
  std::shared_ptr<JXEventListener> listenerDelegate() const override { return listener_; }

 private:
  std::function<void()> reaction_;
  std::shared_ptr<JXEventListener> listener_ = JXEventListener::init();
};

TEST_F(ServerSideThreads, DoesNotDeadlockWithAMutexAroundExecuteAndInAListener) {
  const auto serverSide = make();
  std::mutex ofTheApplication;
  std::promise<void> isInside;
  Listening listening([&] {
    isInside.set_value();
    const std::lock_guard<std::mutex> lock(ofTheApplication);
  });
  listening.listenerDelegate()->listen("unrelated");

  std::unique_lock<std::mutex> lock(ofTheApplication);
  std::thread posting([] {
    JXNotificationCenter::defaultCenter()->postNotification({"unrelated", nullptr, nullptr});
  });
  isInside.get_future().wait();
  // The listener waits for the mutex on the other thread; this thread executes with it.
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_EQ(posted(), 1u);
  lock.unlock();
  posting.join();
}

TEST_F(ServerSideThreads, WaitsForARunningCallWhenAListenerEnds) {
  make();
  std::promise<void> isInside;
  std::promise<void> mayLeave;
  std::atomic<bool> hasLeft{false};
  auto listening = std::make_unique<Listening>([&] {
    isInside.set_value();
    mayLeave.get_future().wait();
    hasLeft = true;
  });
  listening->listenerDelegate()->listen("slow");
  std::thread posting([] {
    JXNotificationCenter::defaultCenter()->postNotification({"slow", nullptr, nullptr});
  });
  isInside.get_future().wait();
  std::thread releasing([&] { mayLeave.set_value(); });
  listening.reset();
  EXPECT_TRUE(hasLeft);
  posting.join();
  releasing.join();
}

class ThrowingFirebase final : public IJXFirebaseInstance {
 public:
  bool respondsToOperation(std::string_view) override { return true; }
  void performOperation(std::string_view operation, const JXJsonValue&,
                        const JXJsonValue&) override {
    if (operation == "logEventWithName:parameters:") throw std::runtime_error("no network");
  }
};

TEST_F(ServerSideThreads, ReportsAThrowingFirebaseInstanceAsSuch) {
  const auto serverSide = make();
  serverSide->setFirebaseInstance(std::make_shared<ThrowingFirebase>());
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_EQ(posted(), 1u);
  EXPECT_EQ(messages(), std::vector<std::string>{"Firebase mirroring failed: no network"});
}

TEST_F(ServerSideThreads, AllowsAListenerToEndInItsOwnCall) {
  make();
  std::unique_ptr<Listening> listening;
  listening = std::make_unique<Listening>([&] { listening.reset(); });
  listening->listenerDelegate()->listen("last");
  JXNotificationCenter::defaultCenter()->postNotification({"last", nullptr, nullptr});
  EXPECT_EQ(listening, nullptr);
}

TEST_F(ServerSideThreads, GivesTheNewSessionMarkBackWhenNotPosted) {
  const auto serverSide = make();
  {
    JXNewSessionClaim claim;
    EXPECT_TRUE(claim.take());
    JXNewSessionClaim second;
    EXPECT_FALSE(second.take());
  }
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  ASSERT_EQ(events().size(), 1u);
  EXPECT_TRUE(lifecycle(events().front()).get("new_session").boolValue());
}

TEST_F(ServerSideThreads, MarksOneEventWhenAListenerExecutesAnother) {
  const auto serverSide = make();
  bool hasExecuted = false;
  Listening listening([&] {
    if (std::exchange(hasExecuted, true)) return;
    serverSide->execute(JXCustomEvent::initWithName("inner"));
  });
  listening.listenerDelegate()->listen(kJXNotification_HTTPRequest);
  serverSide->execute(JXCustomEvent::initWithName("outer"));
  int marks = 0;
  for (const JXJsonObject& event : events())
    marks += lifecycle(event).get("new_session").boolValue() ? 1 : 0;
  EXPECT_EQ(events().size(), 2u);
  EXPECT_EQ(marks, 1);
}

// Each callback of the application, and from it each operation that must be allowed there.

/// Calls the operations that a callback may call. A flush to a port where nobody listens ends at
/// its deadline.
class Calls {
 public:
  explicit Calls(std::shared_ptr<ServerSide> serverSide) : serverSide_(std::move(serverSide)) {}

  void operator()() {
    // Once: what is called here calls the callback again.
    if (isCalled_.exchange(true)) return;
    serverSide_->execute(JXCustomEvent::initWithName("from a callback"));
    JXNetworkManager::sharedInstance().flush(1ms);
    added_ = JXNetworkManager::sharedInstance().counters().outbox.added;
    serverSide_->disableServerSide();
    wasDisabled_ = serverSide_->serverSideState() == EJXServerSideState_DISABLED;
    serverSide_->enableServerSide();
    isDone_.set_value();
  }

  void expectDone() {
    ASSERT_EQ(isDone_.get_future().wait_for(20s), std::future_status::ready);
    EXPECT_GE(added_, 1u);
    EXPECT_TRUE(wasDisabled_);
  }

 private:
  std::shared_ptr<ServerSide> serverSide_;
  std::atomic<bool> isCalled_{false};
  std::promise<void> isDone_;
  std::uint64_t added_ = 0;
  bool wasDisabled_ = false;
};

class Callbacks : public ServerSideThreads {
 protected:
  Callbacks() {
    static const TemporaryFolder folder;
    configuration.storageFolder = folder.path();
    configuration.collectionHost = "http://127.0.0.1:1";
    configuration.dryRun = false;
  }

  /// A ServerSide whose stops count.
  std::shared_ptr<ServerSide> start() {
    EXPECT_TRUE(JXCoreConfiguration::set(configuration));
    return ServerSide::initWithSiteID_andSourceKey(1, "key");
  }
};

TEST_F(Callbacks, ObserverMayCallTheSdk) {
  const auto serverSide = start();
  Calls calls(serverSide);
  JXNotificationCenter::defaultCenter()->addObserver(&calls, kJXNotification_HTTPRequest,
                                                     [&](const JXNotification&) { calls(); });
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  JXNotificationCenter::defaultCenter()->removeObserver(&calls);
  calls.expectDone();
}

TEST_F(Callbacks, ListenerMayCallTheSdk) {
  const auto serverSide = start();
  Calls calls(serverSide);
  Listening listening([&] { calls(); });
  listening.listenerDelegate()->listen(kJXNotification_HTTPRequest);
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  calls.expectDone();
}

class CallingFirebase final : public IJXFirebaseInstance {
 public:
  bool respondsToOperation(std::string_view) override { return true; }
  void performOperation(std::string_view operation, const JXJsonValue&,
                        const JXJsonValue&) override {
    if (operation == "logEventWithName:parameters:" && onLog) onLog();
  }
  std::function<void()> onLog;
};

TEST_F(Callbacks, FirebaseInstanceMayCallTheSdk) {
  const auto serverSide = start();
  const auto firebase = std::make_shared<CallingFirebase>();
  serverSide->setFirebaseInstance(firebase);
  Calls calls(serverSide);
  firebase->onLog = [&] { calls(); };
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  calls.expectDone();
}

TEST_F(Callbacks, LogSinkMayCallTheSdk) {
  struct Hook {
    std::mutex mutex;
    std::function<void()> call;
  };
  const auto hook = std::make_shared<Hook>();
  configuration.logLevel = 6;
  configuration.logSink = [hook](int, std::string_view message) {
    std::function<void()> call;
    {
      const std::lock_guard<std::mutex> lock(hook->mutex);
      if (message.substr(0, 14) == "Event payload:") call = hook->call;
    }
    if (call) call();
  };
  const auto serverSide = start();
  Calls calls(serverSide);
  {
    const std::lock_guard<std::mutex> lock(hook->mutex);
    hook->call = [&] { calls(); };
  }
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  {
    const std::lock_guard<std::mutex> lock(hook->mutex);
    hook->call = nullptr;
  }
  calls.expectDone();
}

TEST_F(Callbacks, LogSinkMayCallTheSdkDuringItsStart) {
  configuration.logLevel = 6;
  const auto calls = std::make_shared<std::atomic<int>>(0);
  configuration.collectionHost = "collect.example.com/path";  // is logged while the core starts
  configuration.logSink = [calls](int, std::string_view) {
    ++*calls;
    static_cast<void>(JXDevice::sharedInstance().sdkID());
    static_cast<void>(JXUser::sharedInstance().anonymous_id());
    static_cast<void>(JXNetworkManager::sharedInstance().counters());
  };
  const auto serverSide = start();
  EXPECT_GE(*calls, 2);
  EXPECT_EQ(serverSide->siteID(), 1);
}

TEST_F(Callbacks, DeliveryCallbackMayCallTheSdk) {
  struct Hook {
    std::mutex mutex;
    std::function<void()> call;
  };
  const auto hook = std::make_shared<Hook>();
  configuration.onDelivery = [hook](const JXDelivery&) {
    std::function<void()> call;
    {
      const std::lock_guard<std::mutex> lock(hook->mutex);
      call = hook->call;
    }
    if (call) call();
  };
  configuration.outboxBounds.maxRequests = 1;
  const auto serverSide = start();
  // Shared, because the transfer thread may still be calling it when the test ends.
  const auto calls = std::make_shared<Calls>(serverSide);
  {
    const std::lock_guard<std::mutex> lock(hook->mutex);
    hook->call = [calls] { (*calls)(); };
  }
  // The second one evicts the first, which is reported on the transfer thread.
  serverSide->execute(JXCustomEvent::initWithName("first"));
  serverSide->execute(JXCustomEvent::initWithName("second"));
  calls->expectDone();
  const std::lock_guard<std::mutex> lock(hook->mutex);
  hook->call = nullptr;
}

class CallingEvent final : public JXCustomEvent {
 public:
  static std::shared_ptr<CallingEvent> create(std::function<void()> call) {
    auto event = std::shared_ptr<CallingEvent>(new CallingEvent());
    event->call_ = std::move(call);
    event->setName("calling");
    return event;
  }
  JXJsonObject getJsonObject() const override {
    call_();
    return JXCustomEvent::getJsonObject();
  }

 private:
  std::function<void()> call_;
};

TEST_F(Callbacks, GetJsonObjectMayCallTheSdk) {
  const auto serverSide = start();
  Calls calls(serverSide);
  serverSide->execute(CallingEvent::create([&] { calls(); }));
  calls.expectDone();
}

}  // namespace
}  // namespace jx::test
