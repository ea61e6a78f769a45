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

  std::shared_ptr<JXNotificationCenter> application_ = std::make_shared<JXNotificationCenter>();
};

// Combinations of the sender's and the listener's center.
TEST_F(JXListenerAndSender, DeliversOnceOnTheDefaultCenter) {
  JXListening listening;
  listening.listen("x");
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversFromAnApplicationCenterToTheDefaultCenter) {
  JXListening listening;
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->setNotificationCenter(application_);
  sender->send({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversFromTheDefaultCenterToAnApplicationCenter) {
  JXListening listening(application_);
  listening.listen("x");
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversOnceOnTheSameApplicationCenter) {
  JXListening listening(application_);
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->setNotificationCenter(application_);
  sender->send({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversOnceBetweenTwoApplicationCenters) {
  JXListening listening(std::make_shared<JXNotificationCenter>());
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->setNotificationCenter(application_);
  sender->send({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversPostsOnTheDefaultCenterWithoutASender) {
  JXListening listening(application_);
  listening.listen("x");
  defaultCenter()->postNotification({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversPostsOnAnApplicationCenterWithoutASender) {
  JXListening listening(application_);
  listening.listen("x");
  application_->postNotification({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversOnceToEachOfManyListenersOnAnyCenter) {
  JXListening onDefault;
  JXListening onApplication(application_);
  JXListening alsoOnApplication(application_);
  JXListening elsewhere(std::make_shared<JXNotificationCenter>());
  for (JXListening* listening : {&onDefault, &onApplication, &alsoOnApplication, &elsewhere})
    listening->listen("x");
  const auto first = JXEventSender::init();
  const auto second = JXEventSender::init();
  second->setNotificationCenter(application_);
  first->send({"x"});
  second->send({"x"});
  for (JXListening* listening : {&onDefault, &onApplication, &alsoOnApplication, &elsewhere})
    EXPECT_EQ(listening->received(), "x;x;");
}

TEST_F(JXListenerAndSender, SenderPostsOnItsNewCenterOnly) {
  std::string posted;
  const auto observe = [&](const std::shared_ptr<JXNotificationCenter>& center, const char* mark) {
    center->addObserver(this, "x", [&posted, mark](const JXNotification&) { posted += mark; });
  };
  observe(defaultCenter(), "default;");
  observe(application_, "application;");
  JXListening listening;
  listening.listen("x");
  const auto sender = JXEventSender::init();
  sender->send({"x"});
  sender->setNotificationCenter(application_);
  sender->setNotificationCenter(application_);
  sender->send({"x"});
  sender->setNotificationCenter(nullptr);
  sender->send({"x"});
  EXPECT_EQ(posted, "default;application;default;");
  EXPECT_EQ(listening.received(), "x;x;x;");
  defaultCenter()->removeObserver(this);
  application_->removeObserver(this);
}

TEST_F(JXListenerAndSender, ListenerKeepsItsNamesOnANewCenter) {
  JXListening listening;
  listening.listen("x").listen("y");
  const auto sender = JXEventSender::init();
  listening.listenerDelegate()->setNotificationCenter(application_);
  application_->postNotification({"x"});
  sender->send({"y"});
  listening.listen("z");
  application_->postNotification({"z"});
  EXPECT_EQ(listening.received(), "x;y;z;");
  listening.listenerDelegate()->setNotificationCenter(nullptr);
  application_->postNotification({"x"});
  EXPECT_EQ(listening.received(), "x;y;z;") << "no sender posts on that center through the core";
  sender->send({"x"});
  EXPECT_EQ(listening.received(), "x;y;z;x;");
}

TEST_F(JXListenerAndSender, DeliversOnlyNamesThatAreListenedFor) {
  JXListening listening(application_);
  listening.listen("x").listen("x").listen(nullptr);
  const auto sender = JXEventSender::init();
  for (const char* name : {"x", "y", "", "X"}) {
    sender->send({name});
    application_->postNotification({name});
  }
  sender->send({});
  EXPECT_EQ(listening.received(), "x;x;");
}

TEST_F(JXListenerAndSender, DoesNotCallAnyoneWithoutAParent) {
  JXListening listening;
  listening.listen("x");
  listening.listenerDelegate()->setParent(nullptr);
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.received(), "");
  listening.listenerDelegate()->setParent(&listening);
  JXEventSender::init()->send({"x"});
  EXPECT_EQ(listening.received(), "x;");
}

TEST_F(JXListenerAndSender, DeliversTheCompleteNotification) {
  JXListening listening(application_);
  listening.listen("x");
  JXJsonObject userInfo;
  JXNotification got;
  listening.reaction = [&](const JXNotification& n) { got = n; };
  JXEventSender::init()->send({"x", this, userInfo});
  EXPECT_EQ(got.object, this);
  EXPECT_TRUE(got.userInfo.isSameAs(userInfo));
}

TEST_F(JXListenerAndSender, DeliversOnThePostingThreadBeforeSendReturns) {
  JXListening here;
  JXListening there(application_);
  here.listen("x");
  there.listen("x");
  std::thread other([&] {
    JXEventSender::init()->send({"x"});
    EXPECT_EQ(here.received(), "x;");
    EXPECT_EQ(there.received(), "x;");
    EXPECT_EQ(here.thread(), std::this_thread::get_id());
    EXPECT_EQ(there.thread(), std::this_thread::get_id());
  });
  other.join();
}

TEST_F(JXListenerAndSender, ListenerCanSendDuringDelivery) {
  JXListening first;
  JXListening second(application_);
  const auto sender = JXEventSender::init();
  first.listen("x").listen("z");
  second.listen("y");
  first.reaction = [&](const JXNotification& n) {
    if (n.name == JXString("x")) sender->send({"y"});
  };
  second.reaction = [&](const JXNotification&) { sender->send({"z"}); };
  sender->send({"x"});
  EXPECT_EQ(first.received(), "x;z;");
  EXPECT_EQ(second.received(), "y;");
}

TEST_F(JXListenerAndSender, ThrowingListenerDoesNotAffectTheOthers) {
  JXCoreInitialisation::init();  // for the log
  JXListening brokenHere;
  JXListening here;
  JXListening brokenThere(application_);
  JXListening there(application_);
  for (JXListening* listening : {&brokenHere, &here, &brokenThere, &there})
    listening->listen("x");
  brokenHere.reaction = [](const JXNotification&) { throw std::runtime_error("broken here"); };
  brokenThere.reaction = [](const JXNotification&) { throw std::runtime_error("broken there"); };
  const auto sender = JXEventSender::init();
  sender->send({"x"});
  EXPECT_EQ(here.received(), "x;");
  EXPECT_EQ(there.received(), "x;");
  sender->setNotificationCenter(application_);
  sender->send({"x"});
  EXPECT_EQ(here.received(), "x;x;");
  EXPECT_EQ(there.received(), "x;x;");
  EXPECT_EQ(countLogLines("3 "), 4);
}

TEST_F(JXListenerAndSender, DestroyedListenerReceivesNothing) {
  JXListening here;
  JXListening there(application_);
  here.listen("x");
  there.listen("x");
  here.endListener();
  there.endListener();
  JXEventSender::init()->send({"x"});
  application_->postNotification({"x"});
  EXPECT_EQ(here.received() + there.received(), "");
}

TEST_F(JXListenerAndSender, ListenerCanDestroyItselfAndOthersDuringDelivery) {
  for (const auto& center : {defaultCenter(), application_}) {
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
    EXPECT_EQ(first.received(), "x;");
    EXPECT_EQ(second.received(), "");
  }
}

TEST_F(JXListenerAndSender, DestroyedCentersAreForgotten) {
  JXListening listening;
  listening.listen("x");
  for (int i = 0; i < 50; ++i) {
    const auto sender = JXEventSender::init();
    sender->setNotificationCenter(std::make_shared<JXNotificationCenter>());
    sender->send({"x"});
  }
  EXPECT_EQ(listening.received().size(), 100U);
}

// A gate that one thread opens and another waits for.
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

TEST_F(JXListenerAndSender, DestroyingAListenerWaitsForACallOnAnotherThread) {
  for (const auto& center : {defaultCenter(), application_}) {
    JXListening listening(center);
    listening.listen("x");
    Gate called;
    Gate mayReturn;
    bool hasReturned = false;  // not synchronised: destroying the listener must order the threads
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
    EXPECT_EQ(listening.received(), "x;");
  }
}

TEST_F(JXListenerAndSender, ListenersCanComeAndGoWhileOtherThreadsSend) {
  std::vector<std::thread> threads;
  for (int number = 0; number < 2; ++number) {
    threads.emplace_back([this, number] {
      const auto sender = JXEventSender::init();
      if (number == 1) sender->setNotificationCenter(application_);
      for (int i = 0; i < 300; ++i)
        sender->send({"x"});
    });
  }
  for (int i = 0; i < 150; ++i) {
    JXListening here;
    JXListening there(application_);
    here.listen("x");
    there.listen("x");
    there.listenerDelegate()->setNotificationCenter(nullptr);
    here.endListener();
    there.endListener();
    const std::string received = here.received() + there.received();
    EXPECT_EQ(received.size() % 2, 0U);
  }
  for (std::thread& thread : threads)
    thread.join();
}

TEST_F(JXListenerAndSender, SenderReturnsItsParent) {
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
