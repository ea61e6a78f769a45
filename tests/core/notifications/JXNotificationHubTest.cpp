// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXNotificationHub.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreInitialisation.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/notifications/JXEventSender.h"
#include "jx/core/notifications/JXPendingRequest.h"
#include "jx/core/storage/JXFile.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/core/JXCoreFixture.h"
#include "tests/core/notifications/JXListening.h"

namespace jx {
namespace {

// A local port that is bound but does not accept connections, so that no other program can use it.
class ClosedPort {
 public:
  ClosedPort() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket_, plain, length) != 0 || getsockname(socket_, plain, &length) != 0) {
      throw std::runtime_error("no port available");
    }
    url_ = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/events";
  }
  ~ClosedPort() { close(socket_); }
  ClosedPort(const ClosedPort&) = delete;
  ClosedPort& operator=(const ClosedPort&) = delete;
  const std::string& url() const { return url_; }

 private:
  const int socket_;
  std::string url_;
};

// The core with its queue and transfer thread, and an unreachable server.
class JXNotificationHubTest : public test::JXCoreFixture {
 protected:
  void prepare() override { configuration_.dryRun = false; }
  void SetUp() override {
    JXCoreFixture::SetUp();
    JXCoreInitialisation::init();
  }

  static JXNetworkManager& manager() { return JXNetworkManager::sharedInstance(); }
  static std::uint64_t queued() { return manager().counters().outbox.queued; }

  JXNotification request(const JXString& body = R"({"context":{"event_id":"1"}})") const {
    JXNotification notification{kJXNotification_HTTPRequest, this, JXJsonObject()};
    notification.userInfo.set(kJXUserInfo_URLKey, port_.url());
    notification.userInfo.set(kJXUserInfo_POSTData, body);
    return notification;
  }
  std::shared_ptr<JXEventSender> senderOnApplicationCenter() const {
    const auto sender = JXEventSender::init();
    sender->setNotificationCenter(application_);
    return sender;
  }

  const ClosedPort port_;
  const std::shared_ptr<JXNotificationCenter> application_ =
      std::make_shared<JXNotificationCenter>();
};

TEST_F(JXNotificationHubTest, QueuesARequestBeforeSendReturns) {
  JXEventSender::init()->send(request());
  EXPECT_EQ(queued(), 1U);
  senderOnApplicationCenter()->send(request());
  EXPECT_EQ(queued(), 2U);
  EXPECT_EQ(manager().counters().outbox.added, 2U);
}

TEST_F(JXNotificationHubTest, QueuesARequestOnceWithManySendersAndListeners) {
  test::JXListening here;
  test::JXListening there(application_);
  here.listenerDelegate()->listen(kJXNotification_HTTPRequest);
  there.listenerDelegate()->listen(kJXNotification_HTTPRequest);
  const auto first = senderOnApplicationCenter();
  const auto second = senderOnApplicationCenter();
  const auto third = JXEventSender::init();
  first->send(request());
  EXPECT_EQ(manager().counters().outbox.added, 1U);
  EXPECT_EQ(here.received(), "JXNotification: HTTP Request;");
  EXPECT_EQ(there.received(), "JXNotification: HTTP Request;");
}

TEST_F(JXNotificationHubTest, DoesNotQueueARequestWithoutUrlOrBody) {
  const auto sender = JXEventSender::init();
  sender->send({kJXNotification_HTTPRequest});
  sender->send({kJXNotification_HTTPRequest, nullptr, JXJsonObject()});
  JXNotification notification = request();
  notification.userInfo.remove(kJXUserInfo_URLKey);
  sender->send(notification);
  notification = request();
  notification.userInfo.remove(kJXUserInfo_POSTData);
  sender->send(notification);
  notification = request();
  notification.userInfo.set(kJXUserInfo_POSTData, 7);
  sender->send(notification);
  EXPECT_EQ(manager().counters().outbox.added, 0U);
}

TEST_F(JXNotificationHubTest, DoesNotQueueOtherNotifications) {
  JXNotification notification = request();
  notification.name = kJXNotification_HitSent;
  JXEventSender::init()->send(notification);
  notification.name = "jxnotification: http request";
  JXEventSender::init()->send(notification);
  EXPECT_EQ(manager().counters().outbox.added, 0U);
}

TEST_F(JXNotificationHubTest, StoppingPausesRequestsAndEnablingResumesThem) {
  const auto sender = senderOnApplicationCenter();
  EXPECT_FALSE(manager().counters().paused);
  sender->send({kJXNotification_StoppingTheServerSide});
  EXPECT_TRUE(manager().counters().paused);
  sender->send(request());
  EXPECT_EQ(queued(), 1U);
  sender->send({kJXNotification_EnablingTheServerSide});
  EXPECT_FALSE(manager().counters().paused);
  EXPECT_EQ(queued(), 1U);
}

TEST_F(JXNotificationHubTest, AcceptsStopAndEnableOnTheDefaultCenter) {
  const auto& center = JXNotificationCenter::defaultCenter();
  center->postNotification({kJXNotification_StoppingTheServerSide});
  EXPECT_TRUE(manager().counters().paused);
  center->postNotification({kJXNotification_EnablingTheServerSide});
  EXPECT_FALSE(manager().counters().paused);
}

TEST_F(JXNotificationHubTest, ManagerStateDefinesTheEffectOfStopping) {
  manager().setManagerState(1);
  EXPECT_EQ(manager().managerState(), 1);
  senderOnApplicationCenter()->send({kJXNotification_StoppingTheServerSide});
  EXPECT_FALSE(manager().counters().paused) << "always enabled";
  manager().setManagerState(2);
  EXPECT_EQ(manager().managerState(), 2);
  EXPECT_TRUE(manager().counters().paused) << "disabled by default";
  senderOnApplicationCenter()->send({kJXNotification_EnablingTheServerSide});
  EXPECT_FALSE(manager().counters().paused);
  manager().setManagerState(7);
  EXPECT_EQ(manager().managerState(), 0);
}

TEST_F(JXNotificationHubTest, PausesRequestsInTheBackground) {
  const auto sender = JXEventSender::init();
  sender->send({kJXNotification_OnBackground});
  EXPECT_TRUE(manager().counters().paused);
  sender->send(request());
  EXPECT_EQ(queued(), 1U);
  senderOnApplicationCenter()->send({kJXNotification_OnForeground});
  EXPECT_FALSE(manager().counters().paused);
  sender->send({kJXNotification_OnBackground});
  manager().enableRunningInBackground();
  EXPECT_FALSE(manager().counters().paused);
}

TEST_F(JXNotificationHubTest, UpdatesTheManagerBeforeListenersAreCalled) {
  test::JXListening listening;
  listening.listenerDelegate()->listen(kJXNotification_StoppingTheServerSide);
  bool wasPaused = false;
  listening.reaction = [&](const JXNotification&) { wasPaused = manager().counters().paused; };
  JXEventSender::init()->send({kJXNotification_StoppingTheServerSide});
  EXPECT_TRUE(wasPaused);
}

TEST_F(JXNotificationHubTest, QueuesRequestsDespiteAThrowingListener) {
  test::JXListening listening(application_);
  listening.listenerDelegate()->listen(kJXNotification_HTTPRequest);
  listening.reaction = [](const JXNotification&) { throw 1; };
  senderOnApplicationCenter()->send(request());
  JXEventSender::init()->send(request());
  EXPECT_EQ(manager().counters().outbox.added, 2U);
}

TEST_F(JXNotificationHubTest, StoresAndPostsTheUserAgentWhenItIsKnown) {
  test::JXListening listening(application_);
  listening.listenerDelegate()->listen(kJXNotification_UserAgentAvailable);
  JXString posted;
  JXString stored;
  listening.reaction = [&](const JXNotification& n) {
    posted = n.userInfo.get(kJXUserInfo_DataKey).string();
    stored = JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_UserAgent);
  };
  platform_->userAgentAnswersLater = true;
  manager().waitForUserAgent();
  EXPECT_TRUE(manager().counters().paused);
  EXPECT_EQ(listening.received(), "");
  EXPECT_EQ(platform_->answerUserAgent("Agent/2.0"), 1);
  EXPECT_EQ(posted, JXString("Agent/2.0"));
  EXPECT_EQ(stored, JXString("Agent/2.0"));
  EXPECT_FALSE(manager().counters().paused);
}

TEST_F(JXNotificationHubTest, NeitherPostsNorPausesWithoutAUserAgent) {
  test::JXListening listening;
  listening.listenerDelegate()->listen(kJXNotification_UserAgentAvailable);
  platform_->userAgent = nullptr;
  manager().waitForUserAgent();
  EXPECT_FALSE(manager().counters().paused);
  EXPECT_EQ(listening.received(), "");
}

TEST_F(JXNotificationHubTest, ObservingACenterAgainHasNoEffect) {
  JXNotificationHub::sharedInstance().observe(application_);
  JXNotificationHub::sharedInstance().observe(application_);
  JXNotificationHub::sharedInstance().observe(JXNotificationCenter::defaultCenter());
  application_->postNotification(request());
  EXPECT_EQ(manager().counters().outbox.added, 1U);
}

// Counts the syncs of the "defaults" file by wrapping the storage's system call.
class Durability {
 public:
  Durability() {
    JXFileCalls::current().synchronize = [](int descriptor) {
      char path[4096];
      const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
      const ssize_t length = readlink(link.c_str(), path, sizeof path);
      const std::string name(path, length > 0 ? static_cast<std::size_t>(length) : 0);
      const int result = JXFileCalls::system().synchronize(descriptor);
      if (name.size() > 9 && name.compare(name.size() - 9, 9, "/defaults") == 0) {
        const std::lock_guard<std::mutex> lock(mutex());
        ++count();
        changed().notify_all();
      }
      return result;
    };
  }
  /// Waits for the given number of syncs; returns false after 20 seconds.
  static bool waitFor(int times) {
    std::unique_lock<std::mutex> lock(mutex());
    return changed().wait_for(lock, std::chrono::seconds(20), [&] { return count() >= times; });
  }
  static int times() {
    const std::lock_guard<std::mutex> lock(mutex());
    return count();
  }

 private:
  // Never destroyed: the transfer thread may still write while the process exits.
  static std::mutex& mutex() {
    static auto* const mutex = new std::mutex();
    return *mutex;
  }
  static std::condition_variable& changed() {
    static auto* const changed = new std::condition_variable();
    return *changed;
  }
  static int& count() {
    static int count = 0;
    return count;
  }
};

class JXUserDefaultsOnDisk : public test::JXCoreFixture {
 protected:
  void prepare() override {
    configuration_.dryRun = false;
    configuration_.retryTimings.syncDelay = std::chrono::milliseconds(1);
    platform_->hasUserDefaults = false;
  }
  const Durability durability_;
};

TEST_F(JXUserDefaultsOnDisk, MakesSavedValuesDurableWithoutARequest) {
  JXCoreInitialisation::init();
  ASSERT_TRUE(Durability::waitFor(1)) << "the identifiers created at the start";
  const int before = Durability::times();
  JXUserDefaults::saveInfoToUserDefaults_forLabel("value", "label");
  EXPECT_TRUE(Durability::waitFor(before + 1));
}

TEST_F(JXNotificationHubTest, QueuesAPendingRequestWithoutUserInfo) {
  JXNotification notification{kJXNotification_HTTPRequest, this, nullptr};
  const JXString url = port_.url();
  const JXString body = R"({"context":{"event_id":"1"}})";
  const JXPendingRequest pending(notification, url, body);
  senderOnApplicationCenter()->send(notification);
  EXPECT_EQ(queued(), 1U);
  EXPECT_FALSE(notification.userInfo.isPresent());
}

TEST_F(JXNotificationHubTest, CreatesTheUserInfoOfAPendingRequestForObservers) {
  const auto sender = senderOnApplicationCenter();
  test::JXListening there;
  there.listen("JXNotification: HTTP Request");
  std::vector<JXJsonObject> seen;
  const auto keep = [&](const JXNotification& posted) { seen.push_back(posted.userInfo); };
  application_->addObserver(&seen, nullptr, keep);
  there.reaction = keep;
  JXNotification notification{kJXNotification_HTTPRequest, this, nullptr};
  const JXString url = port_.url();
  const JXString body = R"({"context":{"event_id":"1"}})";
  const JXPendingRequest pending(notification, url, body);
  sender->send(notification);
  EXPECT_EQ(queued(), 1U);
  ASSERT_EQ(seen.size(), 2U);
  EXPECT_TRUE(seen[0].isSameAs(seen[1]));
  EXPECT_EQ(seen[0].get(kJXUserInfo_URLKey).string(), url);
  EXPECT_EQ(seen[0].get(kJXUserInfo_POSTData).string(), body);
  EXPECT_EQ(seen[0].size(), 2U);
}

TEST_F(JXNotificationHubTest, QueuesWhatAnEarlierObserverMadeOfAPendingRequest) {
  application_->addObserver(this, kJXNotification_HTTPRequest, [](const JXNotification& posted) {
    JXJsonObject userInfo = posted.userInfo;
    userInfo.remove(kJXUserInfo_POSTData);
  });
  const auto sender = senderOnApplicationCenter();
  JXNotification notification{kJXNotification_HTTPRequest, this, nullptr};
  const JXString url = port_.url();
  const JXPendingRequest pending(notification, url, url);
  sender->send(notification);
  EXPECT_EQ(queued(), 0U);
}

TEST_F(JXNotificationHubTest, DoesNotQueueAPendingRequestWithoutUrl) {
  JXNotification notification{kJXNotification_HTTPRequest, this, nullptr};
  const JXString body = "{}";
  const JXString url;
  const JXPendingRequest pending(notification, url, body);
  JXEventSender::init()->send(notification);
  EXPECT_EQ(queued(), 0U);
}

TEST_F(JXNotificationHubTest, AnObserverOfAPendingRequestMayPostAnother) {
  const auto sender = JXEventSender::init();
  const JXString url = port_.url();
  std::vector<std::string> bodies;
  JXNotificationCenter& center = *JXNotificationCenter::defaultCenter();
  center.addObserver(&bodies, kJXNotification_HTTPRequest, [&](const JXNotification& posted) {
    bodies.push_back(posted.userInfo.get(kJXUserInfo_POSTData).string().toStdString());
    if (bodies.size() != 1) return;
    JXNotification inner{kJXNotification_HTTPRequest, this, nullptr};
    const JXString body = "inner";
    const JXPendingRequest pending(inner, url, body);
    sender->send(inner);
    sender->send(posted);
  });
  JXNotification outer{kJXNotification_HTTPRequest, this, nullptr};
  const JXString body = "outer";
  const JXPendingRequest pending(outer, url, body);
  sender->send(outer);
  center.removeObserver(&bodies);
  EXPECT_EQ(bodies, (std::vector<std::string>{"outer", "inner", "outer"}));
  EXPECT_EQ(queued(), 3U);
}

}  // namespace
}  // namespace jx
