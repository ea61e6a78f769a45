// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXEventListener.h"

#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

#include "jx/core/JXCoreInitialisation.h"
#include "jx/core/notifications/JXEventSender.h"
#include "tests/core/JXCoreFixture.h"
#include "tests/core/notifications/JXListening.h"

namespace jx {
namespace {

using test::JXListening;

class JXListenerAndSender : public test::JXCoreFixture {
 protected:
  static std::shared_ptr<JXNotificationCenter> defaultCenter() {
    return JXNotificationCenter::defaultCenter();
  }

  std::shared_ptr<JXNotificationCenter> hosts_ = std::make_shared<JXNotificationCenter>();
};

// Where the sender posts and where the listener sits.
TEST_F(JXListenerAndSender, OnTheDefaultCentreTheListenerHearsOnce) {
  JXListening listening;
  listening.listen("x");
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, WhatIsPostedOnTheHostsCentreIsHeardOnTheDefaultOne) {
  JXListening listening;
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->setNotificationCenter(hosts_);
  sender->send({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, WhatIsPostedOnTheDefaultCentreIsHeardOnTheHosts) {
  JXListening listening(hosts_);
  listening.listen("x");
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, OnTheSameHostsCentreTheListenerHearsOnce) {
  JXListening listening(hosts_);
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->setNotificationCenter(hosts_);
  sender->send({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, BetweenTwoHostsCentresTheListenerHearsOnce) {
  JXListening listening(std::make_shared<JXNotificationCenter>());
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->setNotificationCenter(hosts_);
  sender->send({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, AConsentModuleMayPostOnTheDefaultCentreWithoutASender) {
  JXListening listening(hosts_);
  listening.listen("x");
  defaultCenter()->postNotification({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, WhatTheHostPostsOnItsOwnCentreIsHeardThereWithoutASender) {
  JXListening listening(hosts_);
  listening.listen("x");
  hosts_->postNotification({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, EachOfManyListenersHearsOnceWhereverItSits) {
  JXListening onDefault;
  JXListening onHosts(hosts_);
  JXListening alsoOnHosts(hosts_);
  JXListening elsewhere(std::make_shared<JXNotificationCenter>());
  for (JXListening* listening : {&onDefault, &onHosts, &alsoOnHosts, &elsewhere})
    listening->listen("x");
  const auto first = JXEventSender::init();
  const auto second = JXEventSender::init();
  second->setNotificationCenter(hosts_);
  first->send({"x"});
  second->send({"x"});
  for (JXListening* listening : {&onDefault, &onHosts, &alsoOnHosts, &elsewhere})
    EXPECT_EQ(listening->heard(), "x;x;");
}

TEST_F(JXListenerAndSender, ASenderThatMovedPostsOnItsNewCentreOnly) {
  std::string posted;
  const auto observe = [&](const std::shared_ptr<JXNotificationCenter>& center, const char* mark) {
    center->addObserver(this, "x", [&posted, mark](const JXNotification&) { posted += mark; });
  };
  observe(defaultCenter(), "default;");
  observe(hosts_, "host;");
  JXListening listening;
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->send({"x"});
  sender->setNotificationCenter(hosts_);
  sender->setNotificationCenter(hosts_);
  sender->send({"x"});
  sender->setNotificationCenter(nullptr);
  sender->send({"x"});
  EXPECT_EQ(posted, "default;host;default;");
  EXPECT_EQ(listening.heard(), "x;x;x;");
  defaultCenter()->removeObserver(this);
  hosts_->removeObserver(this);
}

TEST_F(JXListenerAndSender, AListenerThatMovedTakesItsNamesAlong) {
  JXListening listening;
  listening.listen("x").listen("y");
  const auto sender = JXEventSender::init();
  listening.listenerDelegate()->setNotificationCenter(hosts_);
  hosts_->postNotification({"x"});
  sender->send({"y"});
  listening.listen("z");
  hosts_->postNotification({"z"});
  EXPECT_EQ(listening.heard(), "x;y;z;");
  listening.listenerDelegate()->setNotificationCenter(nullptr);
  hosts_->postNotification({"x"});
  EXPECT_EQ(listening.heard(), "x;y;z;") << "nobody sends on that centre through the core";
  sender->send({"x"});
  EXPECT_EQ(listening.heard(), "x;y;z;x;");
}

TEST_F(JXListenerAndSender, OnlyNamesThatAreListenedForAreHeard) {
  JXListening listening(hosts_);
  listening.listen("x").listen("x").listen(nullptr);
  const auto sender = JXEventSender::init();
  for (const char* name : {"x", "y", "", "X"}) {
    sender->send({name});
    hosts_->postNotification({name});
  }
  sender->send({});
  EXPECT_EQ(listening.heard(), "x;x;");
}

TEST_F(JXListenerAndSender, WithoutAParentNobodyIsCalled) {
  JXListening listening;
  listening.listen("x");
  listening.listenerDelegate()->setParent(nullptr);
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.heard(), "");
  listening.listenerDelegate()->setParent(&listening);
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.heard(), "x;");
}

TEST_F(JXListenerAndSender, TheNotificationArrivesWhole) {
  JXListening listening(hosts_);
  listening.listen("x");
  JXJsonObject userInfo;
  JXNotification got;
  listening.reaction = [&](const JXNotification& n) { got = n; };
  JXEventSender::init()->send({"x", this, userInfo});
  EXPECT_EQ(got.object, this);
  EXPECT_TRUE(got.userInfo.isSameAs(userInfo));
}

TEST_F(JXListenerAndSender, EverythingHappensOnTheThreadThatPostsBeforeSendReturns) {
  JXListening here;
  JXListening there(hosts_);
  here.listen("x");
  there.listen("x");
  std::thread other([&] {
    JXEventSender::init()->send({"x"});
    EXPECT_EQ(here.heard(), "x;");
    EXPECT_EQ(there.heard(), "x;");
    EXPECT_EQ(here.thread(), std::this_thread::get_id());
    EXPECT_EQ(there.thread(), std::this_thread::get_id());
  });
  other.join();
}

TEST_F(JXListenerAndSender, AListenerMaySendWhileItHears) {
  JXListening first;
  JXListening second(hosts_);
  const auto sender = JXEventSender::init();
  first.listen("x").listen("z");
  second.listen("y");
  first.reaction = [&](const JXNotification& n) {
    if (n.name == JXString("x")) sender->send({"y"});
  };
  second.reaction = [&](const JXNotification&) { sender->send({"z"}); };
  sender->send({"x"});
  EXPECT_EQ(first.heard(), "x;z;");
  EXPECT_EQ(second.heard(), "y;");
}

TEST_F(JXListenerAndSender, OneThatThrowsKeepsTheNotificationFromNobody) {
  JXCoreInitialisation::init();  // for the log
  JXListening brokenHere;
  JXListening here;
  JXListening brokenThere(hosts_);
  JXListening there(hosts_);
  for (JXListening* listening : {&brokenHere, &here, &brokenThere, &there})
    listening->listen("x");
  brokenHere.reaction = [](const JXNotification&) { throw std::runtime_error("broken here"); };
  brokenThere.reaction = [](const JXNotification&) { throw std::runtime_error("broken there"); };
  const auto sender = JXEventSender::init();
  sender->send({"x"});
  EXPECT_EQ(here.heard(), "x;");
  EXPECT_EQ(there.heard(), "x;");
  sender->setNotificationCenter(hosts_);
  sender->send({"x"});
  EXPECT_EQ(here.heard(), "x;x;");
  EXPECT_EQ(there.heard(), "x;x;");
  EXPECT_EQ(countLogLines("3 "), 4);
}

TEST_F(JXListenerAndSender, AListenerThatEndedHearsNoMore) {
  JXListening here;
  JXListening there(hosts_);
  here.listen("x");
  there.listen("x");
  here.endListener();
  there.endListener();
  JXEventSender::init()->send({"x"});
  hosts_->postNotification({"x"});
  EXPECT_EQ(here.heard() + there.heard(), "");
}

TEST_F(JXListenerAndSender, AListenerMayEndItselfAndOthersWhileItHears) {
  for (const auto& center : {defaultCenter(), hosts_}) {
    JXListening first(center);
    JXListening second(center);
    first.listen("x");
    second.listen("x");
    first.reaction = [&](const JXNotification&) {
      first.endListener();
      second.endListener();
    };
    const auto sender = JXEventSender::init();
    sender->send({"x"});
    sender->send({"x"});
    EXPECT_EQ(first.heard(), "x;");
    EXPECT_EQ(second.heard(), "");
  }
}

TEST_F(JXListenerAndSender, ACentreThatEndedIsNoLongerPostedOn) {
  JXListening listening;
  listening.listen("x");
  for (int i = 0; i < 50; ++i) {
    const auto sender = JXEventSender::init();
    sender->setNotificationCenter(std::make_shared<JXNotificationCenter>());
    sender->send({"x"});
  }
  EXPECT_EQ(listening.heard().size(), 100U);
}

// A gate that one thread closes and another waits for.
class Gate {
 public:
  void open() {
    const std::lock_guard<std::mutex> lock(mutex_);
    isOpen_ = true;
    changed_.notify_all();
  }
  void wait() {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [this] { return isOpen_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isOpen_ = false;
};

TEST_F(JXListenerAndSender, EndingAListenerWaitsForACallThatIsUnderWayOnAnotherThread) {
  for (const auto& center : {defaultCenter(), hosts_}) {
    JXListening listening(center);
    listening.listen("x");
    Gate called;
    Gate mayReturn;
    bool hasReturned = false;  // not synchronised: the listener's end must order the two threads
    listening.reaction = [&](const JXNotification&) {
      called.open();
      mayReturn.wait();
      hasReturned = true;
    };
    std::thread poster([] { JXEventSender::init()->send({"x"}); });
    called.wait();
    std::thread opener([&] { mayReturn.open(); });
    listening.endListener();
    EXPECT_TRUE(hasReturned);
    opener.join();
    poster.join();
    EXPECT_EQ(listening.heard(), "x;");
  }
}

TEST_F(JXListenerAndSender, ListenersMayComeAndGoWhileOtherThreadsSend) {
  std::vector<std::thread> threads;
  for (int number = 0; number < 2; ++number) {
    threads.emplace_back([this, number] {
      const auto sender = JXEventSender::init();
      if (number == 1) sender->setNotificationCenter(hosts_);
      for (int i = 0; i < 300; ++i)
        sender->send({"x"});
    });
  }
  for (int i = 0; i < 150; ++i) {
    JXListening here;
    JXListening there(hosts_);
    here.listen("x");
    there.listen("x");
    there.listenerDelegate()->setNotificationCenter(nullptr);
    here.endListener();
    there.endListener();
    const std::string heard = here.heard() + there.heard();
    EXPECT_EQ(heard.size() % 2, 0U);
  }
  for (std::thread& thread : threads)
    thread.join();
}

TEST_F(JXListenerAndSender, ASenderKnowsItsParent) {
  const auto sender = JXEventSender::init();
  EXPECT_EQ(sender->parent(), nullptr);
  struct Owner : IJXEventSenderDelegate {
    std::shared_ptr<JXEventSender> senderDelegate() const override { return sender; }
    std::shared_ptr<JXEventSender> sender;
  } owner;
  sender->setParent(&owner);
  EXPECT_EQ(sender->parent(), &owner);
}

}  // namespace
}  // namespace jx
